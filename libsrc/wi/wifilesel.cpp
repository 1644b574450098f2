#include "wi/wifilesel.h"

#include "wi/wibutton.h"
#include "wi/widrect.h"
#include "wi/wifilebox.h"
#include "wi/wigeneric.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/wilabel.h"
#include "wi/wistrfld.h"
#include "wi/witype.h"

#include <string_view>

namespace {

void fileselbuttoncallback(wi_obj *wo, int)
{
    wi_on(wo->obj.filesel->filebox);
}

void show(wi_obj *wo, bool on)
{
    wi_obj *drect = wo->obj.filesel->drect;
    on ? wi_onrecursive(drect) : wi_offrecursive(drect);
}

char *get_label(wi_obj *wo)
{
    return wi_get_label(wo->obj.filesel->label);
}

void replay(wi_obj *wo, const wi_action & /*action*/)
{
    const wi_filebox *box = wo->obj.filesel->filebox->obj.filebox;
    if (box->accept_cb)
        box->accept_cb(wo, box->wo_accept);
}

wi_window value_window(const wi_obj *wo)
{
    return wo->obj.filesel->strfld->obj.strfld->editarea;
}

} // namespace

const wi_type wi_filesel_row = {
    .show = show,
    .replay = replay,
    .value_window = value_window,
    .set_label = wi_filesel_label,
    .set_split = wi_filesel_split,
    .set_string = wi_filesel_putstr,
    .set_dir = wi_filesel_setdir,
    .get_string = wi_filesel_getstr,
    .get_label = get_label,
};

wi_obj *wi_mk_filesel(wi_obj *parent, const char *label, const char *path, double split)
{
    constexpr double button_share = 0.22, no_label = 1e-10;
    wi_obj *wo = wi_new_obj(wi_type_filesel);
    auto *sel = wi_new<wi_filesel>();
    wo->obj.filesel = sel;
    parent = wi_with_own_shell(wo, parent);
    wo->handle = getparenthandle(parent);
    sel->drect = wi_mk_drect(parent, 1, split);
    sel->label = wi_mk_label(sel->drect, label, -1);
    wi_obj *rest = wi_mk_drect(sel->drect, 1, button_share);
    sel->button = wi_mk_button(rest, "Open", 0, fileselbuttoncallback, 0);
    sel->strfld = wi_mk_strfld(rest, " ", no_label);
    char default_path[wi_filesel_path_size];
    wi_filesel_checkdir(path, default_path);
    sel->filebox = wi_mk_filebox(parent, nullptr, default_path, nullptr, nullptr);
    sel->filebox->obj.filebox->callbacktarget = wo;
    sel->strfld->obj.strfld->callbacktarget = wo;
    sel->button->obj.button->callbacktarget = wo;
    wi_hlp_setstr(wo, label);
    wi_journal_add_wo(wo);
    return wo;
}

void wi_filesel_chng_cb(wi_obj *wo, wi_callback cb, int tag)
{
    wi_check(wo, wi_type_filesel, "PE 5, wifilesel.c: bad arg.", "PE 6, wifilesel.c: bad arg.");
    wi_filebox *box = wo->obj.filesel->filebox->obj.filebox;
    box->accept_cb = cb;
    box->wo_accept = tag;
    wi_strfld_set_cb(wo->obj.filesel->strfld, cb, tag);
}

void wi_filesel_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_filesel, "PE 7, wifilesel.c: bad arg.", "PE 8, wifilesel.c: bad arg.");
    wi_drect_split(wo->obj.filesel->drect, split);
}

void wi_filesel_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_filesel, "PE 9, wifilesel.c: bad arg.", "PE 10, wifilesel.c: bad arg.");
    wi_label(wo->obj.filesel->label, label);
}

// The messages are the file box's.
void wi_filesel_setdir(wi_obj *wo, const char *path)
{
    wi_check(wo, path, wi_type_filesel, "PE 11, wifilebox.c: Bad Object.", "PE 12, wifilebox.c: Bad Object.");
    wi_filebox_setdir(wo->obj.filesel->filebox, path);
}

void wi_filesel_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, wi_type_filesel, "PE 13, wifilesel.c: bad arg.", "PE 13, wifilesel.c: bad arg.");
    wi_strfld_putstr(wo->obj.filesel->strfld, str);
}

char *wi_filesel_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_filesel, "PE 14, wifilesel.c: bad arg.", "PE 14, wifilesel.c: bad arg.");
    return wi_strfld_getstr(wo->obj.filesel->strfld);
}

void wi_filesel_checkdir(const char *path, char *result)
{
    std::string_view mask(path ? path : "");
    if (mask.find('\\', 1) != mask.npos) {
        c_strncpy(result, path, wi_filesel_path_size);
        return;
    }
    if (mask.starts_with('\\'))
        mask.remove_prefix(1);
    const char *zolt = get_logical("ZOLT", nullptr);
    const std::string_view root(zolt ? zolt : "d:\\zolt0\\zolt");
    c_strncpy(result, root.data(), wi_filesel_path_size);
    c_strncat(result, root.ends_with('\\') ? "data\\" : "\\data\\", wi_filesel_path_size);
    c_strncat(result, mask.data(), wi_filesel_path_size);
}
