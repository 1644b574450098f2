#include "print.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr std::size_t line_width = 100;
constexpr std::size_t most_columns = 10;
constexpr std::size_t gap = 2; // between columns

void append_number(std::string &out, double number)
{
    if (std::isnan(number)) { // in whatever sign it has
        out += "nan";
        return;
    }
    std::array<char, 32> digits;
    out.append(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr);
}

std::string number_text(double number)
{
    std::string text;
    append_number(text, number);
    return text;
}

void append_padded(std::string &out, const std::string &text, std::size_t width)
{
    out.append(width - std::min(width, text.size()), ' ').append(text);
}

std::string row_label(std::size_t first, std::size_t last)
{
    return "[" + std::to_string(first) + "-" + std::to_string(last) + "]";
}

void append_line(std::string &out, const double *begin, const double *end)
{
    for (const double *element = begin; element != end; ++element) {
        if (element != begin)
            out += ' ';
        append_number(out, *element);
    }
}

std::string array_text(const double *ary, std::size_t count)
{
    if (count == 0)
        return "(no elements)";
    std::size_t width = 0;
    for (std::size_t i = 0; i < count; ++i)
        width = std::max(width, number_text(ary[i]).size());
    const std::size_t label_width = row_label(count, count).size();
    const std::size_t columns = std::clamp((line_width - label_width) / (width + gap), std::size_t{1}, most_columns);
    std::string out;
    if (count <= columns) {
        append_line(out, ary, ary + count);
        return out;
    }
    for (std::size_t row = 0; row < count; row += columns) {
        const std::size_t end = std::min(row + columns, count);
        out += row > 0 ? "\n" : "";
        append_padded(out, row_label(row + 1, end), label_width);
        for (std::size_t i = row; i < end; ++i)
            append_padded(out, number_text(ary[i]), width + gap);
    }
    return out;
}

std::size_t elements(const sp_value &value)
{
    return static_cast<std::size_t>(std::max(value.npts, 0));
}

void append_json_array(std::string &out, const sp_value &value)
{
    out += '[';
    for (std::size_t i = 0; i < elements(value); ++i) {
        if (i > 0)
            out += ',';
        json_number(out, value.ary[i]);
    }
    out += ']';
}

} // namespace

std::string text_of(const sp_value &value)
{
    switch (value.type) {
    case sp_array:
        return array_text(value.ary, elements(value));
    case sp_ename:
        return std::string("#") + value.ename;
    case sp_string:
    case sp_error:
        return value.string;
    case sp_scaler:
        return number_text(value.scaler);
    default:
        return sp_kind_name(sp_null);
    }
}

std::string json_of(const sp_value &value)
{
    std::string out = std::string(R"({"kind":")") + sp_kind_name(value.type) + '"';
    out += value.type != sp_null ? R"(,"value":)" : "";
    if (value.type == sp_array)
        append_json_array(out, value);
    else if (value.type == sp_ename)
        json_string(out, value.ename);
    else if (value.type == sp_scaler)
        json_number(out, value.scaler);
    else if (value.type != sp_null)
        json_string(out, value.string);
    return out + '}';
}

std::string json_error(std::string_view message)
{
    std::string out = R"({"kind":"ERROR","value":)";
    json_string(out, message);
    return out + '}';
}
