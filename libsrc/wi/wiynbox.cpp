#include "wi/wiynbox.h"

#include "wi/wiplatform.h"
#include "wi/witype.h"

namespace {

void show(wi_obj *wo, bool on)
{
    if (on)
        wi_ynbox_popup(wo);
}

} // namespace

const wi_type wi_ynbox_row = {
    .pops_up = true,
    .show = show,
    .set_message = wi_ynbox_setquestion,
    .set_label = wi_ynbox_setquestion,
};

wi_obj *wi_mk_ynbox(wi_obj *parent, const char *qstr, wi_callback yes_cb, int yes_tag, wi_callback no_cb, int no_tag)
{
    wi_obj *wo = wi_new_obj(wi_type_ynbox);
    wo->obj.ynbox = wi_new<wi_ynbox>();
    *wo->obj.ynbox = {nullptr, yes_cb, no_cb, yes_tag, no_tag};
    if (!parent)
        wi_exit("PE 2, wiynbox.c: Must provide parent object.");
    wo->handle = parent->handle;
    wi_ynbox_setquestion(wo, qstr);
    return wo;
}

void wi_ynbox_setquestion(wi_obj *wo, const char *qstr)
{
    wi_check(wo, qstr, wi_type_ynbox, "PE 5, wiynbox.c: bad object.", "PE 6, wiynbox.c: Bad Object.");
    wi_replace_text(wo->obj.ynbox->question, qstr);
}

void wi_ynbox_popup(wi_obj *wo)
{
    constexpr const char *message = "PE 6, wiynbox.c: Bad Object.";
    wi_check(wo, wi_type_ynbox, message, message);
    const wi_ynbox &box = *wo->obj.ynbox;
    const bool yes = MessageBoxA(wo->handle, box.question, "Question:", MB_YESNO | MB_ICONQUESTION) == IDYES;
    if (const wi_callback answer = yes ? box.yes_cb : box.no_cb)
        answer(wo, yes ? box.yes_tag : box.no_tag);
}
