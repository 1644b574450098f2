#include "wi/wifilebox.h"

#include "wi/wifilesel.h"
#include "wi/wifilter.h"
#include "wi/wijournal.h"
#include "wi/windowtable.h"
#include "wi/wiplatform.h"
#include "wi/witype.h"

#include <array>
#include <commdlg.h>

namespace {

constexpr int defdir_size = 256;

void show(wi_obj *wo, bool on)
{
    if (on)
        wi_filebox_popup(wo);
}

// The path that the user chooses; empty when the dialog is cancelled.
std::array<char, 512> ask(const wi_obj *wo)
{
    const wi_filebox &box = *wo->obj.filebox;
    const wi_file_pattern pattern = filestringparser(box.defdir);
    const std::string filter = wi_file_filter(pattern);
    std::array<char, 512> path{};
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = wo->handle;
    dialog.hInstance = getinstance();
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = path.size();
    dialog.lpstrInitialDir = pattern.directory.empty() ? nullptr : pattern.directory.c_str();
    dialog.lpstrTitle = box.title[0] ? box.title : nullptr;
    return GetOpenFileNameA(&dialog) ? path : std::array<char, 512>{};
}

} // namespace

const wi_type wi_filebox_row = {
    .pops_up = true,
    .show = show,
    .set_message = wi_filebox_setmsg,
    .set_label = wi_filebox_setmsg,
    .set_dir = wi_filebox_setdir,
    .get_string = wi_filebox_getname,
};

wi_obj *wi_mk_filebox(wi_obj *parent, const char *msgstr, const char *defdir, wi_callback cbfunc, wi_obj * /*wo_acpt*/)
{
    wi_obj *wo = wi_new_obj(wi_type_filebox);
    wo->obj.filebox = wi_new<wi_filebox>();
    wo->obj.filebox->accept_cb = cbfunc;
    wo->obj.filebox->defdir = c_mkstrn(defdir_size);
    wi_filebox_setmsg(wo, msgstr);
    wi_filebox_setdir(wo, defdir);
    if (!parent)
        wi_exit("PE 2, wifilebox.c: Must provide parent object.");
    wo->handle = parent->handle;
    return wo;
}

char *wi_filebox_getname(wi_obj *wo)
{
    constexpr const char *message = "PE 4, wifilebox.c: Bad Object.";
    wi_check(wo, wi_type_filebox, message, message);
    const char *path = wo->obj.filebox->filestr;
    return c_mkstr(path ? path : "");
}

void wi_filebox_setdir(wi_obj *wo, const char *defdir)
{
    wi_check(wo, wi_type_filebox, "Bad Wi_obj passed to wi_filebox_setdir",
             "You attempted to call wi_filebox_setdir with an object that is not a filebox.");
    c_strncpy(wo->obj.filebox->defdir, defdir, defdir_size);
}

void wi_filebox_setmsg(wi_obj *wo, const char *msg)
{
    wi_check(wo, wi_type_filebox, "Bad Wi_obj passed to wi_filebox_setmsg",
             "You attempted to call wi_filebox_setmsg with an object that is not a filebox.");
    c_strncpy(wo->obj.filebox->title, msg, sizeof wo->obj.filebox->title);
}

void wi_filebox_popup(wi_obj *wo)
{
    const std::array<char, 512> path = ask(wo);
    if (!path[0])
        return;
    wi_filebox &box = *wo->obj.filebox;
    box.filestr = c_mkstr(path.data());
    wi_obj *target = box.callbacktarget ? box.callbacktarget : wo;
    if (box.callbacktarget)
        wi_filesel_putstr(box.callbacktarget, path.data());
    if (!box.accept_cb)
        return;
    wi_journal_write(target, 0);
    box.accept_cb(target, box.wo_accept);
}
