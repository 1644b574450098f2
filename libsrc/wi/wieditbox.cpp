#include "wi/wieditbox.h"

#include "wi/wibutton.h"
#include "wi/wicrop.h"
#include "wi/widovapp.h"
#include "wi/widrect.h"
#include "wi/wieditpage.h"
#include "wi/wilabel.h"
#include "wi/witype.h"

const wi_type wi_editbox_row = {
    .set_message = wi_editbox_setmsg,
    .set_label = wi_editbox_setmsg,
    .set_string = wi_editbox_putstr,
    .get_string = wi_editbox_getstr,
};

wi_obj *wi_mk_editbox(wi_obj * /*parent*/, const char *msgstr, const char *defstr, wi_callback cbfunc, int tag)
{
    wi_obj *wo = wi_new_obj(wi_type_editbox);
    auto *box = wi_new<wi_editbox>();
    wo->obj.editbox = box;
    wi_obj *window = wi_mk_dovapp(nullptr, "Edit Box");
    wi_dovapp_quit(window, 0, " ", nullptr, 5);
    wo->handle = window->handle;
    wi_obj *message_and_rest = wi_mk_drect(window, 0, 0.1);
    box->title = wi_mk_label(message_and_rest, msgstr, 0);
    wi_obj *page_and_button = wi_mk_drect(message_and_rest, 0, 0.9);
    box->editarea = wi_mk_editpage(page_and_button);
    wi_editpage_putstr(box->editarea, defstr ? defstr : "");
    wi_obj *done = wi_mk_button(wi_mk_crop(page_and_button, 0.2, 0.2, 0.35, 0.35), "Done", 0, cbfunc, tag);
    done->obj.button->callbacktarget = wo;
    wo->shell = window;
    wi_size(wo, 600, 600);
    return wo;
}

char *wi_editbox_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_editbox, "Bad parameter passed to wi_editbox_getstr. The wi object cannot be NULL",
             "Bad parameter passed to wi_editbox_getstr. The wi object must be an editbox.");
    return wi_editpage_getstr(wo->obj.editbox->editarea);
}

void wi_editbox_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, wi_type_editbox, "Bad parameter passed to wi_editbox_putstr. The wi object cannot be NULL",
             "Bad parameter passed to wi_editbox_putstr. The wi object must be an editbox.");
    if (!str)
        wi_exit("You tried to put NULL into the editbox.");
    wi_editpage_putstr(wo->obj.editbox->editarea, str);
}

void wi_editbox_setmsg(wi_obj *wo, const char *msg)
{
    wi_check(wo, wi_type_editbox, "Bad parameter passed to wi_editbox_setmsg. The wi object cannot be NULL",
             "Bad parameter passed to wi_editbox_setmsg. The wi object must be an editbox.");
    if (!msg)
        wi_exit("You tried to put NULL into the editbox.");
    wi_label(wo->obj.editbox->title, msg);
}
