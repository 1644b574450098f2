#include "support/wi_fixture.h"

namespace {

std::string happened;

void tell(wi_obj *, int tag)
{
    happened += std::to_string(tag) + ' ';
}

void tell_mouse(wi_obj *, int tag, int x, int y, const int *buttons)
{
    for (const int n : {tag, x, y, buttons[0], buttons[1], buttons[2]})
        happened += std::to_string(n) + ' ';
}

std::string told()
{
    return std::exchange(happened, "");
}

void repaint(const wi_obj *wo)
{
    InvalidateRect(wo->handle, nullptr, TRUE);
    UpdateWindow(wo->handle);
}

TEST(DrawingArea, TellsOfRepaintsWhileTheLoopRuns)
{
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    wi_obj *one = wi_mk_drawarea(wi_form_parent(form, 0, 0, 50, 50), tell, 1, tell, 2);
    wi_obj *other = wi_mk_drawarea(wi_form_parent(form, 50, 50, 100, 100), nullptr, 0, nullptr, 0);
    wi_on(form);
    repaint(one);
    EXPECT_EQ(told(), "") << "the loop does not run yet";
    wi_set_running(1);
    onresize(one, 0, 0, 101, 52);
    repaint(one);
    repaint(one);
    SendMessageA(one->handle, WM_SIZE, 0, 0);
    EXPECT_EQ(told(), "2 1 ") << "a new size at the repaint, and instead of it";
    repaint(other);
    repaint(one);
    EXPECT_EQ(told(), "2 ") << "the last size is that of the other";
    wi_drawarea_expose_cb(one, tell, 10);
    wi_drawarea_resize_cb(one, nullptr, 0);
    repaint(one);
    onresize(one, 0, 0, 102, 52);
    repaint(one);
    EXPECT_EQ(told(), "10 ");
    EXPECT_FALSE(GetUpdateRect(one->handle, nullptr, FALSE));
    exposedrawwindows();
    EXPECT_TRUE(GetUpdateRect(one->handle, nullptr, FALSE)) << "what was shown too early is drawn";
    EXPECT_EQ(GetPixel(GetDC(wi_drawarea_getwidget(one)), 50, 20), RGB(255, 255, 255));
    wi_off(form);
    wi_set_running(0);
    for (const int type : {-1, 4})
        EXPECT_EQ(exit_message([&] { wi_drawarea_mouse_cb(one, type, nullptr, 0); }), "PE 9, widrawarea.c: bad arg.");
}

TEST(DrawingArea, TellsOfTheMouse)
{
    const struct {
        UINT message;
        LPARAM at;
        std::string tells;
    } table[] = {{WM_MOUSEMOVE, MAKELPARAM(3, 4), "3 3 4 0 0 0 "},
                 {WM_RBUTTONDOWN, MAKELPARAM(5, 6), "0 5 6 2 0 0 "},
                 {WM_MOUSEMOVE, MAKELPARAM(7, -1), "2 7 65535 2 0 0 "},
                 {WM_LBUTTONDOWN, MAKELPARAM(1, 1), "0 1 1 0 0 0 "},
                 {WM_MBUTTONDOWN, 0, "0 0 0 1 0 0 "},
                 {WM_MBUTTONUP, 0, "1 0 0 1 0 0 "},
                 {WM_MOUSEMOVE, 0, "2 0 0 1 0 0 "}, // the one released last, though others are held
                 {WM_LBUTTONUP, 0, "1 0 0 0 0 0 "},
                 {WM_MOUSEMOVE, 0, "2 0 0 0 0 0 "},
                 {WM_RBUTTONUP, 0, "1 0 0 2 0 0 "},
                 {WM_MOUSEMOVE, 0, "3 0 0 0 0 0 "}};
    wi_obj *wo = wi_mk_drawarea(nullptr, nullptr, 0, nullptr, 0);
    for (const bool set : {false, true}) {
        for (int type = 0; set && type < 4; ++type)
            wi_drawarea_mouse_cb(wo, type, tell_mouse, type);
        for (const auto &row : table) {
            EXPECT_EQ(SendMessageA(wo->handle, row.message, 0, row.at), 0);
            EXPECT_EQ(told(), set ? row.tells : "");
        }
    }
}

} // namespace
