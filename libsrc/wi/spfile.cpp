// The functions that read measurement files.
//
// What can be read of a file follows from the fields that its type says its elements and its header have: a table tells
// which fields a quantity is made of. A file is read block by block into the result.
#include "wi/spfile.h"

#include "dovsys/dovsys.h"
#include "fileio/fileio.h"
#include "wi/spargs.h"
#include "wi/spconvert.h"
#include "wi/spquantity.h"
#include "wi/spworkers.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>

namespace {

class text_argument {
public:
    explicit text_argument(const sp_value &value) : converted(sp_convert(nullptr, &value, sp_string)) {}
    ~text_argument() { sp_free_value(converted); }
    text_argument(const text_argument &) = delete;
    text_argument &operator=(const text_argument &) = delete;
    const char *text() const { return converted->string; }

private:
    sp_value *converted;
};

struct close_file {
    void operator()(_dovfiletype *p) const { u_close(p); }
};
using file_ptr = std::unique_ptr<_dovfiletype, close_file>;

struct free_value {
    void operator()(sp_value *value) const { sp_free_value(value); }
};
using value_ptr = std::unique_ptr<sp_value, free_value>;

constexpr const char *bad_data_type = "Bad data type for file type.";
constexpr const char *bad_parameter = "Bad parameter in call to file reading routine.";
constexpr const char *cannot_open = "Unable to open file.";
constexpr const char *no_data = "No data found between T0 and T1.";

// ---- file types -----------------------------------------------------------------------------------------------------

struct format {
    int code;
    int main; // the quantity that is read unless one is named
    const char *name;
    std::array<int, 2> types; // codes of the container
};

constexpr format formats[] = {
    {sp_file_iq, sp_data_amplitude, "IQ", {101, 105}},
    {sp_file_rea, sp_data_range, "REA", {103}},
    {sp_file_pks, sp_data_amplitude, "PKS", {102}},
    {sp_file_spl, sp_data_function, "SPL", {106}},
    {sp_file_v3, sp_data_all, "V3", {111}},
    {sp_file_img, sp_data_all, "IMG", {110}},
    {sp_file_gat, sp_data_all, "GAT", {109}},
};

bool has_type(const format &f, int type)
{
    return std::find(f.types.begin(), f.types.end(), type) != f.types.end();
}

// ---- quantities of the whole file -----------------------------------------------------------------------------------

// Fields of type headers; `type` is the container's code where fields of the same name differ in meaning.
struct header_quantity {
    const char *field;
    int datatype;
    int type = 0;
};

constexpr header_quantity header_quantities[] = {
    {"text", sp_data_header},          {"prf", sp_data_prf},       {"xlam", sp_data_wavelength},
    {"nsamp", sp_data_samples},        {"namp", sp_data_samples},  {"nvec", sp_data_samples},
    {"nfft", sp_data_fft_size},        {"lag", sp_data_lag},       {"wdw", sp_data_window},
    {"type", sp_data_peaks_type, 102}, {"npks", sp_data_peaks},    {"weight", sp_data_weighting},
    {"xunits", sp_data_xunits},        {"yunits", sp_data_yunits}, {"type", sp_data_spline_type, 106},
    {"ncoe", sp_data_coefficients},    {"ngat", sp_data_gates},
};

// ---- one open file --------------------------------------------------------------------------------------------------

// Where a block of elements has the numbers of a field, and what they are to be made into.
struct column {
    dov_form form;
    std::int64_t offset;
    double factor = 1;
    double shift = 0;
};

template <class T>
void spread(const char *from, std::int64_t stride, double *out, std::int64_t step, std::size_t n)
{
    for (; n > 0; --n, from += stride, out += step) {
        T number;
        std::memcpy(&number, from, sizeof number);
        *out = static_cast<double>(number);
    }
}

// The commonest case, which the compiler vectorises.
SP_WIDE void spread_pairs(const char *from, double *out, std::size_t n)
{
    for (std::size_t k = 0; k < n; ++k) {
        float number = 0;
        std::memcpy(&number, from + 8 * k, sizeof number);
        out[k] = number;
    }
}

// The numbers of a column of n records, a stride apart, as doubles, a step apart.
void convert(const column &c, const char *from, std::int64_t stride, double *out, std::int64_t step, std::size_t n)
{
    from += c.offset;
    if (c.form == dov_form::f4 && stride == 8 && step == 1)
        spread_pairs(from, out, n);
    else if (c.form == dov_form::f4)
        spread<float>(from, stride, out, step, n);
    else if (c.form == dov_form::f8)
        spread<double>(from, stride, out, step, n);
    else if (c.form == dov_form::i2)
        spread<std::int16_t>(from, stride, out, step, n);
    else
        spread<std::int32_t>(from, stride, out, step, n);
    if (c.factor != 1 || c.shift != 0)
        for (; n > 0; --n, out += step)
            *out = *out * c.factor + c.shift;
}

// An open file with the parameters of the call. What cannot be had is told by the message in `fault`.
class data_file {
public:
    data_file(const fileparams &parameters, const format &form)
        : parms(parameters), name(form.name), file(dov_open_any(parms.fname, "Old", &error))
    {
        if (file == nullptr || !has_type(form, file->commonstuff.kw.filetype)) {
            fault = cannot_open;
            return;
        }
        type = dov_type_of(file->commonstuff.kw.filetype);
        layout = type->layout(dov_head(file.get()));
    }

    // New value of a quantity, or null with the fault.
    sp_value *header_value();
    sp_value *track(int datatype);

    std::string fault;

private:
    bool find_window();
    bool columns_of(const sp_quantity &q, std::array<column, 3> &columns) const;
    bool column_of(const sp_input &in, column &c) const;
    double header_real(const char *field, double otherwise) const;
    sp_value *header_field(const dov_field &field) const;
    sp_value *read(const sp_quantity &q);
    sp_value *read_times();
    sp_value *read_all();
    sp_value *rates(const sp_quantity &q, value_ptr values);
    sp_value *new_array(std::int64_t width);
    template <class Take>
    bool each_block(Take take);

    void fail() { fault = std::string("Internal problem reading ") + name + " file."; }

    const fileparams &parms;
    const char *name;
    int error = 0;
    file_ptr file;
    const dov_type *type = nullptr;
    dov_layout layout;
    std::int32_t first = 0; // elements in the window, and no more than are wanted
    std::size_t n = 0;
};

double data_file::header_real(const char *field, double otherwise) const
{
    const dov_field *found = dov_find_field(type->header, field);
    return found != nullptr ? dov_real_at(dov_head(file.get()), *found) : otherwise;
}

sp_value *data_file::header_field(const dov_field &field) const
{
    const void *head = dov_head(file.get());
    if (field.form == dov_form::i4)
        return sp_mk_scaler(dov_integer_at(head, field));
    if (field.form != dov_form::text)
        return sp_mk_scaler(dov_real_at(head, field));
    std::string text(static_cast<const char *>(head) + field.offset, static_cast<std::size_t>(field.size));
    text.resize(std::strlen(text.c_str()));
    return sp_mk_string(c_ridendws(text.data()));
}

sp_value *data_file::header_value()
{
    std::int32_t elements = 0;
    double time = 0;
    u_nelem(file.get(), &elements);
    switch (parms.datatype) {
    case sp_data_records:
        return sp_mk_scaler(elements);
    case sp_data_first_time:
    case sp_data_last_time:
        if ((parms.datatype == sp_data_first_time ? u_firsttime : u_lasttime)(file.get(), &time) == dov_ok &&
            elements > 0)
            return sp_mk_scaler(time);
        fault = no_data;
        return nullptr;
    default:
        for (const header_quantity &q : header_quantities) {
            const dov_field *field = dov_find_field(type->header, q.field);
            if (q.datatype == parms.datatype && field != nullptr && (q.type == 0 || q.type == type->code))
                return header_field(*field);
        }
        fault = bad_data_type;
        return nullptr;
    }
}

// Elements from the first at or after T0 to the last at or before T1.
bool data_file::find_window()
{
    std::int32_t elements = 0;
    double from = 0;
    double to = 0;
    u_nelem(file.get(), &elements);
    if (elements < 1) {
        fault = no_data;
        return false;
    }
    std::int32_t last = 0;
    double time = 0;
    bool good = u_firsttime(file.get(), &from) == dov_ok && u_lasttime(file.get(), &to) == dov_ok;
    if (good && (from > parms.t1 || to < parms.t0)) {
        fault = "T0 and T1 overlap, no data found.";
        return false;
    }
    good = good && u_timemove(file.get(), parms.t0) == dov_ok && u_nextelem(file.get(), &first) == dov_ok &&
           u_timemove(file.get(), parms.t1) == dov_ok && u_nextelem(file.get(), &last) == dov_ok;
    while (good && last < elements && u_nexttime(file.get(), &time) == dov_ok && time <= parms.t1)
        good = u_elemmove(file.get(), ++last) == dov_ok;
    if (!good)
        fail();
    else if (last <= first)
        fault = no_data;
    n = static_cast<std::size_t>(std::max(last - first, 0));
    return fault.empty();
}

bool data_file::column_of(const sp_input &in, column &c) const
{
    const bool named = in.item == sp_named_item;
    const dov_field *field = named ? dov_find_field(layout.fields, in.field) : nullptr;
    c = {};
    if (field != nullptr) {
        c.offset = field->offset;
    } else {
        const int item = named ? parms.islot : in.item;
        field = dov_find_field(layout.group, in.field);
        if (field == nullptr || item < 0 || item >= layout.nitems)
            return false;
        c.offset = layout.group_at + std::int64_t{item} * layout.group_size + field->offset;
    }
    c.form = field->form;
    const std::string_view called = in.field;
    if (called == "i" || called == "q")
        c.factor = header_real("scale", 1);
    else if (called == "hz" && named) // the speed of a reflector
        c.factor = header_real("xlam", 1) / 2;
    else if (called == "range")
        c.shift = parms.islot * header_real("incrng", 0);
    return true;
}

bool data_file::columns_of(const sp_quantity &q, std::array<column, 3> &columns) const
{
    for (std::size_t i = 0; i < columns.size() && q.inputs[i].field != nullptr; ++i)
        if (!column_of(q.inputs[i], columns[i]))
            return false;
    return true;
}

// New array for so many numbers for each element; elements beyond what is wanted are left out. Or null, with the fault.
sp_value *data_file::new_array(std::int64_t width)
{
    const auto most = static_cast<std::size_t>(std::max<std::int64_t>(parms.mxelms / width, 1));
    n = std::min(n, most);
    value_ptr array(sp_try_array(n * static_cast<std::size_t>(width)));
    if (array->type == sp_array)
        return array.release();
    fault = array->string;
    return nullptr;
}

// Calls take(elements, start, count) for the elements of the window, in blocks that fit the second cache.
template <class Take>
bool data_file::each_block(Take take)
{
    constexpr std::int64_t block_bytes = std::int64_t{1} << 18;
    const auto room = static_cast<std::size_t>(std::max<std::int64_t>(block_bytes / layout.size, 1));
    const jmalloc_ptr<char> block(
        static_cast<char *>(jmalloc(static_cast<int>(std::min(room, n) * static_cast<std::size_t>(layout.size)))));
    bool good = u_elemmove(file.get(), first) == dov_ok;
    for (std::size_t start = 0; good && start < n; start += room) {
        const std::size_t count = std::min(room, n - start);
        good = u_getnelem(file.get(), static_cast<int>(count), block.get()) == dov_ok;
        if (good)
            take(block.get(), start, count);
    }
    if (!good)
        fail();
    return good;
}

sp_value *data_file::read(const sp_quantity &q)
{
    std::array<column, 3> columns{};
    columns_of(q, columns);
    value_ptr result(new_array(q.width));
    if (result == nullptr)
        return nullptr;
    constexpr std::size_t chunk = 1024; // numbers that stay in the first cache
    std::array<std::array<double, chunk>, 3> inputs;
    const std::array<const double *, 3> in = {inputs[0].data(), inputs[1].data(), inputs[2].data()};
    const auto take = [&](const char *elements, std::size_t start, std::size_t count) {
        for (std::size_t k = 0; k < count; k += chunk) {
            const std::size_t m = std::min(chunk, count - k);
            const char *from = elements + static_cast<std::int64_t>(k) * layout.size;
            double *out = result->ary + (start + k) * static_cast<std::size_t>(q.width);
            if (q.combine == nullptr) {
                convert(columns[0], from, layout.size, out, 1, m);
                continue;
            }
            for (std::size_t i = 0; i < inputs.size() && q.inputs[i].field != nullptr; ++i)
                convert(columns[i], from, layout.size, inputs[i].data(), 1, m);
            q.combine(in.data(), out, m);
        }
    };
    return each_block(take) ? result.release() : nullptr;
}

sp_value *data_file::read_times()
{
    static constexpr sp_quantity element_times = {sp_data_time, {{{"time"}}}};
    if (type->clock == dov_clock::element)
        return read(element_times);
    const bool counted = type->clock == dov_clock::index;
    const double t0 = counted ? 0 : header_real("t0", 0);
    const double prf = counted ? 1 : header_real("prf", 1);
    sp_value *result = new_array(1);
    for (std::size_t i = 0; result != nullptr && i < n; ++i)
        result->ary[i] = (first + static_cast<double>(i)) / prf + t0;
    return result;
}

// All items of all elements.
sp_value *data_file::read_all()
{
    const std::int64_t fields = static_cast<std::int64_t>(layout.group.size());
    const std::int64_t width = fields * layout.nitems;
    value_ptr result(new_array(width));
    if (result == nullptr)
        return nullptr;
    const auto take = [&](const char *elements, std::size_t start, std::size_t count) {
        double *out = result->ary + static_cast<std::int64_t>(start) * width;
        for (; count > 0; --count, elements += layout.size, out += width)
            for (std::int64_t j = 0; j < fields; ++j) {
                column c;
                column_of({layout.group[static_cast<std::size_t>(j)].name, 0}, c);
                convert(c, elements, layout.group_size, out + j, fields, static_cast<std::size_t>(layout.nitems));
            }
    };
    return each_block(take) ? result.release() : nullptr;
}

sp_value *data_file::rates(const sp_quantity &q, value_ptr values)
{
    static constexpr sp_quantity flags = {sp_data_valid, {{{"flag"}}}};
    const value_ptr times(read_times());
    std::array<column, 3> columns{};
    const bool flagged = parms.fitall == 0 && columns_of(flags, columns);
    const value_ptr used(flagged ? read(flags) : nullptr);
    if (times == nullptr || (flagged && used == nullptr))
        return nullptr;
    sp_value *result = sp_mk_elements(n);
    sp_fit_rates({times->ary, values->ary, flagged ? used->ary : nullptr, n}, parms, q.order, result->ary);
    return result;
}

sp_value *data_file::track(int datatype)
{
    if (datatype == sp_data_all_time) {
        std::int32_t elements = 0;
        u_nelem(file.get(), &elements);
        n = static_cast<std::size_t>(elements);
        fault = elements > 0 ? "" : no_data;
        return elements > 0 ? read_times() : nullptr;
    }
    std::array<column, 3> columns{};
    const auto table = sp_quantities();
    const auto q = std::find_if(table.begin(), table.end(), [&](const sp_quantity &row) {
        return row.datatype == datatype && columns_of(row, columns);
    });
    const bool all = datatype == sp_data_all && !layout.group.empty();
    if (q == table.end() && !all && datatype != sp_data_time) {
        fault = bad_data_type;
        return nullptr;
    }
    if (!find_window())
        return nullptr;
    if (all || datatype == sp_data_time)
        return all ? read_all() : read_times();
    value_ptr values(read(*q));
    return values == nullptr || q->order == 0 ? values.release() : rates(*q, std::move(values));
}

sp_value *read_file(const fileparams &parms, const format &form)
{
    data_file file(parms, form);
    if (!file.fault.empty())
        return sp_mk_error(file.fault.c_str());
    const int datatype = parms.datatype != 0 ? parms.datatype : form.main;
    sp_value *value = datatype >= sp_data_header ? file.header_value() : nullptr;
    if (datatype < sp_data_header && form.code == sp_file_spl && datatype != sp_data_all_time)
        return sp_read_spline(parms);
    if (datatype < sp_data_header)
        value = file.track(datatype);
    return value != nullptr ? value : sp_mk_error(file.fault.c_str());
}

const format *format_of(const fileparams &parms)
{
    const int type = parms.filetype == sp_file_any ? dovfiletype(parms.fname) : -1;
    const auto *found = std::find_if(std::begin(formats), std::end(formats), [&](const format &f) {
        return f.code == parms.filetype || (type > 0 && has_type(f, type));
    });
    return found != std::end(formats) ? found : nullptr;
}

} // namespace

sp_value *spfunc_file(const sp_call &call)
{
    fileparams parms;
    parms.filetype = call.code;
    if (!sp_get_parms(call, parms))
        return sp_mk_error(bad_parameter);
    if (!(parms.t0 < parms.t1))
        return sp_mk_error("Times do not overlap in for file reading function.");
    const format *form = format_of(parms);
    if (form == nullptr)
        return sp_mk_error(parms.filetype == sp_file_any ? cannot_open : "Unknown file type.");
    return read_file(parms, *form);
}

sp_value *spfunc_getkw(const sp_call &call)
{
    const text_argument name(*call.args[0]);
    const text_argument keyword(*call.args[1]);
    int error = 0;
    const file_ptr file(dov_open_any(name.text(), "Old", &error));
    if (file == nullptr)
        return sp_mk_error("File does not exist.");
    double real = 0;
    std::int32_t integer = 0;
    std::array<char, dov_kw_string_size> text{};
    if (u_kwget_d(file.get(), keyword.text(), &real) == dov_ok)
        return sp_mk_scaler(real);
    if (u_kwget_i(file.get(), keyword.text(), &integer) == dov_ok)
        return sp_mk_scaler(integer);
    if (u_kwget_s(file.get(), keyword.text(), text.data()) == dov_ok)
        return sp_mk_string(text.data());
    return sp_mk_error("Parameter does not exist.");
}
