#include "wi/wimsgbox.h"

#include "wi/wiplatform.h"
#include "wi/witype.h"

namespace {

void show(wi_obj *wo, bool on)
{
    if (on)
        wi_msgbox_popup(wo);
}

} // namespace

const wi_type wi_msgbox_row = {
    .pops_up = true,
    .show = show,
    .set_message = wi_msgbox_setmsg,
    .set_label = wi_msgbox_setmsg,
};

wi_obj *wi_mk_msgbox(wi_obj * /*parent*/, const char *msgstr)
{
    wi_obj *wo = wi_new_obj(wi_type_msgbox);
    wo->obj.msgbox = wi_new<wi_msgbox>();
    wi_msgbox_setmsg(wo, msgstr);
    return wo;
}

void wi_msgbox_setmsg(wi_obj *wo, const char *msgstr)
{
    constexpr const char *message = "Bad parameter passed to wi_msgbox_setmsg";
    wi_check(wo, wi_type_msgbox, message, message);
    c_strncpy(wo->obj.msgbox->string, msgstr, 99);
}

void wi_msgbox_popup(wi_obj *wo)
{
    wi_popmsg(wo->obj.msgbox->string);
}

void wi_popmsg(const char *string)
{
    MessageBoxA(nullptr, string, "Message:", MB_OK | MB_ICONINFORMATION);
}
