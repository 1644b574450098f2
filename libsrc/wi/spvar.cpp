#include "wi/spvar.h"

#include "dovsys/dovsys.h"
#include "wi/spmemory.h"
#include "wi/spname.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

namespace {

constexpr int more_variables = 10;

struct constant {
    const char *name;
    double value; // deliberately of ten digits
    const char *desc;
};
constexpr std::array constants = {
    constant{"PI", 3.141592654, "Value of PI = 3.141592654"},
    constant{"TWOPI", 6.283185308, "2*PI = 6.283185308"},
    constant{"C", 299792500.0, "Speed of Light (m/s)"},
};

sp_value unknown_value{}; // of every name that is not defined

bool same(std::string_view name, const char *stored)
{
    return std::strlen(stored) == name.size() &&
           std::equal(name.begin(), name.end(), stored, [](char a, char b) { return toupperx(a) == toupperx(b); });
}

std::uint32_t hash_of(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(toupperx(c))) * 16777619U;
    return hash ^ (hash >> 15);
}

// The place that holds the name, or the free one that would.
std::int32_t *find_place(const sp_vlib *vlib, std::string_view name)
{
    std::uint32_t at = hash_of(name) & vlib->mask;
    while (vlib->places[at] != 0 && !same(name, vlib->names[vlib->places[at] - 1]))
        at = (at + 1) & vlib->mask;
    return &vlib->places[at];
}

// Twice as many places at least as the arrays hold variables.
void make_places(sp_vlib *vlib)
{
    const std::uint32_t places = std::bit_ceil(2 * static_cast<std::uint32_t>(vlib->mxvals));
    if (places == vlib->mask + 1)
        return;
    jfree(vlib->places);
    vlib->places = c_mkiary(static_cast<int>(places));
    vlib->mask = places - 1;
    for (int i = 0; i < vlib->nvals; ++i)
        *find_place(vlib, vlib->names[i]) = i + 1;
}

template <typename T>
void grow(T *&array, int from, int to)
{
    array = static_cast<T *>(jrealloc(array, to * static_cast<int>(sizeof(T))));
    std::fill(array + from, array + to, T{});
}

sp_vlib *make_library()
{
    return static_cast<sp_vlib *>(jmalloc(sizeof(sp_vlib)));
}

// Takes the name and the description over as well.
void append(sp_vlib *vlib, char *name, sp_value *val, int type, char *desc)
{
    if (vlib->nvals == vlib->mxvals)
        sp_growlib(vlib);
    const int at = vlib->nvals;
    *find_place(vlib, name) = at + 1;
    vlib->types[at] = type;
    vlib->names[at] = name;
    vlib->desc[at] = desc;
    vlib->vals[at] = val;
    ++vlib->nvals;
}

void free_variable(sp_vlib *vlib, int at)
{
    jfree(vlib->names[at]);
    jfree(vlib->desc[at]);
    sp_free_value(vlib->vals[at]);
}

void free_record(sp_vlib *vlib)
{
    for (void *array : std::initializer_list<void *>{vlib->types, vlib->names, vlib->desc, vlib->vals, vlib->places})
        jfree(array);
    jfree(vlib);
}

int find(sp_context *context, const char *name)
{
    sp_init_vlib(context);
    return sp_findindx(context->vlib, name);
}

const char *description(const sp_vlib *vlib, int at)
{
    return vlib->desc[at] != nullptr ? vlib->desc[at] : " ";
}

int size_of(const sp_value *val)
{
    return val->type == sp_array ? val->npts : val->type == sp_scaler ? 1 : static_cast<int>(std::strlen(val->string));
}

} // namespace

int sp_find_name(const sp_vlib *vlib, std::string_view name)
{
    return *find_place(vlib, name) - 1;
}

void sp_init_vlib(sp_context *context)
{
    if (context->vlib != nullptr)
        return;
    context->vlib = make_library();
    sp_growlib(context->vlib);
    for (const constant &c : constants)
        append(context->vlib, c_mkstr(c.name), sp_mk_scaler(c.value), sp_program, c_mkstr(c.desc));
}

void sp_growlib(sp_vlib *vlib)
{
    const int from = vlib->mxvals;
    const int to = from + more_variables;
    grow(vlib->types, from, to);
    grow(vlib->names, from, to);
    grow(vlib->desc, from, to);
    grow(vlib->vals, from, to);
    vlib->mxvals = to;
    make_places(vlib);
}

int sp_findindx(const sp_vlib *vlib, const char *name)
{
    return vlib != nullptr && vlib->places != nullptr && name != nullptr ? sp_find_name(vlib, name) : -1;
}

const char *sp_var_putval(sp_context *context, const char *name, sp_value *val, int type)
{
    name = name != nullptr ? name : "";
    val = val != nullptr ? val : sp_get_blank_value();
    const int kept_type = type == sp_program ? sp_program : sp_user;
    const int at = find(context, name);
    sp_vlib *vlib = context->vlib;
    if (at < 0) {
        append(vlib, c_mkstr(name), val, kept_type, nullptr);
        return nullptr;
    }
    if (kept_type == sp_program || vlib->types[at] == kept_type) {
        if (vlib->vals[at] != val)
            sp_free_value(std::exchange(vlib->vals[at], val));
        vlib->types[at] = kept_type;
        return nullptr;
    }
    sp_free_value(val);
    return vlib->types[at] == sp_program ? "Cannot redefine variable provided by program."
                                         : "Variable is protected by system.";
}

sp_value *sp_var_getval(sp_context *context, const char *name)
{
    const int at = find(context, name);
    return at >= 0 ? context->vlib->vals[at] : &unknown_value;
}

char *sp_var_putdesc(sp_context *context, const char *name, const char *desc)
{
    const int at = find(context, name);
    if (at < 0)
        return sp_no_variable();
    jfree(std::exchange(context->vlib->desc[at], c_mkstr(desc)));
    return context->vlib->desc[at];
}

const char *sp_var_getdesc(sp_context *context, const char *name)
{
    const int at = find(context, name);
    return at >= 0 ? description(context->vlib, at) : " ";
}

int sp_var_isvar(sp_context *context, const char *name)
{
    return find(context, name) >= 0 ? 1 : 0;
}

const char *sp_var_search(const sp_context *context, int vartype, int memtype, int ipos)
{
    static char name[80];
    const sp_vlib *vlib = context->vlib;
    for (int i = 0; vlib != nullptr && i < vlib->nvals; ++i)
        if (vlib->vals[i]->type == vartype && vlib->types[i] == memtype && ipos-- == 0)
            return c_strncpy(name, vlib->names[i], sizeof name);
    return nullptr;
}

void sp_var_flush(sp_context *context)
{
    sp_vlib *old = context->vlib;
    if (old == nullptr)
        return;
    sp_vlib *fresh = make_library();
    sp_growlib(fresh);
    for (int i = 0; i < old->nvals; ++i) {
        if (old->types[i] == sp_program)
            append(fresh, old->names[i], old->vals[i], sp_program, old->desc[i]);
        else
            free_variable(old, i);
    }
    free_record(old);
    context->vlib = fresh;
}

void sp_var_freelib(sp_context *context)
{
    sp_vlib *vlib = std::exchange(context->vlib, nullptr);
    if (vlib == nullptr)
        return;
    for (int i = 0; i < vlib->nvals; ++i)
        free_variable(vlib, i);
    free_record(vlib);
    sp_release_memory();
}

char *sp_var_list(sp_context *context, int memtype)
{
    sp_init_vlib(context);
    const sp_vlib *vlib = context->vlib;
    std::string text = "No. Variable           Type       Size  Description\n"
                       "--- --------           ----       ----  -----------\n";
    int number = 0;
    for (const int kind : {sp_array, sp_scaler, sp_string}) {
        for (int i = 0; i < vlib->nvals; ++i) {
            const sp_value *val = vlib->vals[i];
            if (val->type != kind || vlib->types[i] != memtype)
                continue;
            std::array<char, 64> start;
            std::snprintf(start.data(), start.size(), "%2d. %-17.17s  %-6s  %7d  ", ++number, vlib->names[i],
                          sp_kind_name(kind), size_of(val));
            text.append(start.data()).append(description(vlib, i)).append("\n");
        }
    }
    return c_mkstr(text.c_str());
}
