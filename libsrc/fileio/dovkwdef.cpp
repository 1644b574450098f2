#include "fileio/dovkwdef.h"
#include "fileio/dovreserve.h"
#include "fileio/fieldbytes.h"

#include <cstdint>

namespace {

std::int32_t savedindx = 0;

template <typename T>
int answer(int outcome, const T &value, void *arg)
{
    dov_store(value, arg);
    return outcome;
}

} // namespace

int dovkwdef(_dovfiletype *p, int opcode, char *name, void *arg)
{
    if (p == nullptr)
        return dov_no_handle;
    std::int32_t integer = 0;
    double real = 0;
    int outcome = -1;
    switch (opcode) {
    case dov_kw_put_real:
        return dovfile_res_put_dbl(p, name, dov_load<double>(arg));
    case dov_kw_put_integer:
        return dovfile_res_put_int(p, name, dov_load<std::int32_t>(arg));
    case dov_kw_put_string:
        return dovfile_res_put_str(p, name, static_cast<const char *>(arg));
    case dov_kw_delete:
        return dovfile_res_delete(p, name);
    case dov_kw_get_real:
        outcome = dovfile_res_get_dbl(p, name, &real);
        return answer(outcome, real, arg);
    case dov_kw_get_integer:
        outcome = dovfile_res_get_int(p, name, &integer);
        return answer(outcome, integer, arg);
    case dov_kw_get_string:
        return dovfile_res_get_str(p, name, static_cast<char *>(arg));
    case dov_kw_count:
        outcome = dovfile_res_get_n(p, &integer);
        return answer(outcome, integer, arg);
    case dov_kw_exists:
        outcome = dovfile_res_exist(p, name, &integer);
        return answer(outcome, integer, arg);
    case dov_kw_by_index:
        outcome = dovfile_res_get_indx(p, savedindx, name, &integer);
        return answer(outcome, integer, arg);
    case dov_kw_save_index:
        savedindx = dov_load<std::int32_t>(arg);
        return 1;
    default:
        return -1;
    }
}
