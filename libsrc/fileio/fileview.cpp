#include "fileio/fileview.h"
#include "fileio/dovfiletype.h"
#include "fileio/fieldbytes.h"
#include "fileio/filetypes.h"
#include "fileio/ufp.h"

#include "dovsys/dovsys.h"

#include <algorithm>

namespace {

int read_elements(const dov_view &view, _dovfiletype *p, int n, char *out)
{
    _dovfile &f = p->commonstuff;
    if (n < 0)
        return dov_bad_argument;
    if (n > f.nelements - f.nextelem)
        return dov_end;
    for (int i = 0; i < n; ++i, out += view.elemsize) {
        const int code = dovfilereadblock(p, f.owned, 1);
        if (code != dov_ok)
            return code;
        view.convert(p, static_cast<const char *>(f.owned), out);
    }
    return dov_ok;
}

} // namespace

_dovfiletype *dov_open_view(const char *filename, std::initializer_list<const dov_type *> types, int *error)
{
    const int code = dovfiletype(filename);
    const dov_type *type = dov_type_of(code);
    *error = code < 0 ? dovfileerror() : dov_wrong_type;
    if (std::find(types.begin(), types.end(), type) == types.end())
        return nullptr;
    _dovfiletype *p = dov_open(*type, filename, "R", nullptr);
    *error = type->state->error;
    if (p == nullptr)
        return nullptr;
    p->commonstuff.owned = jjmalloc(p->commonstuff.elemsize);
    if (p->commonstuff.owned != nullptr)
        return p;
    *error = dov_memory;
    dovfileclose(p);
    return nullptr;
}

int dov_view_service(const dov_view &view, _dovfiletype *p, int opcode, void *arg)
{
    if (p == nullptr)
        return dov_no_handle;
    const dov_type &own = *dov_type_of(p->commonstuff.kw.filetype);
    switch (opcode) {
    case dov_u_get_elem:
        return read_elements(view, p, 1, static_cast<char *>(arg));
    case dov_u_get_nelem:
        return read_elements(view, p, own.state->nsave, static_cast<char *>(arg));
    case dov_u_put_elem:
    case dov_u_put_head:
        return dov_read_only;
    case dov_u_get_head:
        dov_init_head(*view.type, arg);
        view.head(p, arg);
        return dov_ok;
    case dov_u_elem_size:
        return dov_give(view.elemsize, arg);
    case dov_u_head_size:
        return dov_give(view.type->headsize, arg);
    case dov_u_nitems:
        return dov_give(std::int32_t{1}, arg);
    default:
        return own.service(p, opcode, arg);
    }
}
