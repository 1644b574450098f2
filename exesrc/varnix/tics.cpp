#include "console.h"
#include "dovsys/dovsys.h"
#include "plotting.h"
#include "print.h"
#include "vgph/vgph.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <optional>
#include <vector>

namespace {

constexpr const char *bad_line = "Three numbers are expected: both limits and the number of labels.";

std::optional<double> number_of(std::string_view word)
{
    double number = 0;
    word.remove_prefix(word.starts_with('+'));
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (end != word.data() + word.size() || word.empty())
        return std::nullopt;
    if (error != std::errc{}) // too large, or too small, for a double
        return std::nullopt;
    return number;
}

// An axis after cal_inc(); nothing for a line that is something else.
std::optional<_vgaxisparm> axis_of(std::string line)
{
    constexpr const char *white = " \t\r";
    std::vector<double> numbers;
    for (const char *word = std::strtok(line.data(), white); word != nullptr; word = std::strtok(nullptr, white))
        if (const auto number = number_of(word))
            numbers.push_back(*number);
        else
            return std::nullopt;
    if (numbers.size() != 3)
        return std::nullopt;
    _vgaxisparm axis{};
    axis.lim0 = numbers[0];
    axis.lim1 = numbers[1];
    cal_inc(&axis, bestint(numbers[2]));
    return axis;
}

using label_text = std::array<char, vg_label_size>;

std::vector<std::string> labels_of(const _vgaxisparm &axis)
{
    std::vector<std::string> labels;
    label_text text;
    for (int i = 0; i < axis.nlabs; ++i) {
        if (axis.nospan != 0)
            vg_nospan_label_text(axis.labvals[i], text.data());
        else
            vg_label_text(&axis, axis.labvals[i], text.data());
        labels.emplace_back(text.data());
    }
    return labels;
}

void append_number(std::string &out, const char *name, double number)
{
    out.append("\"").append(name).append("\":");
    json_number(out, number);
    out += ',';
}

void append_text(std::string &out, const char *name, const char *text)
{
    out.append("\"").append(name).append("\":");
    json_string(out, text);
    out += ',';
}

// Calls append(i) for the labels, in brackets and with commas between.
template <class Append>
void append_list(std::string &out, const char *name, int count, Append append)
{
    out.append("\"").append(name).append("\":[");
    for (int i = 0; i < count; ++i) {
        out += i > 0 ? "," : "";
        append(i);
    }
    out += "],";
}

std::string json_of(const _vgaxisparm &axis)
{
    const std::vector<std::string> labels = labels_of(axis);
    label_text end0;
    label_text end1;
    vg_end_label_text(axis.lim0, end0.data());
    vg_end_label_text(axis.lim1, end1.data());
    std::string out = "{";
    append_number(out, "inctype", axis.inctype);
    append_number(out, "incval", axis.incval);
    append_number(out, "inctens", axis.inctens);
    append_number(out, "incsign", axis.incsign);
    append_number(out, "nlabs", axis.nlabs);
    append_list(out, "labvals", axis.nlabs, [&](int i) { json_number(out, axis.labvals[i]); });
    append_list(out, "labels", axis.nlabs, [&](int i) { json_string(out, labels[static_cast<std::size_t>(i)]); });
    append_text(out, "end0", end0.data());
    append_text(out, "end1", end1.data());
    append_number(out, "nospan", axis.nospan);
    append_number(out, "axiserr", axis.axiserr);
    append_text(out, "errstr", axis.errstr);
    out.back() = '}';
    return out;
}

std::string text_of(const _vgaxisparm &axis)
{
    label_text increment;
    vg_label_text(&axis, axis.incval, increment.data());
    std::string out = std::string("increment ") + increment.data() + ":";
    for (const std::string &label : labels_of(axis))
        out += label.starts_with(' ') ? label.substr(label.find_last_of(' ')) : " " + label;
    return out;
}

} // namespace

int print_tics(bool json)
{
    int status = 0;
    std::string line;
    for (int number = 1; read_line(stdin, line); ++number) {
        const std::optional<_vgaxisparm> axis = axis_of(line);
        if (json)
            std::puts((axis ? json_of(*axis) : json_error(bad_line)).c_str());
        else if (axis)
            std::puts(text_of(*axis).c_str());
        else
            std::fprintf(stderr, "varnix: line %d: %s\n", number, bad_line);
        if (axis && axis->axiserr != 0 && !json)
            std::fprintf(stderr, "varnix: line %d: %s\n", number, axis->errstr);
        status |= axis ? 0 : 1;
    }
    return status;
}
