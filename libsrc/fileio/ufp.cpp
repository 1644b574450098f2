#include "fileio/ufp.h"
#include "fileio/dovfiletype.h"

#include "dovsys/dovsys.h"

#include <array>

namespace {

int uerror = dov_ok;

int call(_dovfiletype *p, int opcode, void *arg)
{
    uerror = p == nullptr                                        ? dov_no_handle
             : p->commonstuff.ucall == nullptr || arg == nullptr ? dov_bad_argument
                                                                 : dov_ok;
    return uerror == dov_ok ? p->commonstuff.ucall(p, opcode, arg) : uerror;
}

// What goes in is not changed by a service.
int call_in(_dovfiletype *p, int opcode, const void *arg)
{
    return call(p, opcode, const_cast<void *>(arg));
}

// With a name that the service may write.
int kwcall(_dovfiletype *p, int opcode, char *name, void *arg)
{
    uerror = p == nullptr                                          ? dov_no_handle
             : p->commonstuff.ukwcall == nullptr || arg == nullptr ? dov_bad_argument
                                                                   : dov_ok;
    return uerror == dov_ok ? p->commonstuff.ukwcall(p, opcode, name, arg) : uerror;
}

int named_kwcall(_dovfiletype *p, int opcode, const char *name, void *arg)
{
    std::array<char, 61> cut;
    c_ridendws(c_strncpy(cut.data(), name, static_cast<int>(cut.size())));
    return kwcall(p, opcode, cut.data(), arg);
}

} // namespace

int u_reg(_dovfiletype *p, _dovcall service)
{
    uerror = p != nullptr ? dov_ok : dov_no_handle;
    if (p != nullptr)
        p->commonstuff.ucall = service;
    return uerror;
}

int u_kwreg(_dovfiletype *p, _dovkwcall service)
{
    uerror = p != nullptr ? dov_ok : dov_no_handle;
    if (p != nullptr)
        p->commonstuff.ukwcall = service;
    return uerror;
}

int u_firsttime(_dovfiletype *p, double *time)
{
    return call(p, dov_u_first_time, time);
}

int u_lasttime(_dovfiletype *p, double *time)
{
    return call(p, dov_u_last_time, time);
}

int u_nelem(_dovfiletype *p, std::int32_t *n)
{
    return call(p, dov_u_nelem, n);
}

int u_canwrite(_dovfiletype *p, std::int32_t *can)
{
    return call(p, dov_u_can_write, can);
}

int u_nexttime(_dovfiletype *p, double *time)
{
    return call(p, dov_u_next_time, time);
}

int u_nextelem(_dovfiletype *p, std::int32_t *elem)
{
    return call(p, dov_u_next_elem, elem);
}

int u_timemove(_dovfiletype *p, double time)
{
    return call(p, dov_u_time_move, &time);
}

int u_elemmove(_dovfiletype *p, int elem)
{
    std::int32_t index = elem;
    return call(p, dov_u_elem_move, &index);
}

int u_getelem(_dovfiletype *p, void *element)
{
    return call(p, dov_u_get_elem, element);
}

int u_getnelem(_dovfiletype *p, int n, void *elements)
{
    std::int32_t count = n;
    const int code = call(p, dov_u_set_nelem, &count);
    return code == dov_ok ? call(p, dov_u_get_nelem, elements) : code;
}

int u_putelem(_dovfiletype *p, const void *element)
{
    return call_in(p, dov_u_put_elem, element);
}

int u_gethead(_dovfiletype *p, void *head)
{
    return call(p, dov_u_get_head, head);
}

int u_puthead(_dovfiletype *p, const void *head)
{
    return call_in(p, dov_u_put_head, head);
}

int u_elemsize(_dovfiletype *p, std::int32_t *size)
{
    return call(p, dov_u_elem_size, size);
}

int u_headsize(_dovfiletype *p, std::int32_t *size)
{
    return call(p, dov_u_head_size, size);
}

int u_nitems(_dovfiletype *p, std::int32_t *n)
{
    return call(p, dov_u_nitems, n);
}

int u_type(_dovfiletype *p, std::int32_t *type)
{
    _dovfiletype *handle = nullptr;
    const int code = call(p, dov_u_handle, type != nullptr ? &handle : nullptr);
    if (handle != nullptr)
        *type = handle->commonstuff.kw.filetype;
    return code;
}

int u_filename(_dovfiletype *p, char *name)
{
    _dovfiletype *handle = nullptr;
    const int code = call(p, dov_u_handle, name != nullptr ? &handle : nullptr);
    if (handle != nullptr)
        c_strncpy(name, handle->commonstuff.fname, 254);
    return code;
}

int u_close(_dovfiletype *p)
{
    return call(p, dov_u_close, p);
}

int u_kwput_d(_dovfiletype *p, const char *name, double value)
{
    return named_kwcall(p, dov_kw_put_real, name, &value);
}

int u_kwput_i(_dovfiletype *p, const char *name, std::int32_t value)
{
    return named_kwcall(p, dov_kw_put_integer, name, &value);
}

int u_kwput_s(_dovfiletype *p, const char *name, const char *value)
{
    return named_kwcall(p, dov_kw_put_string, name, const_cast<char *>(value));
}

int u_kwdelete(_dovfiletype *p, const char *name)
{
    return named_kwcall(p, dov_kw_delete, name, p);
}

int u_kwget_d(_dovfiletype *p, const char *name, double *value)
{
    return named_kwcall(p, dov_kw_get_real, name, value);
}

int u_kwget_i(_dovfiletype *p, const char *name, std::int32_t *value)
{
    return named_kwcall(p, dov_kw_get_integer, name, value);
}

int u_kwget_s(_dovfiletype *p, const char *name, char *value)
{
    return named_kwcall(p, dov_kw_get_string, name, value);
}

int u_kwget_n(_dovfiletype *p, std::int32_t *n)
{
    return named_kwcall(p, dov_kw_count, "", n);
}

int u_kwexist(_dovfiletype *p, const char *name, std::int32_t *exist)
{
    return named_kwcall(p, dov_kw_exists, name, exist);
}

int u_kwindx(_dovfiletype *p, int indx, char *name, std::int32_t *type)
{
    std::int32_t index = indx;
    const int code = named_kwcall(p, dov_kw_save_index, "", &index);
    return code == 1 && name != nullptr ? kwcall(p, dov_kw_by_index, name, type) : code;
}

int u_error()
{
    return uerror;
}
