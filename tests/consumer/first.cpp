#include "wi/wi.h"

static wi_obj *radius, *area;

static void compute(wi_obj *, int)
{
    const double r = wi_get_value(radius);
    wi_set_value(area, 3.14159265358979 * r * r);
}

int main(int, char **)
{
    wi_set_window_name("Circle");
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    wi_size(form, 300, 150);
    radius = wi_mk_incdecfld(wi_form_parent(form, 10, 10, 90, 30), "Radius", 0.3, 0.5);
    area = wi_mk_numfld(wi_form_parent(form, 10, 40, 90, 60), "Area", 0.3, 3);
    wi_set_editable(area, 0);
    wi_mk_button(wi_form_parent(form, 30, 70, 70, 90), "Compute", 0, compute, 0);
    wi_on(form);
    return 0;
}
