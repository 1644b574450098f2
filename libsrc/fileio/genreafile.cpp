#include "fileio/genreafile.h"
#include "fileio/dovfiletype.h"
#include "fileio/filetypes.h"
#include "fileio/fileview.h"
#include "fileio/ufp.h"

#include <cstring>

namespace {

static_assert(offsetof(_genreafile, hd) == sizeof(_dovfile));

int error = dov_ok;

void convert(_dovfiletype *p, const char *element, void *out)
{
    if (p->commonstuff.kw.filetype == rea_type.code) {
        std::memcpy(out, element, sizeof(_reaelement));
        return;
    }
    _gatlook look;
    std::memcpy(&look, element, sizeof look);
    const _reaelement track = {look.time, look.range, look.elevation, look.azimuth, 1, 0};
    std::memcpy(out, &track, sizeof track);
}

void fill_head(_dovfiletype *p, void *out)
{
    auto &hd = *static_cast<_reaheader *>(out);
    if (p->commonstuff.kw.filetype == rea_type.code) {
        hd = p->genrea.hd.rea;
    } else {
        hd.t0 = p->genrea.hd.gat.t0;
        hd.prf = p->genrea.hd.gat.prf;
    }
}

const dov_view view = {&rea_type, sizeof(_reaelement), convert, fill_head};

} // namespace

_dovfiletype *opengenrea(const char *filename)
{
    _dovfiletype *p = dov_open_view(filename, {&rea_type, &gat_type}, &error);
    if (p != nullptr)
        u_reg(p, genrea_service);
    return p;
}

int getgenreaerror()
{
    return error;
}

int genrea_service(_dovfiletype *genrea, int opcode, void *arg)
{
    return dov_view_service(view, genrea, opcode, arg);
}
