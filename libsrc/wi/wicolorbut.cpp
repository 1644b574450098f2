#include "wi/wicolorbut.h"

#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"
#include "wi/windowtable.h"

#include <algorithm>
#include <array>

namespace {

constexpr int count = wi_colorbut_colors;

constexpr std::array<COLORREF, count> colors{0xffffff, 0,        0xff,   0xff0000, 0xff00,
                                             0xffff,   0x800080, 0x4080, 0x8080ff, 0x80ff};

LRESULT CALLBACK colorbuttonproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (msg == WM_RBUTTONUP) {
        wi_hlp_srch(wo);
        return 0;
    }
    if (msg == WM_KEYDOWN && wparam == VK_TAB)
        wi_activate_next(wo);
    return wi_class_proc(wo->obj.colorbut->oldwindowproc, window, msg, wparam, lparam);
}

bool shows_color(const wi_colorbut *button)
{
    return button->editable && !button->alldisabled;
}

void fill_in_color(HDC hdc, const wi_rect &r, COLORREF color)
{
    constexpr int pen_width = 3;
    const HGDIOBJ pen = CreatePen(PS_SOLID, pen_width, color), brush = CreateSolidBrush(color);
    const HGDIOBJ old_pen = SelectObject(hdc, pen), old_brush = SelectObject(hdc, brush);
    Rectangle(hdc, r.x, r.y, r.x + r.w, r.y + r.h);
    SelectObject(hdc, old_pen);
    SelectObject(hdc, old_brush);
    DeleteObject(pen);
    DeleteObject(brush);
}

void drawcolorbutton(wi_obj *wo, HDC hdc, const wi_rect &r)
{
    const wi_colorbut *button = wo->obj.colorbut;
    const auto chosen = static_cast<std::size_t>(button->currentcolor);
    const COLORREF color = shows_color(button) ? colors[chosen] : GetSysColor(COLOR_BTNFACE);
    const int dx = static_cast<int>(r.w * 0.035), dy = static_cast<int>(r.h * 0.05);
    const int right = r.x + r.w, bottom = r.y + r.h;
    fill_in_color(hdc, {r.x + dx, r.y + dy, r.w - 2 * dx, r.h - 2 * dy}, color);
    const struct {
        RECT strip;
        int system_color;
    } edges[] = {{{r.x, r.y, r.x + dx, bottom}, COLOR_BTNHIGHLIGHT},
                 {{r.x, r.y, right, r.y + dy}, COLOR_BTNHIGHLIGHT},
                 {{r.x, bottom - dy, right, bottom}, COLOR_BTNSHADOW},
                 {{right - dx, r.y, right, bottom}, COLOR_BTNSHADOW}};
    for (const auto &edge : edges)
        FillRect(hdc, &edge.strip, GetSysColorBrush(edge.system_color));
}

void redraw(const wi_obj *wo)
{
    InvalidateRect(wo->handle, nullptr, FALSE);
}

// Shows the next colour that may be chosen. When there is none, the first one may be from now on.
void advancecolor(wi_obj *wo)
{
    const int next = wi_colorbut_getcolor(wo) + 1;
    int steps = 0;
    while (steps < count && !wo->obj.colorbut->enablearray[(next + steps) % count])
        ++steps;
    wi_colorbut_setcolor(wo, steps < count ? (next + steps) % count : -1);
}

void clicked(wi_obj *wo, int)
{
    const wi_colorbut *button = wo->obj.colorbut;
    if (!shows_color(button))
        return;
    advancecolor(wo);
    if (button->chgcb)
        button->chgcb(wo, button->tag);
}

void states_changed(wi_obj *wo)
{
    wi_colorbut *button = wo->obj.colorbut;
    button->alldisabled = std::count(button->enablearray, button->enablearray + count, 0) == count;
    if (!button->alldisabled && !button->enablearray[button->currentcolor])
        advancecolor(wo);
    redraw(wo);
}

} // namespace

const wi_type wi_colorbut_row = {
    .show = wi_handle_show,
    .place = wi_handle_place,
    .focus_enter = [](wi_obj *wo) { return wi_focus_window(wo->handle); },
    .clicked = clicked,
    .draw = drawcolorbutton,
    .set_editable = wi_colorbut_editable,
};

wi_obj *wi_mk_colorbut(wi_obj *wo_parent)
{
    wi_obj *wo = wi_new_obj(wi_type_colorbut);
    auto *button = wi_new<wi_colorbut>();
    wo->obj.colorbut = button;
    std::fill_n(button->enablearray, count, 1);
    button->editable = 1;
    wi_obj *parent = wi_with_shell(wo, wo_parent);
    wo->handle = wi_make_control(wo, parent, L"button", "", BS_OWNERDRAW, 0, {5, 5, 5, 5}, 1);
    addchild(wo, parent);
    button->oldwindowproc = wi_subclass(wo, wo->handle, colorbuttonproc);
    wi_hlp_setstr(wo, "");
    return wo;
}

void wi_colorbut_setcolor(wi_obj *wo, int indx)
{
    wi_check(wo, wi_type_colorbut, "PE 4, wicolorbut.c: bad arg.", "PE 5, wicolorbut.c: bad arg.");
    wi_colorbut *button = wo->obj.colorbut;
    button->currentcolor = std::clamp(indx, 0, count - 1);
    button->enablearray[button->currentcolor] = 1;
    button->alldisabled = 0;
    redraw(wo);
}

int wi_colorbut_getcolor(wi_obj *wo)
{
    wi_check(wo, wi_type_colorbut, "PE 10, wicolorbut.c: bad arg.", "PE 11, wicolorbut.c: bad arg.");
    return wo->obj.colorbut->editable ? wo->obj.colorbut->currentcolor : -1;
}

void wi_colorbut_colorstate(wi_obj *wo, int indx, int state)
{
    wi_check(wo, wi_type_colorbut, "PE 6, wicolorbut.c: bad arg.", "PE 7, wicolorbut.c: bad arg.");
    wo->obj.colorbut->enablearray[std::clamp(indx, 0, count - 1)] = state != 0;
    states_changed(wo);
}

void wi_colorbut_setary(wi_obj *wo, const int *ary)
{
    wi_check(wo, ary, wi_type_colorbut, "PE 8, wicolorbut.c: bad arg.", "PE 9, wicolorbut.c: bad arg.");
    std::transform(ary, ary + count, wo->obj.colorbut->enablearray, [](int state) { return state != 0; });
    states_changed(wo);
}

void wi_colorbut_getary(wi_obj *wo, int *ary)
{
    wi_check(wo, ary, wi_type_colorbut, "PE 12, wicolorbut.c: bad arg.", "PE 12, wicolorbut.c: bad arg.");
    std::copy_n(wo->obj.colorbut->enablearray, count, ary);
}

void wi_colorbut_editable(wi_obj *wo, int editable)
{
    wi_check(wo, wi_type_colorbut, "PE 14, wicolorbut.c: bad arg.", "PE 15, wicolorbut.c: bad arg.");
    wo->obj.colorbut->editable = editable;
    redraw(wo);
}

void wi_colorbut_chng_cb(wi_obj *wo, wi_callback cb, int tag)
{
    wi_check(wo, wi_type_colorbut, "PE 16, wicolorbut.c: bad arg.", "PE 17, wicolorbut.c: bad arg.");
    wo->obj.colorbut->chgcb = cb;
    wo->obj.colorbut->tag = tag;
}
