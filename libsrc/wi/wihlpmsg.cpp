#include "wi/wibutton.h"
#include "wi/wifocus.h"
#include "wi/wiform.h"
#include "wi/wihlp.h"
#include "wi/wihlplib.h"
#include "wi/wilabel.h"
#include "wi/witype.h"

namespace {

wi_obj *form, *label;

void wi_hlpmsg_cb(wi_obj * /*wo*/, int /*tag*/)
{
    wi_off(form);
}

void make_window()
{
    form = wi_mk_own_form("Help");
    wi_position(form, 300, 300);
    label = wi_mk_label(wi_form_parent(form, 10, 5, 90, 70), "", -1);
    wi_mk_button(wi_form_parent(form, 25, 75, 75, 95), "ACKNOWLEDGE", 0, wi_hlpmsg_cb, 0);
}

} // namespace

void wi_hlpmsg(const char *s)
{
    if (!form)
        make_window();
    const wi_hlp_wrapped message = wi_hlp_wrap(s);
    wi_size(form, 350, 140 + 5 * message.breaks);
    wi_label(label, message.text.c_str());
    wi_on(form);
    wi_activate_first(form);
}
