#include "wi/wimenubar.h"

#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"

#include <span>
#include <utility>

namespace {

std::intptr_t oldbuttonproc; // the class's window procedure, that of all pull-downs

std::span<wi_mb_pd> pulldowns(const wi_obj *wo)
{
    const wi_menubar *bar = wo->obj.menubar;
    return {bar->ary, static_cast<std::size_t>(bar->npd)};
}

// The pull-down of that index, or null.
wi_mb_pd *pulldown(const wi_obj *wo, int index)
{
    const wi_menubar *bar = wo->obj.menubar;
    return index >= 0 && index < bar->npd ? &bar->ary[index] : nullptr;
}

// The current pull-down, or null.
wi_mb_pd *current(const wi_obj *wo)
{
    return pulldown(wo, wo->obj.menubar->ipd);
}

// The current pull-down when it has items, and so a current one, or null.
wi_mb_pd *filled(const wi_obj *wo, const char *message)
{
    wi_check(wo, wi_type_menubar, message, message);
    wi_mb_pd *pd = current(wo);
    return pd && pd->nbuts > 0 ? pd : nullptr;
}

// The pull-down that takes one more item.
wi_mb_pd &pulldown_with_room(const wi_obj *wo)
{
    wi_check(wo, wi_type_menubar, "PE 9, wimenubar.c: bad arg.", "PE 10, wimenubar.c: bad arg.");
    wi_mb_pd *pd = current(wo);
    if (!pd || pd->nbuts == wi_menubar_most)
        wi_exit("PE 12, wimenubar.c: pulldown full.");
    return *pd;
}

// The menu that the pull-down opens; items are found by their id in all its sub-menus.
HMENU menu_of(const wi_mb_pd &pd)
{
    const MenuList *list = pd.currentmenu;
    while (list->prev)
        list = list->prev;
    return list->themenu;
}

UINT id_of_current(const wi_mb_pd &pd)
{
    return static_cast<UINT>(pd.ary[pd.ibut].idnumber);
}

void open_menu(wi_mb_pd &pd)
{
    auto *list = wi_new<MenuList>();
    *list = {CreatePopupMenu(), pd.currentmenu};
    pd.currentmenu = list;
}

void help(wi_obj *wo, HWND button)
{
    if (const wi_mb_pd *pd = pulldown(wo, GetDlgCtrlID(button)))
        wo->hlp = pd->hlp;
    wi_hlp_srch(wo);
}

// Keys do not reach the button: one that the space bar pressed would wait for the release of the key, which goes to
// the object that has the focus then.
LRESULT CALLBACK menuproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (!wo)
        return 0;
    if (msg == WM_KEYDOWN) {
        wi_activate_next(wo);
        return 0;
    }
    if (msg == WM_RBUTTONUP) {
        help(wo, window);
        return 0;
    }
    return wi_class_proc(oldbuttonproc, window, msg, wparam, lparam);
}

void show(wi_obj *wo, bool on)
{
    for (const wi_mb_pd &pd : pulldowns(wo))
        wi_show_window(pd.button, on);
}

void place(wi_obj *wo, const wi_rect &r)
{
    int x = r.x;
    for (const wi_mb_pd &pd : pulldowns(wo)) {
        const int w = r.w / wo->obj.menubar->npd;
        wi_move(pd.button, {x, r.y, w, r.h});
        x += w;
    }
}

wi_focus_step enter(wi_obj *wo)
{
    const wi_mb_pd *first = pulldown(wo, 0);
    return first ? wi_focus_window(first->button) : wi_focus_past(wo);
}

void clicked(wi_obj *wo, int id)
{
    const wi_mb_pd *pd = pulldown(wo, id);
    if (!pd)
        return;
    RECT button;
    GetWindowRect(pd->button, &button);
    TrackPopupMenu(menu_of(*pd), 0, button.left, button.bottom, 0, wo->handle, nullptr);
}

} // namespace

const wi_type wi_menubar_row = {
    .is_part = true,
    .show = show,
    .place = place,
    .focus_enter = enter,
    .clicked = clicked,
};

wi_obj *wi_mk_menubar(wi_obj *parent)
{
    wi_obj *wo = wi_new_obj(wi_type_menubar);
    wo->obj.menubar = wi_new<wi_menubar>();
    wo->obj.menubar->ary = wi_new<wi_mb_pd>(wi_menubar_most);
    wi_attach(wo, wi_with_shell(wo, parent));
    return wo;
}

void wi_menubar_pulldown(wi_obj *wo, const char *label)
{
    wi_check(wo, wi_type_menubar, "PE 5, wimenubar.c: bad arg.", "PE 6, wimenubar.c: bad arg.");
    wi_menubar *bar = wo->obj.menubar;
    if (bar->npd == wi_menubar_most)
        wi_exit("PE 7, wimenubar.c: menubar full.");
    wi_mb_pd &pd = bar->ary[bar->npd];
    pd.ary = wi_new<wi_mb_but>(wi_menubar_most);
    pd.button = wi_make_control(wo, wo, L"button", label, BS_PUSHBUTTON, 0, {0, 0, 20, 20}, bar->npd);
    if (const std::intptr_t proc = wi_subclass(wo, pd.button, menuproc))
        oldbuttonproc = proc;
    open_menu(pd);
    wo->hlp = nullptr; // each pull-down has a record of its own
    wi_hlp_setstr(wo, label);
    pd.hlp = wo->hlp;
    bar->ipd = bar->npd++;
}

void wi_menubar_button(wi_obj *wo, const char *label, int type, wi_callback cbfunc, int tag)
{
    wi_mb_pd &pd = pulldown_with_room(wo);
    wi_mb_but &item = pd.ary[pd.nbuts];
    item.entry = {wo, wo->obj.menubar->ipd, pd.nbuts};
    setmenuinfo(&item.entry);
    item.idnumber = static_cast<unsigned long>(getmenuid());
    item.type = type;
    item.cbfunc = cbfunc;
    item.tag = tag;
    AppendMenuA(pd.currentmenu->themenu, MF_STRING, item.idnumber, label ? label : "");
    pd.ibut = pd.nbuts++;
}

void wi_menubar_submenu(wi_obj *wo, const char *label)
{
    wi_mb_pd &pd = pulldown_with_room(wo);
    const HMENU around = pd.currentmenu->themenu;
    open_menu(pd);
    AppendMenuA(around, MF_POPUP, reinterpret_cast<UINT_PTR>(pd.currentmenu->themenu), label ? label : "");
}

void wi_menubar_submenu_done(wi_obj *wo)
{
    if (!wo || wo->type != wi_type_menubar)
        return;
    wi_mb_pd *pd = current(wo);
    if (pd && pd->currentmenu->prev)
        jfree(std::exchange(pd->currentmenu, pd->currentmenu->prev));
}

void wi_menubar_pd_label(wi_obj *wo, const char *label)
{
    wi_check(wo, wi_type_menubar, "PE 14, wimenubar.c: bad arg.", "PE 14, wimenubar.c: bad arg.");
    const wi_mb_pd *pd = current(wo);
    if (!pd)
        return;
    SetWindowTextA(pd->button, label ? label : "");
    UpdateWindow(pd->button);
}

void wi_menubar_b_label(wi_obj *wo, const char *label)
{
    const wi_mb_pd *pd = filled(wo, "PE 14, wimenubar.c: bad arg.");
    if (!pd)
        return;
    std::string text = label ? label : "";
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = text.data();
    SetMenuItemInfoA(menu_of(*pd), id_of_current(*pd), FALSE, &info);
}

void wi_menubar_setstate(wi_obj *wo, int state)
{
    const wi_mb_pd *pd = filled(wo, "PE 14, wimenubar.c: bad arg.");
    if (!pd)
        return;
    CheckMenuItem(menu_of(*pd), id_of_current(*pd), state ? MF_CHECKED : MF_UNCHECKED);
    DrawMenuBar(wo->handle);
}

int wi_menubar_getstate(wi_obj *wo)
{
    const wi_mb_pd *pd = filled(wo, "PE 18, wimenubar.c: bad arg.");
    return pd && (GetMenuState(menu_of(*pd), id_of_current(*pd), MF_BYCOMMAND) & MF_CHECKED);
}

void wi_menubar_eset(wi_obj *wo)
{
    wi_mb_pd *pd = filled(wo, "PE 18, wimenubar.c: bad arg.");
    if (!pd)
        return;
    wi_menubar_setstate(wo, 1);
    const int chosen = pd->ibut;
    for (int i = 0; i < pd->nbuts; ++i) {
        if (i == chosen || pd->ary[i].type != 1)
            continue;
        pd->ibut = i;
        wi_menubar_setstate(wo, 0);
    }
}

void menudispatcher(unsigned short menuid)
{
    const wi_menubutton_info *info = getmenuinfo(menuid);
    if (!info)
        return;
    wi_obj *wo = info->wi_obj;
    wo->obj.menubar->ipd = info->pulldownindex;
    wi_mb_pd &pd = wo->obj.menubar->ary[info->pulldownindex];
    pd.ibut = info->buttonindex;
    const wi_mb_but &item = pd.ary[pd.ibut];
    if (item.type == 1)
        wi_menubar_setstate(wo, !wi_menubar_getstate(wo));
    if (item.cbfunc)
        item.cbfunc(wo, item.tag);
}
