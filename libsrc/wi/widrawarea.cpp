#include "wi/widrawarea.h"

#include "wi/windowtable.h"
#include "wi/wistart.h"
#include "wi/wiwindow.h"

#include <algorithm>
#include <array>

namespace {

struct button_message {
    UINT msg;
    int button;
    int held; // after the message
};

constexpr button_message button_messages[] = {
    {WM_LBUTTONDOWN, 0, 1}, {WM_LBUTTONUP, 0, 0},   {WM_MBUTTONDOWN, 1, 1},
    {WM_MBUTTONUP, 1, 0},   {WM_RBUTTONDOWN, 2, 1}, {WM_RBUTTONUP, 2, 0},
};

struct mouse_slot {
    wi_mouse_callback wi_drawarea::*cb;
    int wi_drawarea::*tag;
};

enum mouse_type { down, up, move, freemv }; // of wi_drawarea_mouse_cb; the journal's codes are one more
enum { expose_code = 5, resize_code = 6 };  // and these

constexpr mouse_slot mouse_slots[] = {
    {&wi_drawarea::mouse_down_cb, &wi_drawarea::mouse_down_tag},
    {&wi_drawarea::mouse_up_cb, &wi_drawarea::mouse_up_tag},
    {&wi_drawarea::mouse_move_cb, &wi_drawarea::mouse_move_tag},
    {&wi_drawarea::mouse_freemv_cb, &wi_drawarea::mouse_freemv_tag},
};

int latest_button; // pressed or released last
std::array<int, 3> held;
SIZE last_size;

// Whether the size of the window is that of the last repaint, which it is from now on.
bool equaloldsize(HWND window)
{
    RECT client;
    GetClientRect(window, &client);
    const bool same = client.right == last_size.cx && client.bottom == last_size.cy;
    last_size = {client.right, client.bottom};
    return same;
}

void draw(wi_obj *wo, bool same_size)
{
    const wi_drawarea *area = wo->obj.drawarea;
    if (const auto cb = same_size ? area->expose_cb : area->resize_cb)
        cb(wo, same_size ? area->expose_tag : area->resize_tag);
}

void repaint(wi_obj *wo)
{
    const HWND window = wo->handle;
    DefWindowProcA(window, WM_PAINT, 0, 0);
    ValidateRect(window, nullptr);
    if (isrunning())
        draw(wo, equaloldsize(window));
}

void mouse(wi_obj *wo, int type, int x, int y, const int *buttons)
{
    const wi_drawarea *area = wo->obj.drawarea;
    const mouse_slot &slot = mouse_slots[type];
    if (const auto cb = area->*slot.cb)
        cb(wo, area->*slot.tag, x, y, buttons);
}

void moved(wi_obj *wo, LPARAM at)
{
    constexpr std::array none{0, 0, 0};
    const std::array latest{latest_button, 0, 0};
    const bool freely = held == none;
    mouse(wo, freely ? freemv : move, LOWORD(at), HIWORD(at), freely ? none.data() : latest.data());
}

void switched(wi_obj *wo, const button_message &m, LPARAM at)
{
    held[static_cast<std::size_t>(m.button)] = m.held;
    latest_button = m.button;
    const std::array buttons{m.button, 0, 0};
    mouse(wo, m.held ? down : up, LOWORD(at), HIWORD(at), buttons.data());
}

void replay(wi_obj *wo, const wi_action &action)
{
    if (action.code > down && action.code <= freemv + 1)
        mouse(wo, action.code - 1, action.x, action.y, action.buttons);
    else if (action.code == expose_code || action.code == resize_code)
        draw(wo, action.code == expose_code);
}

bool is_area(const wi_obj *wo)
{
    return wo && wo->type == wi_type_drawarea;
}

LRESULT CALLBACK dovdrawareaproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (!is_area(wo))
        return DefWindowProcA(window, msg, wparam, lparam);
    const auto button = std::find_if(std::begin(button_messages), std::end(button_messages),
                                     [msg](const button_message &m) { return m.msg == msg; });
    if (button != std::end(button_messages))
        switched(wo, *button, lparam);
    else if (msg == WM_MOUSEMOVE)
        moved(wo, lparam);
    else if (msg == WM_PAINT)
        repaint(wo);
    else if (msg != WM_SIZE)
        return DefWindowProcA(window, msg, wparam, lparam);
    return 0;
}

BOOL CALLBACK invalidate(HWND window, LPARAM)
{
    if (is_area(getwiobject(window)))
        InvalidateRect(window, nullptr, TRUE);
    return TRUE;
}

BOOL CALLBACK invalidate_below(HWND window, LPARAM)
{
    EnumChildWindows(window, invalidate, 0);
    return TRUE;
}

void check(const wi_obj *wo, const char *message)
{
    wi_check(wo, wi_type_drawarea, message, message);
}

} // namespace

const wi_type wi_drawarea_row = {
    .show = wi_handle_show,
    .place = wi_handle_place,
    .focus_enter = wi_focus_past,
    .focus_leave = wi_container_leave,
    .replay = replay,
};

wi_obj *wi_mk_drawarea(wi_obj *parent, wi_callback expose_cb, int expose_tag, wi_callback resize_cb, int resize_tag)
{
    wi_obj *wo = wi_new_obj(wi_type_drawarea);
    wo->obj.drawarea = wi_new<wi_drawarea>();
    parent = wi_with_shell(wo, parent);
    addchild(wo, parent);
    wo->handle = wi_make_control(wo, parent, L"dovdrawarea", "", 0, 0, {10, 10, 80, 80}, 0);
    wi_drawarea_expose_cb(wo, expose_cb, expose_tag);
    wi_drawarea_resize_cb(wo, resize_cb, resize_tag);
    return wo;
}

wi_window wi_drawarea_getwidget(const wi_obj *wo)
{
    check(wo, "Bad parameter passed to wi_drawarea_getwidget");
    return wo->handle;
}

void wi_drawarea_expose_cb(wi_obj *wo, wi_callback cb, int tag)
{
    check(wo, "Bad parameter passed to wi_drawarea_expose_cb");
    wo->obj.drawarea->expose_cb = cb;
    wo->obj.drawarea->expose_tag = tag;
}

void wi_drawarea_resize_cb(wi_obj *wo, wi_callback cb, int tag)
{
    check(wo, "Bad parameter passed to wi_drawarea_resize_cb");
    wo->obj.drawarea->resize_cb = cb;
    wo->obj.drawarea->resize_tag = tag;
}

void wi_drawarea_mouse_cb(wi_obj *wo, int type, wi_mouse_callback func_cb, int tag)
{
    check(wo, "Bad parameter passed to wi_drawarea_mouse_cb");
    if (type < down || type > freemv)
        wi_exit("PE 9, widrawarea.c: bad arg.");
    wo->obj.drawarea->*mouse_slots[type].cb = func_cb;
    wo->obj.drawarea->*mouse_slots[type].tag = tag;
}

void registerdrawwindow()
{
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_OWNDC | CS_BYTEALIGNCLIENT | CS_BYTEALIGNWINDOW;
    wc.lpfnWndProc = dovdrawareaproc;
    wc.hInstance = getinstance();
    wc.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    wc.lpszClassName = "dovdrawarea";
    RegisterClassExA(&wc);
}

void exposedrawwindows()
{
    EnumThreadWindows(GetCurrentThreadId(), invalidate_below, 0);
}
