#include "wi/wistrfld.h"

#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/windowtable.h"

#include <cstdlib>

namespace {

void enter_pressed(const wi_strfld *field, wi_obj *target)
{
    if (!field->cr_cb)
        return;
    wi_journal_write(target, 0);
    field->cr_cb(target, field->cr_tag);
}

LRESULT CALLBACK stringeditfieldproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    const wi_strfld *field = wo->obj.strfld;
    wi_obj *target = field->callbacktarget ? field->callbacktarget : wo;
    if (msg == WM_RBUTTONUP) {
        wi_hlp_srch(target);
        return 0;
    }
    if (msg == WM_KEYDOWN && wparam == VK_RETURN)
        enter_pressed(field, target);
    if (msg == WM_KEYDOWN && wparam == VK_TAB)
        wi_activate_next(wo);
    return wi_class_proc(field->oldeditwindowproc, window, msg, wparam, lparam);
}

void show(wi_obj *wo, bool on)
{
    wi_show_field(wo->obj.strfld->labelarea, wo->obj.strfld->editarea, on);
}

void place(wi_obj *wo, const wi_rect &r)
{
    wi_place_field(wo->obj.strfld->labelarea, wo->obj.strfld->editarea, wo->obj.strfld->split, r);
}

wi_focus_step enter(wi_obj *wo)
{
    return wi_focus_window(wo->obj.strfld->editarea);
}

double get_value(wi_obj *wo)
{
    char *text = wi_strfld_getstr(wo);
    const double value = std::strtod(text, nullptr);
    jfree(text);
    return value;
}

char *get_label(wi_obj *wo)
{
    return wi_window_text(wo->obj.strfld->labelarea);
}

void replay(wi_obj *wo, const wi_action & /*action*/)
{
    if (const wi_callback cr_cb = wo->obj.strfld->cr_cb)
        cr_cb(wo, wo->obj.strfld->cr_tag);
}

wi_window value_window(const wi_obj *wo)
{
    return wo->obj.strfld->editarea;
}

} // namespace

const wi_type wi_strfld_row = {
    .show = show,
    .place = place,
    .focus_enter = enter,
    .replay = replay,
    .value_window = value_window,
    .set_label = wi_strfld_label,
    .set_split = wi_strfld_split,
    .set_string = wi_strfld_putstr,
    .set_editable = wi_strfld_editable,
    .get_string = wi_strfld_getstr,
    .get_value = get_value,
    .get_label = get_label,
};

wi_obj *wi_mk_strfld(wi_obj *parent, const char *label, double split)
{
    wi_obj *wo = wi_new_obj(wi_type_strfld);
    auto *field = wi_new<wi_strfld>();
    wo->obj.strfld = field;
    field->split = split;
    field->editable = 1;
    parent = wi_with_shell(wo, parent);
    if (wo->shell)
        wi_size(wo, 600, 601); // on top of the common 600 by 600
    wi_attach(wo, parent);
    wi_make_field(wo, parent, label, field->labelarea, field->editarea);
    field->oldeditwindowproc = wi_subclass(wo, field->editarea, stringeditfieldproc);
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    return wo;
}

void wi_strfld_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, str, wi_type_strfld, "PE 4, wistrfld.c: bad arg.", "PE 5, wistrfld.c: bad arg.");
    SetWindowTextA(wo->obj.strfld->editarea, str);
}

char *wi_strfld_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_strfld, "PE 6, wistrfld.c: bad arg.", "PE 7, wistrfld.c: bad arg.");
    return wi_window_text(wo->obj.strfld->editarea);
}

void wi_strfld_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_strfld, "PE 8, wistrfld.c: bad arg.", "PE 9, wistrfld.c: bad arg.");
    wi_replace_text(wo->obj.strfld->label, label);
    SetWindowTextA(wo->obj.strfld->labelarea, label);
}

void wi_strfld_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_strfld, "PE 10, wistrfld.c: bad arg.", "PE 11, wistrfld.c: bad arg.");
    wo->obj.strfld->split = split;
}

void wi_strfld_editable(wi_obj *wo, int editable)
{
    wi_check(wo, wi_type_strfld, "PE 12, wistrfld.c: bad arg.", "PE 13, wistrfld.c: bad arg.");
    SendMessageA(wo->obj.strfld->editarea, EM_SETREADONLY, !editable, 0);
    wo->obj.strfld->editable = editable;
}

void wi_strfld_set_cb(wi_obj *wo, wi_callback cr_cb, int cr_tag)
{
    wi_check(wo, wi_type_strfld, "PE 14, wistrfld.c: bad arg.", "PE 15, wistrfld.c: bad arg.");
    wo->obj.strfld->cr_cb = cr_cb;
    wo->obj.strfld->cr_tag = cr_tag;
}
