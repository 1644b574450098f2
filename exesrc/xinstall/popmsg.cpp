#include "popmsg.h"

#include "msgtext.h"
#include "wi/wi.h"

namespace {

wi_obj *popup;
msgtext text;
wi_callback aux_cb;
int aux_tag;
wi_obj *aux_wo;

} // namespace

void popmsg(const char *s)
{
    msgtext_put(text, s, popup && popup->ison);
    popup = msgwin_init(popup);
    wi_size(popup, 450, msgtext_height(text));
    wi_label(static_cast<wi_obj *>(wi_recall(popup)), text.str.data());
    wi_on(popup);
    wi_activate_first(popup);
}

wi_obj *msgwin_init(wi_obj *win)
{
    if (win)
        return win;
    wi_set_window_name("Message");
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    wi_size(form, 350, 140);
    wi_position(form, 300, 300);
    wi_store(form, wi_mk_label(wi_form_parent(form, 10, 0, 90, 70), "", -1));
    wi_store(wi_mk_button(wi_form_parent(form, 25, 75, 75, 95), "ACKNOWLEDGE", 0, msgwin_cb, 0), form);
    return form;
}

void msgwin_cb(wi_obj *wo, int /*tag*/)
{
    wi_off(static_cast<wi_obj *>(wi_recall(wo)));
    if (aux_cb)
        aux_cb(wo, aux_tag);
    aux_cb = nullptr;
    aux_wo = nullptr;
}

void popmsg_set_aux_cb(wi_obj *wo, wi_callback cb, int tag)
{
    aux_cb = cb;
    aux_tag = tag;
    aux_wo = wo;
}
