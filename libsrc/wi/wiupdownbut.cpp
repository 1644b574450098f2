#include "wi/wiupdownbut.h"

#include "wi/wibutton.h"
#include "wi/widrect.h"
#include "wi/wijournal.h"
#include "wi/witype.h"

namespace {

void show(wi_obj *wo, bool on)
{
    for (wi_obj *button : {wo->obj.updownbut->upbut, wo->obj.updownbut->downbut})
        on ? wi_onrecursive(button) : wi_offrecursive(button);
}

} // namespace

const wi_type wi_updownbut_row = {
    .show = show,
};

wi_obj *wi_mk_updownbut(wi_obj *parent, wi_callback up_cb, int up_tag, wi_callback down_cb, int down_tag)
{
    wi_obj *wo = wi_new_obj(wi_type_updownbut);
    auto *pair = wi_new<wi_updownbut>();
    wo->obj.updownbut = pair;
    parent = wi_with_shell(wo, parent);
    wo->handle = getparenthandle(parent);
    *pair = {up_cb, down_cb, up_tag, down_tag, nullptr, nullptr};
    wi_obj *drect = wi_mk_drect(parent, 1, 0.5);
    pair->upbut = wi_mk_button(drect, "+", 0, up_cb, up_tag);
    pair->downbut = wi_mk_button(drect, "-", 0, down_cb, down_tag);
    for (wi_obj *button : {pair->upbut, pair->downbut})
        button->obj.button->callbacktarget = wo;
    wi_journal_add_wo(wo);
    return wo;
}
