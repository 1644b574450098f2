#include "xinstall.h"

#include "wi/wi.h"
#include "xinstall_def.h"
#include "xinstall_frm.h"
#include "xinstall_ls.h"

void xinstall_init()
{
    wi_obj *window = wi_mk_form(nullptr, 100, 100);
    wi_size(window, 350, 150);
    wi_position(window, 300, 300);
    xinstall_parts parts;
    xinstall_frm(wi_mk_form(wi_form_parent(window, 0, 0, 100, 100), 100, 100), parts);
    xinstall_def(parts);
    xinstall_ls(parts);
    wi_on(window);
    wi_activate_first(window);
}
