#include "wi/wibutton.h"

#include "wi/wibutary.h"
#include "wi/wifield.h"
#include "wi/wifocus.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/windowtable.h"

namespace {

bool is_toggle(const wi_button *button)
{
    return button->type == 1;
}

LRESULT CALLBACK buttonproc(HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(window);
    if (!wo)
        return 0;
    if (msg == WM_RBUTTONUP) {
        wi_hlp_srch(wo);
        return 0;
    }
    if (msg == WM_KEYDOWN && wparam == VK_TAB)
        wi_activate_next(wo);
    return wi_class_proc(wo->obj.button->oldwindowproc, window, msg, wparam, lparam);
}

// The steps of an increment/decrement field are not stops of their own.
wi_focus_step enter(wi_obj *wo)
{
    const wi_obj *owner = wo->obj.button->callbacktarget;
    return owner && owner->type == wi_type_incdecfld ? wi_focus_past(wo) : wi_focus_window(wo->handle);
}

// The composite that the button belongs to stands in for it; for a button array within a toggle array, that one.
wi_obj *target_of(wi_obj *wo)
{
    wi_obj *target = wo->obj.button->callbacktarget;
    if (target && target->type == wi_type_butary && target->obj.butary->callbacktarget)
        return target->obj.butary->callbacktarget;
    return target ? target : wo;
}

void clicked(wi_obj *wo, int)
{
    const wi_button *button = wo->obj.button;
    if (is_toggle(button))
        wi_button_setstate(wo, !wi_button_getstate(wo));
    if (!button->cbfunc)
        return;
    wi_obj *target = target_of(wo);
    if (target->type == wi_type_button)
        wi_journal_write(target, button->type);
    button->cbfunc(target, button->tag);
}

void replay(wi_obj *wo, const wi_action & /*action*/)
{
    const wi_button *button = wo->obj.button;
    if (is_toggle(button))
        wi_button_setstate(wo, !wi_button_getstate(wo));
    if (button->cbfunc)
        button->cbfunc(wo, button->tag);
}

} // namespace

const wi_type wi_button_row = {
    .show = wi_handle_show,
    .place = wi_handle_place,
    .focus_enter = enter,
    .clicked = clicked,
    .replay = replay,
    .set_label = wi_button_label,
    .set_string = wi_button_label,
    .set_state = wi_button_setstate,
    .get_string = wi_button_getlabel,
    .get_state = wi_button_getstate,
    .get_label = wi_button_getlabel,
};

wi_obj *wi_mk_button(wi_obj *wo_parent, const char *label, int type, wi_callback cbfunc, int tag)
{
    wi_obj *wo = wi_new_obj(wi_type_button);
    auto *button = wi_new<wi_button>();
    wo->obj.button = button;
    button->label = c_mkstr(label ? label : "");
    button->type = type;
    button->cbfunc = cbfunc;
    button->tag = tag;
    wi_obj *parent = wi_with_shell(wo, wo_parent);
    addchild(wo, parent);
    // The frame flips the check mark itself, before the callback: no automatic check box.
    const DWORD style = is_toggle(button) ? BS_CHECKBOX : BS_PUSHBUTTON;
    wo->handle = wi_make_control(wo, parent, L"button", label, style, 0, {0, 0, 20, 20}, 1);
    button->oldwindowproc = wi_subclass(wo, wo->handle, buttonproc);
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    return wo;
}

void wi_button_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_button, "PE 3, wibutton.c: bad arg.", "PE 4, wibutton.c: bad arg.");
    wi_replace_text(wo->obj.button->label, label);
    SetWindowTextA(wo->handle, label);
}

char *wi_button_getlabel(wi_obj *wo)
{
    wi_check(wo, wi_type_button, "PE 8, wibutton.c: bad arg.", "PE 9, wibutton.c: bad arg.");
    return c_mkstr(wo->obj.button->label);
}

void wi_button_setstate(wi_obj *wo, int state)
{
    wi_check(wo, wi_type_button, "PE 5, wibutton.c: bad arg.", "PE 6, wibutton.c: bad arg.");
    if (!is_toggle(wo->obj.button))
        wi_exit("PE 7, wibutton.c: bad arg.");
    SendMessageA(wo->handle, BM_SETCHECK, state ? BST_CHECKED : BST_UNCHECKED, 0);
}

int wi_button_getstate(wi_obj *wo)
{
    wi_check(wo, wi_type_button, "PE 8, wibutton.c: bad arg.", "PE 9, wibutton.c: bad arg.");
    if (!is_toggle(wo->obj.button))
        wi_exit("PE 10, wibutton.c: bad arg.");
    return SendMessageA(wo->handle, BM_GETCHECK, 0, 0) == BST_CHECKED;
}
