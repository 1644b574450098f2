#include "wi/wibutton.h"
#include "wi/wifocus.h"
#include "wi/wiform.h"
#include "wi/wijournal.h"
#include "wi/wijournalstate.h"
#include "wi/wilabel.h"
#include "wi/witype.h"

namespace {

wi_obj *form, *label;
std::string shown;

void acknowledged(wi_obj * /*wo*/, int /*tag*/)
{
    wi_off(form);
}

} // namespace

void wi_jrlmsg_init()
{
    form = wi_mk_own_form("Journal Message");
    wi_position(form, 300, 300);
    label = wi_mk_label(wi_form_parent(form, 10, 5, 90, 70), "", -1);
    wi_journal_ignore_cb(wi_mk_button(wi_form_parent(form, 25, 75, 75, 95), "ACKNOWLEDGE", 0, acknowledged, 0));
    wi_off(form);
}

void wi_jrlmsg(const std::string &message)
{
    shown = form->ison ? wi_journal_add_message(shown, message) : message;
    const wi_journal_wrapped text = wi_journal_wrap(shown);
    wi_size(form, 450, 140 + 5 * text.lines);
    wi_label(label, text.text.c_str());
    wi_on(form);
    wi_activate_first(form);
}
