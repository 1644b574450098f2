#include "xinstall_frm.h"

#include "wi/wi.h"
#include "xinstall_cb.h"

wi_obj *xinstall_location;
wi_obj *xinstall_prompt;

namespace {

// A button that fills the next cell of the row.
wi_obj *cell_button(wi_obj *row, const char *label, int tag)
{
    wi_obj *cell = wi_form_parent(wi_mk_form(row, 100, 100), 0, 0, 100, 100);
    return wi_mk_button(cell, label, 0, xinstall_cb, tag);
}

} // namespace

void xinstall_frm(wi_obj *wo, xinstall_parts &wo_a)
{
    wi_hlp_set_srchstr("help:xinstall:Location"); // the field has no label to be found by
    xinstall_location = wi_mk_strfld(wi_form_parent(wo, 10, 40, 90, 60), "", 0.01);
    wi_obj *row = wi_mk_rectary(wi_form_parent(wo, 10, 70, 90, 90), 1, 2, 0.1, 0.05);
    xinstall_prompt = wi_mk_label(wi_form_parent(wo, 10, 10, 90, 30), ":", -1);
    wo_a[xinstall_part_location] = xinstall_location;
    wo_a[xinstall_part_prompt] = xinstall_prompt;
    wo_a[xinstall_part_ok] = cell_button(row, "OK", xinstall_cb_ok);
    wo_a[xinstall_part_cancel] = cell_button(row, "Cancel", xinstall_cb_cancel);
}
