#include "wi/wigeneric.h"

#include "wi/witype.h"

namespace {

// Calls the row's operation of `wo`; a null object and a type without the operation end the program.
template <class Result, class... Args>
Result dispatch(Result (*wi_type::*slot)(wi_obj *, Args...), wi_obj *wo, const char *null_message,
                const char *type_message, Args... args)
{
    if (!wo)
        wi_exit(null_message);
    const auto operation = wi_row(wo).*slot;
    if (!operation)
        wi_exit(type_message);
    return operation(wo, args...);
}

} // namespace

void wi_set_message(wi_obj *wo, const char *msg)
{
    dispatch(&wi_type::set_message, msg ? wo : nullptr, "PE 8, wi.c: bad arg.", "PE 9, wi.c: bad object type.", msg);
}

void wi_set_label(wi_obj *wo, const char *s)
{
    dispatch(&wi_type::set_label, wo, "PE 10, wi.c: bad arg.", "PE 11, wi.c: bad object type.", s);
}

void wi_set_split(wi_obj *wo, double a, double)
{
    dispatch(&wi_type::set_split, wo, "PE 12, wi.c: bad arg.", "PE 13, wi.c: bad object type.", a);
}

void wi_set_decimals(wi_obj *wo, int n)
{
    dispatch(&wi_type::set_decimals, wo, "PE 14, wi.c: bad arg.", "PE 15, wi.c: bad object type.", n);
}

void wi_set_inc(wi_obj *wo, double a, double)
{
    dispatch(&wi_type::set_inc, wo, "PE 16, wi.c: bad arg.", "PE 17, wi.c: bad object type.", a);
}

void wi_set_string(wi_obj *wo, const char *s)
{
    dispatch(&wi_type::set_string, wo, "PE 18, wi.c: bad arg.", "PE 19, wi.c: bad object type.", s ? s : " ");
}

void wi_set_value(wi_obj *wo, double v)
{
    dispatch(&wi_type::set_value, wo, "PE 20, wi.c: bad arg.", "PE 21, wi.c: bad object type.", v);
}

void wi_set_state(wi_obj *wo, int s)
{
    dispatch(&wi_type::set_state, wo, "PE 22, wi.c: bad arg.", "PE 23. wi.c: bad object type.", s);
}

void wi_set_dir(wi_obj *wo, const char *dir)
{
    if (!wo)
        wi_exit("PE 24, wi.c: bad arg.");
    if (const auto set_dir = wi_row(wo).set_dir)
        set_dir(wo, dir);
}

void wi_set_editable(wi_obj *wo, int flag)
{
    dispatch(&wi_type::set_editable, wo, "PE 25, wi.c: bad arg.", "PE 26, wi.c: bad object type.", flag);
}

char *wi_get_string(wi_obj *wo)
{
    return dispatch(&wi_type::get_string, wo, "PE 27, wi.c: bad arg.", "PE 29, wi.c: bad object type.");
}

double wi_get_value(wi_obj *wo)
{
    return dispatch(&wi_type::get_value, wo, "PE 30, wi.c: bad arg.", "PE 31, wi.c: bad object type.");
}

int wi_get_state(wi_obj *wo)
{
    return dispatch(&wi_type::get_state, wo, "PE 32, wi.c: bad arg.", "PE 33, wi.c: bad object type.");
}

char *wi_get_label(wi_obj *wo)
{
    const auto get_label = wo ? wi_row(wo).get_label : nullptr;
    return get_label ? get_label(wo) : nullptr;
}
