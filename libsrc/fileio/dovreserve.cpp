#include "fileio/dovreserve.h"
#include "fileio/dovfiletype.h"
#include "fileio/keywrdlst.h"
#include "fileio/mcvt.h"

namespace {

struct keyword_list {
    char *bytes = nullptr;
    int size = 0;
};

// Without bytes when the area is absent.
keyword_list list_of(const _dovfiletype *p)
{
    if (p == nullptr || p->commonstuff.rsize < 3 || p->commonstuff.rspace[0] != 1)
        return {};
    return {p->commonstuff.rspace + 1, p->commonstuff.rsize - 1};
}

keyword_list writable_list_of(_dovfiletype *p)
{
    if (p == nullptr || p->commonstuff.rdonly)
        return {};
    const keyword_list list = list_of(p);
    if (list.bytes != nullptr)
        p->commonstuff.rchng = 1;
    return list;
}

int outcome(bool good)
{
    return good ? 1 : -1;
}

} // namespace

int dovfile_res_new(_dovfiletype *p)
{
    if (p == nullptr || p->commonstuff.rsize < 3)
        return -1;
    p->commonstuff.rspace[0] = 1;
    p->commonstuff.rchng = 1;
    kwl_init(p->commonstuff.rspace + 1, p->commonstuff.rsize - 1);
    return 1;
}

int dovfile_res_put_int(_dovfiletype *p, const char *name, std::int32_t ival)
{
    const keyword_list list = writable_list_of(p);
    return outcome(list.bytes != nullptr && kwl_put_int(list.bytes, list.size, name, ival) == 1);
}

int dovfile_res_put_dbl(_dovfiletype *p, const char *name, double dval)
{
    const keyword_list list = writable_list_of(p);
    return outcome(list.bytes != nullptr && kwl_put_dbl(list.bytes, list.size, name, dval) == 1);
}

int dovfile_res_put_str(_dovfiletype *p, const char *name, const char *sval)
{
    const keyword_list list = writable_list_of(p);
    return outcome(list.bytes != nullptr && kwl_put_str(list.bytes, list.size, name, sval) == 1);
}

int dovfile_res_delete(_dovfiletype *p, const char *name)
{
    const keyword_list list = writable_list_of(p);
    if (list.bytes == nullptr)
        return -1;
    kwl_delete(list.bytes, list.size, kwl_find(list.bytes, list.size, name));
    return 1;
}

int dovfile_res_get_int(_dovfiletype *p, const char *name, std::int32_t *ival)
{
    const keyword_list list = list_of(p);
    *ival = 0;
    return outcome(kwl_get_int(list.bytes, list.size, name, ival) == 1);
}

int dovfile_res_get_dbl(_dovfiletype *p, const char *name, double *dval)
{
    const keyword_list list = list_of(p);
    *dval = 0;
    return outcome(kwl_get_dbl(list.bytes, list.size, name, dval) == 1);
}

int dovfile_res_get_str(_dovfiletype *p, const char *name, char *sval)
{
    const keyword_list list = list_of(p);
    *sval = '\0';
    return outcome(kwl_get_str(list.bytes, list.size, name, sval) == 1);
}

int dovfile_res_get_n(_dovfiletype *p, std::int32_t *n)
{
    const keyword_list list = list_of(p);
    *n = kwl_nitems(list.bytes, list.size);
    return outcome(p != nullptr);
}

int dovfile_res_get_indx(_dovfiletype *p, int indx, char *name, std::int32_t *type)
{
    const keyword_list list = list_of(p);
    return outcome(kwl_tell(list.bytes, list.size, indx, name, type) == 1);
}

int dovfile_res_exist(_dovfiletype *p, const char *name, std::int32_t *exist)
{
    const keyword_list list = list_of(p);
    *exist = kwl_find(list.bytes, list.size, name) >= 0 ? 1 : 0;
    return outcome(list.bytes != nullptr);
}

int dovfile_res_cvt(_dovfiletype *p)
{
    const keyword_list list = list_of(p);
    kwl_convert(list.bytes, list.size, mcvt_i4, mcvt_f8);
    return outcome(list.bytes != nullptr);
}
