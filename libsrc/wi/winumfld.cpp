#include "wi/winumfld.h"

#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/windowtable.h"
#include "wi/wiutil.h"

#include <array>
#include <cstdlib>
#include <cstring>

namespace {

// What can be typed into a number.
bool is_number_char(WPARAM c)
{
    constexpr char accepted[] = "0123456789.eE+-\b ";
    return c > 0 && c < 128 && std::strchr(accepted, static_cast<int>(c));
}

void enter_pressed(wi_obj *wo)
{
    wi_numfld_putval(wo, wi_numfld_getval(wo));
    const wi_numfld *field = wo->obj.numfld;
    if (!field->cr_cb)
        return;
    wi_obj *target = field->incdec ? field->incdec : wo;
    wi_journal_write(target, 0);
    field->cr_cb(target, field->cr_tag);
}

LRESULT CALLBACK numfieldproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (msg == WM_RBUTTONUP) {
        wi_hlp_srch(wo); // the field itself, even inside an increment/decrement field
        return 0;
    }
    if (msg == WM_CHAR && !is_number_char(wparam))
        return 0;
    if (msg == WM_KEYDOWN && wparam == VK_RETURN)
        enter_pressed(wo);
    if (msg == WM_KEYDOWN && wparam == VK_TAB)
        wi_activate_next(wo);
    return wi_class_proc(wo->obj.numfld->oldwindowproc, window, msg, wparam, lparam);
}

void show(wi_obj *wo, bool on)
{
    wi_show_field(wo->obj.numfld->labelarea, wo->obj.numfld->editarea, on);
}

void place(wi_obj *wo, const wi_rect &r)
{
    wi_place_field(wo->obj.numfld->labelarea, wo->obj.numfld->editarea, wo->obj.numfld->split, r);
}

wi_focus_step enter(wi_obj *wo)
{
    return wi_focus_window(wo->obj.numfld->editarea);
}

char *get_label(wi_obj *wo)
{
    return wi_window_text(wo->obj.numfld->labelarea);
}

void replay(wi_obj *wo, const wi_action & /*action*/)
{
    if (const wi_callback cr_cb = wo->obj.numfld->cr_cb)
        cr_cb(wo, wo->obj.numfld->cr_tag);
}

wi_window value_window(const wi_obj *wo)
{
    return wo->obj.numfld->editarea;
}

} // namespace

const wi_type wi_numfld_row = {
    .show = show,
    .place = place,
    .focus_enter = enter,
    .replay = replay,
    .value_window = value_window,
    .set_label = wi_numfld_label,
    .set_split = wi_numfld_split,
    .set_decimals = wi_numfld_decimals,
    .set_string = wi_numfld_putstr,
    .set_value = wi_numfld_putval,
    .set_editable = wi_numfld_editable,
    .get_string = wi_numfld_getstr,
    .get_value = wi_numfld_getval,
    .get_label = get_label,
};

wi_obj *wi_mk_numfld(wi_obj *parent, const char *label, double split, int ndec)
{
    wi_obj *wo = wi_new_obj(wi_type_numfld);
    auto *field = wi_new<wi_numfld>();
    wo->obj.numfld = field;
    field->split = split;
    field->ndec = ndec;
    field->editable = 1;
    parent = wi_with_shell(wo, parent);
    wi_attach(wo, parent);
    wi_make_field(wo, parent, label, field->labelarea, field->editarea);
    field->oldwindowproc = wi_subclass(wo, field->editarea, numfieldproc);
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    wi_numfld_putval(wo, 0);
    return wo;
}

void wi_numfld_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, str, wi_type_numfld, "PE 4, winumfld.c: bad arg.", "PE 5, winumfld.c: bad arg.");
    SetWindowTextA(wo->obj.numfld->editarea, str);
}

char *wi_numfld_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_numfld, "PE 6, winumfld.c: bad arg.", "PE 7, winumfld.c: bad arg.");
    return wi_window_text(wo->obj.numfld->editarea);
}

void wi_numfld_putval(wi_obj *wo, double val)
{
    wi_check(wo, wi_type_numfld, "PE 4, winumfld.c: bad arg.", "PE 5, winumfld.c: bad arg.");
    std::array<char, 100> text;
    wi_format(text.data(), val, wo->obj.numfld->ndec);
    wi_numfld_putstr(wo, text.data());
}

double wi_numfld_getval(wi_obj *wo)
{
    wi_check(wo, wi_type_numfld, "PE 6, winumfld.c: bad arg.", "PE 7, winumfld.c: bad arg.");
    char *text = wi_numfld_getstr(wo);
    const double value = std::strtod(text, nullptr);
    jfree(text);
    return value;
}

void wi_numfld_decimals(wi_obj *wo, int ndec)
{
    wo->obj.numfld->ndec = ndec;
    wi_numfld_putval(wo, wi_numfld_getval(wo));
}

void wi_numfld_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_numfld, "PE 8, winumfld.c: bad arg.", "PE 9, winumfld.c: bad arg.");
    wi_replace_text(wo->obj.numfld->label, label);
    SetWindowTextA(wo->obj.numfld->labelarea, label);
}

void wi_numfld_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_numfld, "PE 10, winumfld.c: bad arg.", "PE 11, winumfld.c: bad arg.");
    wo->obj.numfld->split = split;
}

void wi_numfld_editable(wi_obj *wo, int editable)
{
    wi_check(wo, wi_type_numfld, "PE 12, winumfld.c: bad arg.", "PE 13, winumfld.c: bad arg.");
    SendMessageA(wo->obj.numfld->editarea, EM_SETREADONLY, !editable, 0);
    wo->obj.numfld->editable = editable;
}

void wi_numfld_set_cb(wi_obj *wo, wi_callback cr_cb, int cr_tag)
{
    wi_check(wo, wi_type_numfld, "PE 14, winumfld.c: bad arg.", "PE 15, winumfld.c: bad arg.");
    wo->obj.numfld->cr_cb = cr_cb;
    wo->obj.numfld->cr_tag = cr_tag;
}
