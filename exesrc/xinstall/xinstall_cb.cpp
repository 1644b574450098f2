#include "xinstall_cb.h"

#include "dovsys/dovsys.h"
#include "misc.h"
#include "popmsg.h"
#include "wi/wi.h"
#include "xinstall_frm.h"

#include <cstdlib>

void xinstall_cb(wi_obj *wo, int tag)
{
    if (tag == xinstall_cb_cancel)
        xinstall_quit(wo, tag);
    char *location = wi_strfld_getstr(xinstall_location);
    const int installed = batch_install(location);
    jfree(location);
    if (installed) {
        popmsg("Installation complete");
        popmsg_set_aux_cb(wo, xinstall_cb, xinstall_cb_cancel);
    }
}

void xinstall_quit(wi_obj * /*wo*/, int /*tag*/)
{
    std::exit(0);
}
