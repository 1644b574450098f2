#include "wi/wistatus.h"

#include "wi/wiplatform.h"
#include "wi/wistrfld.h"
#include "wi/witype.h"

namespace {

wi_obj *latest;

wi_obj *field_of(const wi_obj *wo)
{
    return wo->obj.status->strfld;
}

void show(wi_obj *wo, bool on)
{
    on ? wi_onrecursive(field_of(wo)) : wi_offrecursive(field_of(wo));
}

} // namespace

const wi_type wi_status_row = {
    .show = show,
    .set_label = wi_status_label,
    .set_split = wi_status_split,
    .set_string = wi_status,
    .get_string = wi_status_getstr,
};

wi_obj *wi_mk_status(wi_obj *parent, const char *label, double split)
{
    wi_obj *wo = wi_new_obj(wi_type_status);
    wo->obj.status = wi_new<struct wi_status>();
    latest = wo;
    parent = wi_with_shell(wo, parent);
    wo->handle = parent->handle;
    wo->obj.status->strfld = wi_mk_strfld(parent, label, split);
    wi_strfld_editable(field_of(wo), 0);
    return wo;
}

wi_obj *wi_status_latest()
{
    return latest;
}

void wi_status(wi_obj *wo, const char *str)
{
    wi_check(wo, str, wi_type_status, "PE 4, wistatus.c bad arg.", "PE 5, wistatus.c: bad arg.");
    wi_strfld_putstr(field_of(wo), str);
    UpdateWindow(field_of(wo)->obj.strfld->editarea);
}

char *wi_status_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_status, "PE 6, wistatus.c bad arg.", "PE 7, wistatus.c: bad arg.");
    return wi_strfld_getstr(field_of(wo));
}

void wi_status_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_status, "PE 8, wistatus.c bad arg.", "PE 9, wistatus.c: bad arg.");
    wi_strfld_label(field_of(wo), label);
}

void wi_status_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_status, "PE 10, wistatus.c bad arg.", "PE 11, wistatus.c: bad arg.");
    wi_strfld_split(field_of(wo), split);
}
