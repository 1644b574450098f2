#include "wi/wiincdecfld.h"

#include "wi/wibutton.h"
#include "wi/widrect.h"
#include "wi/wigeneric.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/winumfld.h"
#include "wi/witype.h"
#include "wi/wiupdownbut.h"

namespace {

constexpr int up_tag = 1;
constexpr int down_tag = 5024;

void show(wi_obj *wo, bool on)
{
    wi_obj *drect = wo->obj.incdecfld->drect;
    on ? wi_onrecursive(drect) : wi_offrecursive(drect);
}

char *get_label(wi_obj *wo)
{
    return wi_get_label(wo->obj.incdecfld->numfld);
}

// The inner numeric field of a checked increment/decrement field.
wi_obj *inner(const wi_obj *wo, const char *null_message, const char *type_message)
{
    wi_check(wo, wi_type_incdecfld, null_message, type_message);
    return wo->obj.incdecfld->numfld;
}

void set_button(wi_obj *button, wi_obj *owner, wi_callback cb, int tag)
{
    if (!cb)
        return;
    button->obj.button->cbfunc = cb;
    button->obj.button->tag = tag;
    button->obj.button->callbacktarget = owner;
}

wi_window value_window(const wi_obj *wo)
{
    return wo->obj.incdecfld->numfld->obj.numfld->editarea;
}

} // namespace

const wi_type wi_incdecfld_row = {
    .show = show,
    .value_window = value_window,
    .set_label = wi_incdecfld_label,
    .set_split = wi_incdecfld_split,
    .set_decimals = wi_incdecfld_decimals,
    .set_inc = wi_incdecfld_inc,
    .set_string = wi_incdecfld_putstr,
    .set_value = wi_incdecfld_putval,
    .set_editable = wi_incdecfld_editable,
    .get_string = wi_incdecfld_getstr,
    .get_value = wi_incdecfld_getval,
    .get_label = get_label,
};

wi_obj *wi_mk_incdecfld(wi_obj *parent, const char *label, double split, double inc)
{
    constexpr double field_share = 0.82;
    wi_obj *wo = wi_new_obj(wi_type_incdecfld);
    auto *field = wi_new<wi_incdecfld>();
    wo->obj.incdecfld = field;
    parent = wi_with_shell(wo, parent);
    wo->handle = getparenthandle(parent);
    field->drect = wi_mk_drect(parent, 1, field_share);
    field->numfld = wi_mk_numfld(field->drect, label, split, 2);
    field->numfld->obj.numfld->incdec = wo;
    field->updownbut = wi_mk_updownbut(field->drect, defaultupcallback, up_tag, defaultdowncallback, down_tag);
    for (wi_obj *button : {field->updownbut->obj.updownbut->upbut, field->updownbut->obj.updownbut->downbut})
        button->obj.button->callbacktarget = wo;
    field->inc = inc;
    field->toplim = 1e30;
    field->botlim = -1e30;
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    return wo;
}

void wi_incdecfld_split(wi_obj *wo, double split)
{
    wi_numfld_split(inner(wo, "PE 5, wiincdecfld.c: bad arg.", "PE 6, wiincdecfld.c: bad arg."), split);
}

void wi_incdecfld_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_incdecfld, "PE 7, wiincdecfld.c: bad arg.", "PE 8, wiincdecfld.c: bad arg.");
    wi_numfld_label(wo->obj.incdecfld->numfld, label);
}

double wi_incdecfld_getval(wi_obj *wo)
{
    return wi_numfld_getval(inner(wo, "PE 9, wiincdecfld.c: bad arg.", "PE 10, wiincdecfld.c: bad arg."));
}

void wi_incdecfld_putval(wi_obj *wo, double val)
{
    wi_numfld_putval(inner(wo, "PE 11, wiincdecfld.c: bad arg.", "PE 12, wiincdecfld.c: bad arg."), val);
}

char *wi_incdecfld_getstr(wi_obj *wo)
{
    return wi_numfld_getstr(inner(wo, "PE 13, wiincdecfld.c: bad arg.", "PE 14, wiincdecfld.c: bad arg."));
}

void wi_incdecfld_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, str, wi_type_incdecfld, "PE 15, wiincdecfld.c: bad arg.", "PE 16, wiincdecfld.c: bad arg.");
    wi_numfld_putstr(wo->obj.incdecfld->numfld, str);
}

void wi_incdecfld_inc(wi_obj *wo, double inc)
{
    wi_check(wo, wi_type_incdecfld, "PE 17, wiincdecfld.c: bad arg.", "PE 18, wiincdecfld.c: bad arg.");
    wo->obj.incdecfld->inc = inc;
}

void wi_incdecfld_decimals(wi_obj *wo, int ndec)
{
    wi_numfld_decimals(inner(wo, "PE 19, wiincdecfld.c: bad arg.", "PE 20, wiincdecfld.c: bad arg."), ndec);
}

void wi_incdecfld_toplim(wi_obj *wo, double toplim)
{
    wi_check(wo, wi_type_incdecfld, "PE 21, wiincdecfld.c: bad arg.", "PE 22, wiincdecfld.c: bad arg.");
    wo->obj.incdecfld->toplim = toplim;
    wo->obj.incdecfld->usetoplim = 1;
}

void wi_incdecfld_botlim(wi_obj *wo, double botlim)
{
    wi_check(wo, wi_type_incdecfld, "PE 23, wiincdecfld.c: bad arg.", "PE 24, wiincdecfld.c: bad arg.");
    wo->obj.incdecfld->botlim = botlim;
    wo->obj.incdecfld->usebotlim = 1;
}

void wi_incdecfld_editable(wi_obj *wo, int editable)
{
    wi_numfld_editable(inner(wo, "PE 25, wiincdecfld.c: bad arg.", "PE 26, wiincdecfld.c: bad arg."), editable);
}

void wi_incdecfld_set_cb(wi_obj *wo, wi_callback up_cb, int up, wi_callback dn_cb, int dn, wi_callback cr_cb, int cr)
{
    wi_obj *numfld = inner(wo, "PE 27, wiincdecfld.c: bad arg.", "PE 28, wiincdecfld.c: bad arg.");
    const wi_updownbut *pair = wo->obj.incdecfld->updownbut->obj.updownbut;
    set_button(pair->upbut, wo, up_cb, up);
    set_button(pair->downbut, wo, dn_cb, dn);
    wi_numfld_set_cb(numfld, cr_cb, cr);
}

void defaultupcallback(wi_obj *wo, int)
{
    const wi_incdecfld *field = wo->obj.incdecfld;
    const double next = wi_incdecfld_getval(wo) + field->inc;
    if (!field->usetoplim || !(next > field->toplim))
        wi_incdecfld_putval(wo, next);
}

void defaultdowncallback(wi_obj *wo, int)
{
    const wi_incdecfld *field = wo->obj.incdecfld;
    const double next = wi_incdecfld_getval(wo) - field->inc;
    if (!field->usebotlim || next >= field->botlim)
        wi_incdecfld_putval(wo, next);
}
