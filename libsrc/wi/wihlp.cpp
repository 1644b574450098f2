#include "wi/wihlp.h"

#include "wi/wihlplib.h"
#include "wi/wihlpwin.h"
#include "wi/wiplatform.h"
#include "wi/wistate.h"
#include "wi/witype.h"
#include "wi/wiupdownbut.h"

#include <cstring>
#include <utility>

namespace {

constexpr const char *prefix = "help:";

char *prognm; // with the prefix; null until the program names itself
char *libnm;
char *gstr;
int helpeditable;
wi_hlp_window window;
bool has_window;

} // namespace

void wi_hlp_setprognm(const char *str)
{
    if (str)
        wi_replace_text(prognm, (std::string(prefix) + str).c_str());
}

char *wi_hlp_getprognm()
{
    return prognm ? c_mkstr(prognm + std::strlen(prefix)) : nullptr;
}

void wi_hlp_setlib(const char *str)
{
    wi_replace_text(libnm, str);
}

void wi_hlp_setlib_of_program(const char *name)
{
    std::string path(1024, '\0');
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    path.erase(path.rfind('\\') + 1);
    wi_hlp_setlib((path + name).c_str());
}

void wi_hlp_set_srchstr(const char *str)
{
    wi_replace_text(gstr, str);
}

void wi_hlp_init()
{
    if (has_window)
        return;
    has_window = true; // the window's own controls have keys
    char *kept = std::exchange(gstr, nullptr);
    window = wi_hlp_mk_window();
    const wi_updownbut *steps = window.wo_ud->obj.updownbut;
    for (wi_obj *part : {window.wo_dsmss, window.wo_help, window.wo_save, window.wo_edpg, window.wo_up, window.wo_sfld,
                         window.wo_hcpy, steps->upbut, steps->downbut, window.wo_ss}) {
        wi_hlp_set_srchstr("help");
        wi_hlp_setstr(part, "");
    }
    gstr = kept;
}

void wi_hlp_setstr(wi_obj *wo, const char *lab)
{
    wi_hlp_init();
    std::string key;
    if (gstr) {
        key = gstr;
        wi_hlp_set_srchstr(nullptr);
    } else if (!wi_hlp_label_key(prognm, lab, key)) {
        return;
    }
    if (!wo->hlp)
        wo->hlp = wi_new<wi_hlp>();
    wi_replace_text(wo->hlp->strt_str, key.c_str());
    wi_replace_text(wo->hlp->lib_name, libnm ? libnm : def_lib);
    static_cast<wi_hlp_window &>(*wo->hlp) = window;
}

void wi_hlp_srch(wi_obj *wo)
{
    if (!wo || !wo->hlp)
        return;
    static_cast<wi_hlp_window &>(*wo->hlp) = window; // objects may be older: the printing options are
    wi_hlp_show(*wo->hlp);
}

void wi_hlp_editable(int editable)
{
    helpeditable = editable;
}

int wi_hlp_iseditable()
{
    return helpeditable;
}

void wi_reset_help()
{
    for (char **text : {&prognm, &libnm, &gstr})
        wi_replace_text(*text, nullptr);
    helpeditable = 0;
    has_window = false;
}
