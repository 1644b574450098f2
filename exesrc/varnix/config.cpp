#include "dovsys/dovsys.h"
#include "plotting.h"
#include "print.h"
#include "style.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace {

using kind = sp_field_kind;

std::size_t in_use(int count)
{
    return static_cast<std::size_t>(count);
}

const sp_value *value_of(const void *record, const sp_field &field)
{
    return sp_field_value<const sp_value *>(record, field);
}

std::string text_field(const void *record, const sp_field &field)
{
    return static_cast<const char *>(record) + field.offset;
}

bool is_value(const sp_field &field)
{
    return field.kind == kind::value || field.kind == kind::label;
}

// Element i of a field that is a number or a code.
double number_of(const void *record, const sp_field &field, int i)
{
    if (field.kind == kind::real)
        return sp_field_value<double>(record, field, i);
    if (field.kind == kind::length)
        return static_cast<double>(sp_field_value<float>(record, field, i));
    return sp_field_value<std::int32_t>(record, field, i);
}

// ---- JSON ----

void append_numbers(std::string &out, const void *record, const sp_field &field)
{
    out += field.count > 1 ? "[" : "";
    for (int i = 0; i < field.count; ++i) {
        out += i > 0 ? "," : "";
        json_number(out, number_of(record, field, i));
    }
    out += field.count > 1 ? "]" : "";
}

void append_field(std::string &out, const void *record, const sp_field &field)
{
    json_string(out, field.name);
    out += ':';
    if (field.kind == kind::text)
        json_string(out, text_field(record, field));
    else if (is_value(field))
        out += value_of(record, field) != nullptr ? json_of(*value_of(record, field)) : "null";
    else if (field.kind == kind::hook)
        out += "null";
    else
        append_numbers(out, record, field);
}

void append_fields(std::string &out, const void *record, std::span<const sp_field> fields)
{
    for (const sp_field &field : fields) {
        out += &field != fields.data() ? "," : "";
        append_field(out, record, field);
    }
}

template <class Record>
void append_records(std::string &out, const char *name, std::span<const Record> records,
                    std::span<const sp_field> fields)
{
    out.append(",\"").append(name).append("\":[");
    for (const Record &record : records) {
        out += &record != records.data() ? ",{" : "{";
        append_fields(out, &record, fields);
        out += '}';
    }
    out += ']';
}

std::string json_of(const sp_context &context)
{
    const sp_config &c = context.config;
    std::string out = "{";
    append_fields(out, &c, sp_page_fields());
    append_records<sp_pltaxis>(out, "xaxes", {c.xaxes, in_use(c.nxaxes)}, sp_axis_fields());
    append_records<sp_pltaxis>(out, "yaxes", {c.yaxes, in_use(c.nyaxes)}, sp_axis_fields());
    append_records<sp_curve>(out, "curves", {c.curves, in_use(c.ncurves)}, sp_curve_fields());
    append_records<sp_label>(out, "labels", c.labels, sp_label_fields());
    out += ",\"errstr\":";
    json_string(out, context.errstr != nullptr ? context.errstr : "");
    return out + "}\n";
}

// ---- for people ----

std::string with_word(int code, const char *(*word_of)(int) )
{
    const char *word = word_of(code);
    return std::to_string(code) + (word != nullptr ? std::string(" ") + word : "");
}

std::string shown(const sp_value *value)
{
    if (value == nullptr)
        return "none";
    if (value->type == sp_array)
        return "ARRAY of " + std::to_string(value->npts);
    return text_of(*value);
}

// In the shortest form that reads back the same.
template <class Number>
std::string shortest(Number number)
{
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

std::string shown_code(int code, kind of)
{
    switch (of) {
    case kind::thick:
        return with_word(code, s_thick_word);
    case kind::color:
        return with_word(code, s_color_word);
    case kind::linetype:
        return with_word(code, s_linetype_word);
    case kind::curvetype:
        return with_word(code, s_curvetype_word);
    case kind::yesno:
        return code != 0 ? "yes" : "no";
    case kind::index: // as in the variables
        return code >= 0 ? std::to_string(code + 1) : "none";
    default:
        return std::to_string(code);
    }
}

std::string shown(const void *record, const sp_field &field, int i)
{
    if (field.kind == kind::text)
        return '"' + text_field(record, field) + '"';
    if (is_value(field))
        return shown(value_of(record, field));
    if (field.kind == kind::length)
        return shortest(sp_field_value<float>(record, field, i));
    if (field.kind == kind::real)
        return shortest(sp_field_value<double>(record, field, i));
    return shown_code(sp_field_value<std::int32_t>(record, field, i), field.kind);
}

void print_field(const void *record, const sp_field &field, int i)
{
    if (field.kind != kind::hook)
        std::printf("  %-10s %s\n", field.name, shown(record, field, i).c_str());
}

void print_record(const char *title, int index, const void *record, std::span<const sp_field> fields)
{
    std::printf("%s %d\n", title, index + 1);
    for (const sp_field &field : fields)
        print_field(record, field, 0);
}

void print_page(const sp_config &c)
{
    std::puts("page");
    for (const sp_field &field : sp_page_fields())
        if (field.count == 1)
            print_field(&c, field, 0);
    for (int i = 0; i < c.ngraphs; ++i) {
        std::printf("graph %d\n", i + 1);
        for (const sp_field &field : sp_page_fields())
            if (field.count > 1)
                print_field(&c, field, i);
    }
}

void print(const sp_config &c)
{
    print_page(c);
    for (int i = 0; i < c.nxaxes; ++i)
        print_record("X axis", i, &c.xaxes[i], sp_axis_fields());
    for (int i = 0; i < c.nyaxes; ++i)
        print_record("Y axis", i, &c.yaxes[i], sp_axis_fields());
    for (int i = 0; i < c.ncurves; ++i)
        print_record("curve", i, &c.curves[i], sp_curve_fields());
    for (int i = 0; i < sp_most_labels; ++i)
        if (c.labels[i].val != nullptr)
            print_record("label", i, &c.labels[i], sp_label_fields());
}

} // namespace

int print_config(const std::string &script, bool json)
{
    const style plot(script);
    if (json)
        std::fputs(json_of(*plot.context).c_str(), stdout);
    else
        print(plot.context->config);
    return plot.report() ? 0 : 1;
}
