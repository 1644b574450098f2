#include "wi/wilabel.h"

#include "wi/wiwindow.h"

namespace {

char *get_label(wi_obj *wo)
{
    return wi_window_text(wo->handle);
}

} // namespace

const wi_type wi_label_row = {
    .show = wi_handle_show,
    .place = wi_handle_place,
    .focus_enter = wi_focus_past,
    .set_label = wi_label,
    .set_string = wi_label,
    .get_label = get_label,
};

wi_obj *wi_mk_label(wi_obj *wo_parent, const char *label, int just)
{
    wi_obj *wo = wi_new_obj(wi_type_label);
    wi_obj *parent = wi_with_shell(wo, wo_parent);
    addchild(wo, parent);
    const DWORD alignment = just == -1 ? SS_LEFT : just == 1 ? SS_RIGHT : SS_CENTER;
    wo->handle = wi_make_control(wo, parent, L"static", label, alignment | SS_NOPREFIX, 0, {5, 5, 5, 5}, 5);
    return wo;
}

void wi_label(wi_obj *wo, const char *label)
{
    wi_check(wo, wi_type_label, "PE 2, wilabel.c: bad arg.", "PE 3, wilabel.c: bad arg.");
    SetWindowTextA(wo->handle, label ? label : "");
}
