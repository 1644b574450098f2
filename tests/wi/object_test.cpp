#include "support/wi_fixture.h"

#include <array>
#include <vector>

namespace {

bool is_shown(HWND window)
{
    return GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE;
}

TEST(Visibility, AreaThatWasSwitchedOffStaysOffWhenItsFormIsSwitchedOn)
{
    wi_obj *form = wi_mk_form(wi_form_parent(wi_mk_form(nullptr, 1, 1), 0, 0, 1, 1), 3, 1);
    wi_obj *areas[3], *labels[3];
    for (int i = 0; i < 3; ++i) {
        areas[i] = wi_form_parent(form, i, 0, i + 1, 1);
        labels[i] = wi_mk_label(areas[i], "x", 0);
    }
    const auto shown = [&] {
        return std::array{is_shown(labels[0]->handle), is_shown(labels[1]->handle), is_shown(labels[2]->handle)};
    };
    wi_off(areas[1]);
    wi_off(form);
    EXPECT_EQ(shown(), (std::array{false, false, false}));
    wi_on(form);
    EXPECT_EQ(shown(), (std::array{true, false, true}));
    EXPECT_EQ(areas[1]->ison, 0);
}

TEST(Visibility, EveryTypeShowsAndHidesAllItConsistsOf)
{
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    wi_obj *grid = wi_mk_rectary(wi_form_parent(form, 0, 0, 1, 1), 3, 3, 0, 0);
    wi_obj *label = wi_mk_label(grid, "", 0), *button = wi_mk_button(grid, "b", 0, nullptr, 0);
    wi_obj *field = wi_mk_strfld(grid, "s", 0.5), *incdec = wi_mk_incdecfld(grid, "i", 0.5, 1);
    wi_obj *frame = wi_mk_frame(grid), *framed = wi_mk_label(wi_mk_crop(frame, 0, 0, 0, 0), "", 0);
    wi_obj *drect = wi_mk_drect(grid, 0, 0.5);
    wi_obj *pair = wi_mk_updownbut(drect, nullptr, 0, nullptr, 0), *last = wi_mk_label(drect, "", 0);
    const wi_numfld *number = incdec->obj.incdecfld->numfld->obj.numfld;
    const wi_updownbut *steps = incdec->obj.incdecfld->updownbut->obj.updownbut, *loose = pair->obj.updownbut;
    const HWND all[] = {label->handle,        button->handle,         field->obj.strfld->labelarea,
                        number->editarea,     number->labelarea,      field->obj.strfld->editarea,
                        steps->upbut->handle, steps->downbut->handle, frame->handle,
                        framed->handle,       loose->upbut->handle,   loose->downbut->handle,
                        last->handle};
    for (wi_obj *part : {grid, incdec, pair})
        wi_off(part);
    for (const HWND window : all)
        EXPECT_FALSE(is_shown(window));
    wi_on(grid);
    for (wi_obj *part : {incdec, pair})
        wi_on(part);
    for (const HWND window : all)
        EXPECT_TRUE(is_shown(window));
    EXPECT_FALSE(is_shown(form->shell->handle)) << "a part does not show its window";
    wi_on(form);
    EXPECT_TRUE(is_shown(form->shell->handle));
    wi_off(form);
    EXPECT_FALSE(is_shown(form->shell->handle));
}

TEST(Geometry, IsInUnitsOfTheReferenceScreen)
{
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    const int width = GetSystemMetrics(SM_CXFULLSCREEN), height = GetSystemMetrics(SM_CYFULLSCREEN);
    const auto rect = [form] { return place_of(form->shell->handle); };
    wi_position(form, 100, 51);
    wi_size(form, 350, 149);
    const RECT r = rect();
    EXPECT_EQ(r.left, 100 * width / 1024);
    EXPECT_EQ(r.top, 51 * height / 768);
    EXPECT_EQ(r.right - r.left, static_cast<int>(350 * width * 1.25 / 1024));
    EXPECT_EQ(r.bottom - r.top, static_cast<int>(149 * height * 1.25 / 768));
    wi_position(form, 7, 9);
    EXPECT_EQ(rect().right - rect().left, r.right - r.left) << "moving keeps the size";
    wi_size(form->shell, 200, 200);
    EXPECT_EQ(rect().left, 7 * width / 1024) << "sizing keeps the corner";
}

TEST(WindowTable, FirstRegistrationWinsAndTheTableEndsAt20000)
{
    const auto window = [](int i) { return reinterpret_cast<HWND>(static_cast<INT_PTR>(i)); };
    wi_reset_window_table();
    std::vector<wi_obj> owners(20001);
    for (int i = 0; i <= 20000; ++i)
        setwiobject(window(i == 19999 ? 3 : i * 0x10002), &owners[static_cast<std::size_t>(i)]);
    for (int i = 0; i < 19999; ++i)
        ASSERT_EQ(getwiobject(window(i * 0x10002)), &owners[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(getwiobject(window(3)), &owners[19999]);
    EXPECT_EQ(getwiobject(window(20000 * 0x10002)), nullptr) << "the 20001st is ignored";
    EXPECT_EQ(getwiobject(window(5)), nullptr);

    // When it is full, objects are still made.
    wi_obj *field = wi_mk_strfld(new_area(), "label", 0.5);
    wi_strfld_putstr(field, "text");
    wi_on(field->shell);
    pump();
    EXPECT_EQ(taken(wi_strfld_getstr(field)), "text");
    wi_off(field->shell);

    wi_reset_window_table();
    setwiobject(window(42), &owners[0]);
    setwiobject(window(42), &owners[1]);
    EXPECT_EQ(getwiobject(window(42)), &owners[0]);
    EXPECT_EQ(getwiobject(nullptr), nullptr);
    wi_reset_window_table();
}

TEST(MenuTable, EndsAt400Entries)
{
    wi_reset_window_table();
    EXPECT_EQ(getmenuid(), -1);
    std::vector<wi_menubutton_info> infos(401);
    for (int i = 0; i <= 400; ++i) {
        setmenuinfo(&infos[static_cast<std::size_t>(i)]);
        EXPECT_EQ(getmenuid(), i < 400 ? i : 399);
    }
    EXPECT_EQ(getmenuinfo(399), &infos[399]);
    EXPECT_TRUE(!getmenuinfo(400) && !getmenuinfo(65535));
    wi_reset_window_table();
}

} // namespace
