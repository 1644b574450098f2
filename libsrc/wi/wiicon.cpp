#include "wi/wiicon.h"

#include "wi/windowtable.h"
#include "wi/wiwindow.h"

#include <algorithm>

namespace {

// A memory context that holds a bitmap of the program's resources, or null when there is none of that number.
HDC load(int resource)
{
    const HBITMAP bitmap = LoadBitmapA(getinstance(), MAKEINTRESOURCEA(resource));
    if (!bitmap)
        return nullptr;
    const HDC context = CreateCompatibleDC(nullptr);
    SelectObject(context, bitmap);
    return context;
}

const struct wi_icon &loaded()
{
    static const struct wi_icon contexts {
        load(104), load(102), load(103), 0
    };
    return contexts;
}

HDC picture_of(const struct wi_icon *icon)
{
    const HDC by_number[] = {nullptr, icon->dovcontext, icon->ostacontext, icon->pelvcontext};
    return icon->currenticon >= 1 && icon->currenticon <= 3 ? by_number[icon->currenticon] : nullptr;
}

void drawicon(wi_obj *wo, HDC hdc, const wi_rect &r)
{
    const RECT whole{r.x, r.y, r.x + r.w, r.y + r.h};
    FillRect(hdc, &whole, GetSysColorBrush(COLOR_BTNFACE)); // what the picture before left
    const HDC picture = picture_of(wo->obj.icon);
    if (!picture)
        return;
    BITMAP size{};
    GetObjectA(GetCurrentObject(picture, OBJ_BITMAP), sizeof size, &size);
    BitBlt(hdc, r.x, r.y, std::min<int>(r.w, size.bmWidth), std::min<int>(r.h, size.bmHeight), picture, 0, 0, SRCCOPY);
}

} // namespace

const wi_type wi_icon_row = {
    .show = wi_handle_show,
    .place = wi_handle_place,
    .focus_enter = wi_focus_past,
    .focus_leave = wi_container_leave,
    .draw = drawicon,
};

wi_obj *wi_mk_icon(wi_obj *wo_parent, int icon)
{
    wi_obj *wo = wi_new_obj(wi_type_icon);
    wo->obj.icon = wi_new<struct wi_icon>();
    *wo->obj.icon = loaded();
    wo->obj.icon->currenticon = icon;
    wi_obj *parent = wi_with_shell(wo, wo_parent);
    wo->handle = wi_make_control(wo, parent, L"button", "", BS_OWNERDRAW, 0, {5, 5, 5, 5}, 1);
    addchild(wo, parent);
    return wo;
}

void wi_icon(wi_obj *wo, int icon)
{
    wi_check(wo, wi_type_icon, "PE 4, wiicon.c: bad arg.", "PE 4, wiicon.c: bad arg.");
    wo->obj.icon->currenticon = icon;
}
