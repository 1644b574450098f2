#include "wi/wilistsel.h"

#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/wilayout.h"
#include "wi/windowtable.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

// Whose change of selection is being told: an editable drop-down shows the choice only after that.
const wi_obj *changing;

wi_window visible_list(const wi_obj *wo)
{
    return wo->obj.listsel->editable ? wo->obj.listsel->editarea : wo->obj.listsel->staticarea;
}

// The text of the choice, or null when there is none.
const char *choice(wi_obj *wo)
{
    const int index = wi_listsel_getindex(wo);
    return index >= 0 && index < wo->obj.listsel->nlist ? wo->obj.listsel->list[index] : nullptr;
}

void call_back(wi_obj *wo)
{
    wo->obj.listsel->selchng_cb(wo, wo->obj.listsel->selchng_tag);
}

// What both drop-downs do on a message; true when it goes no further.
bool handled(wi_obj *wo, UINT msg, WPARAM wparam)
{
    if (msg == WM_KEYDOWN && wparam == VK_TAB)
        wi_activate_next(wo);
    if (msg == WM_RBUTTONUP)
        wi_hlp_srch(wo);
    return msg == WM_RBUTTONUP;
}

LRESULT CALLBACK editlistselproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (handled(wo, msg, wparam))
        return 0;
    if (msg == WM_KEYDOWN && wparam == VK_RETURN && wo->obj.listsel->selchng_cb) {
        wi_journal_write(wo, 0);
        call_back(wo);
    }
    return wi_class_proc(wo->obj.listsel->oldwindowproc, window, msg, wparam, lparam);
}

LRESULT CALLBACK staticlistselproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    return handled(wo, msg, wparam) ? 0
                                    : wi_class_proc(wo->obj.listsel->oldstaticlistproc, window, msg, wparam, lparam);
}

// Hiding closes the list as well, which would stay on the screen.
void show_list(HWND list, bool on)
{
    if (!on)
        SendMessageA(list, CB_SHOWDROPDOWN, FALSE, 0);
    wi_show_window(list, on);
}

void show(wi_obj *wo, bool on)
{
    wi_show_window(wo->obj.listsel->labelarea, on);
    show_list(visible_list(wo), on);
}

int seen_height(HWND list)
{
    RECT r;
    GetWindowRect(list, &r);
    return r.bottom - r.top;
}

// Of a drop-down one line is seen. The platform makes it as high as the font; here it fills its rectangle, as the other
// controls do. How much higher than asked for it becomes is known only when it was tried.
void set_line_height(HWND list, int height)
{
    constexpr WPARAM line = static_cast<WPARAM>(-1);
    if (seen_height(list) == height)
        return;
    SendMessageA(list, CB_SETITEMHEIGHT, line, height);
    const int border = seen_height(list) - height;
    SendMessageA(list, CB_SETITEMHEIGHT, line, std::max(height - border, 1));
}

// A drop-down is moved with the height that it has when open.
void place_list(HWND list, const wi_rect &r)
{
    constexpr int open_rows = 10;
    set_line_height(list, std::max(r.h, 1));
    const int row = static_cast<int>(SendMessageA(list, CB_GETITEMHEIGHT, 0, 0));
    wi_move(list, {r.x, r.y, r.w, r.h + open_rows * row + 2 * GetSystemMetrics(SM_CYBORDER)});
}

void place(wi_obj *wo, const wi_rect &r)
{
    const wi_listsel *sel = wo->obj.listsel;
    const int w = wi_fraction(r.w, sel->split);
    wi_move(sel->labelarea, {r.x, r.y, w, r.h});
    for (const wi_window list : {sel->editarea, sel->staticarea})
        place_list(list, {r.x + w, r.y, r.w - w, r.h});
}

wi_focus_step enter(wi_obj *wo)
{
    return wi_focus_window(visible_list(wo));
}

void selected(wi_obj *wo)
{
    if (!wo->obj.listsel->selchng_cb || wi_listsel_getindex(wo) == CB_ERR)
        return;
    const wi_obj *outer = std::exchange(changing, wo); // the callback may open a box, and another list change below it
    call_back(wo);
    changing = outer;
}

void replay(wi_obj *wo, const wi_action & /*action*/)
{
    if (wo->obj.listsel->selchng_cb)
        call_back(wo);
}

char *get_label(wi_obj *wo)
{
    return wi_window_text(wo->obj.listsel->labelarea);
}

void select(const wi_listsel *sel, int index)
{
    for (const wi_window list : {sel->editarea, sel->staticarea})
        SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void make_lists(wi_obj *wo, const wi_obj *parent)
{
    constexpr DWORD style = CBS_AUTOHSCROLL | WS_VSCROLL;
    wi_listsel *sel = wo->obj.listsel;
    const auto make = [&](DWORD kind) {
        return wi_make_control(wo, parent, L"combobox", "", style | kind, WS_EX_CLIENTEDGE, {0, 0, 20, 200}, 1);
    };
    sel->editarea = make(CBS_DROPDOWN);
    ShowWindow(sel->editarea, SW_HIDE);
    sel->staticarea = make(CBS_DROPDOWNLIST);
    const HWND edit_part = FindWindowExA(sel->editarea, nullptr, "edit", nullptr);
    setwiobject(edit_part, wo);
    sel->oldwindowproc = wi_subclass(wo, edit_part, editlistselproc);
    sel->oldstaticlistproc = wi_subclass(wo, sel->staticarea, staticlistselproc);
}

} // namespace

const wi_type wi_listsel_row = {
    .show = show,
    .place = place,
    .focus_enter = enter,
    .selected = selected,
    .replay = replay,
    .set_label = wi_listsel_label,
    .set_split = wi_listsel_split,
    .set_string = wi_listsel_putstr,
    .set_editable = wi_listsel_editable,
    .get_string = wi_listsel_getstr,
    .get_label = get_label,
};

wi_obj *wi_mk_listsel(wi_obj *parent, const char *label, double split, const char *const *list)
{
    wi_obj *wo = wi_new_obj(wi_type_listsel);
    auto *sel = wi_new<wi_listsel>();
    wo->obj.listsel = sel;
    sel->split = split;
    sel->labtxt = c_mkstr(label ? label : "");
    parent = wi_with_shell(wo, parent);
    wi_attach(wo, parent);
    constexpr DWORD label_style = SS_CENTERIMAGE | SS_NOPREFIX;
    sel->labelarea = wi_make_control(wo, parent, L"static", label, label_style, 0, {5, 5, 5, 5}, 5);
    make_lists(wo, parent);
    wi_listsel_setlist(wo, list);
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    return wo;
}

void wi_listsel_setlist(wi_obj *wo, const char *const *list)
{
    wi_listsel *sel = wo->obj.listsel;
    const jmalloc_ptr<char> kept(c_mkstr(choice(wo)));
    char **copy = wi_xx_listsel_create_clist(list);
    c_freelist(std::exchange(sel->list, copy));
    sel->nlist = c_listlen(copy);
    for (const wi_window window : {sel->editarea, sel->staticarea}) {
        SendMessageA(window, CB_RESETCONTENT, 0, 0);
        for (int i = 0; i < sel->nlist; ++i)
            SendMessageA(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(copy[i]));
    }
    select(sel, std::max(c_locinlist(copy, kept.get()), 0));
}

void wi_listsel_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, wi_type_listsel, "PE 11, wilistsel.c: bad arg.", "PE 12, wilistsel.c: bad arg.");
    const int index = c_locinlist(wo->obj.listsel->list, str);
    if (index >= 0)
        select(wo->obj.listsel, index);
}

char *wi_listsel_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_listsel, "PE 13, wilistsel.c: bad arg.", "PE 14, wilistsel.c: bad arg.");
    if (wo->obj.listsel->editable && wo != changing)
        return wi_window_text(wo->obj.listsel->editarea);
    const char *text = choice(wo);
    return c_mkstr(text ? text : "");
}

int wi_listsel_getindex(wi_obj *wo)
{
    return static_cast<int>(SendMessageA(visible_list(wo), CB_GETCURSEL, 0, 0));
}

void wi_listsel_editable(wi_obj *wo, int editable)
{
    const wi_window before = visible_list(wo);
    const int index = wi_listsel_getindex(wo);
    wo->obj.listsel->editable = editable != 0;
    const wi_window now = visible_list(wo);
    if (now == before)
        return;
    SendMessageA(now, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    const bool shown = GetWindowLongA(before, GWL_STYLE) & WS_VISIBLE; // not while the object is switched off
    show_list(before, false);
    if (shown)
        show_list(now, true);
}

void wi_listsel_popup_on(wi_obj *wo)
{
    wi_check(wo, wi_type_listsel, "PE 21, wilistsel.c: bad arg.", "PE 22, wilistsel.c: bad arg.");
    if (wo->obj.listsel->nlist > 0)
        SendMessageA(visible_list(wo), CB_SHOWDROPDOWN, TRUE, 0);
}

void wi_listsel_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_listsel, "PE 9, wilistsel.c: bad arg.", "PE 10, wilistsel.c: bad arg.");
    wi_replace_text(wo->obj.listsel->labtxt, label);
    SetWindowTextA(wo->obj.listsel->labelarea, label);
}

void wi_listsel_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_listsel, "PE 7, wilistsel.c: bad arg.", "PE 8, wilistsel.c: bad arg.");
    wo->obj.listsel->split = split;
}

void wi_listsel_selchng_cb(wi_obj *wo, wi_callback cb, int tag)
{
    wi_check(wo, wi_type_listsel, "PE 5, wilistsel.c: bad arg.", "PE 6, wilistsel.c: bad arg.");
    wo->obj.listsel->selchng_cb = cb;
    wo->obj.listsel->selchng_tag = tag;
}

char **wi_xx_listsel_create_clist(const char *const *list)
{
    constexpr std::size_t longest = 120;
    if (!list)
        return nullptr;
    const int count = c_listlen(list);
    char **copy = c_mklist(count + 1);
    for (int i = 0; i < count; ++i)
        copy[i] = c_mkstr(std::string(list[i], strnlen(list[i], longest)).c_str());
    return copy;
}
