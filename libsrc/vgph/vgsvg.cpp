#include "vgph/vgsvg.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

constexpr double dots = 300;
constexpr double least_page = 0.01;
constexpr double most_dots = 1e6;

constexpr double capital = 0.72; // height of capitals in sizes of a font

void append(std::string &out, double number, int decimals = 0)
{
    std::array<char, 32> digits;
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, decimals);
    out.append(digits.data(), end);
}

void append(std::string &out, int number)
{
    std::array<char, 16> digits;
    out.append(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr);
}

void append_color(std::string &out, std::string_view attribute, int code)
{
    constexpr std::string_view hex = "0123456789abcdef";
    out.append(" ").append(attribute).append("=\"#");
    for (int shift = 20; shift >= 0; shift -= 4)
        out += hex[vg_color(code) >> shift & 15U];
    out += '"';
}

void append_width(std::string &out, double width)
{
    out += " stroke-width=\"";
    append(out, width * dots, 1);
    out += '"';
}

// The strokes grow with the width, so that they are seen as what they are.
void append_dashes(std::string &out, const vg_pen &pen)
{
    const std::string_view strokes = vg_linetypes[static_cast<std::size_t>(std::clamp(pen.linetype, 0, 9))];
    if (strokes.empty())
        return;
    out += " stroke-linecap=\"butt\" stroke-dasharray=\"";
    for (const char stroke : strokes) {
        const double length = stroke == '.' ? 0.01 : stroke == '-' ? 0.07 : 0.17;
        append(out, std::round((pen.width + length) * dots));
        out += ' ';
        append(out, std::round((pen.width + 0.03) * dots));
        out += ' ';
    }
    out.back() = '"';
}

bool continues(unsigned char byte)
{
    return (byte & 0xC0U) == 0x80;
}

// Length of the character of UTF-8 that the text begins with; 0 when it begins with none that XML allows.
std::size_t character_length(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i)
        if (!continues(static_cast<unsigned char>(byte(i))))
            return 0;
    const unsigned start = first << 8U | byte(1);
    const bool is_longer_than_needed = (first == 0xE0 && start < 0xE0A0) || (first == 0xF0 && start < 0xF090);
    const bool is_surrogate = first == 0xED && start >= 0xEDA0;
    const bool is_beyond = start >= 0xF490;
    const bool is_none = first == 0xEF && start == 0xEFBF && byte(2) >= 0xBE;
    return is_longer_than_needed || is_surrogate || (length == 4 && is_beyond) || is_none ? 0 : length;
}

void append_character(std::string &out, std::string_view character)
{
    const auto code = static_cast<unsigned char>(character[0]);
    if (code < ' ')
        out += ' ';
    else if (code == '<')
        out += "&lt;";
    else if (code == '&')
        out += "&amp;";
    else if (code == '>')
        out += "&gt;";
    else
        out += character;
}

void append_text(std::string &out, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        if (length > 0) {
            append_character(out, text.substr(0, length));
        } else {
            const auto code = static_cast<unsigned char>(text[0]);
            out += static_cast<char>(0xC0U | code >> 6U);
            out += static_cast<char>(0x80U | (code & 0x3FU));
        }
        text.remove_prefix(std::max(length, std::size_t{1}));
    }
}

} // namespace

vg_svg::vg_svg(double width, double height)
    : vg_device(dots), page_height(std::clamp(height, least_page, vg_largest_page))
{
    const double page_width = std::clamp(width, least_page, vg_largest_page);
    out = R"(<svg xmlns="http://www.w3.org/2000/svg" width=")";
    append(out, page_width, 2);
    out += "in\" height=\"";
    append(out, page_height, 2);
    out += "in\" viewBox=\"0 0 ";
    append(out, std::round(page_width * dots));
    out += ' ';
    append(out, std::round(page_height * dots));
    out += R"(" fill="none" stroke-linecap="round" stroke-linejoin="round" xml:space="preserve")"
           R"( font-family="Helvetica,Arial,'Liberation Sans',sans-serif">)"
           "\n";
}

vg_svg::dot vg_svg::dot_of(vg_point point) const
{
    const auto rounded = [](double inches) {
        return static_cast<int>(std::lrint(std::clamp(inches * dots, -most_dots, most_dots)));
    };
    return {rounded(point.x), rounded(page_height - point.y)};
}

void vg_svg::pen(const vg_pen &pen)
{
    if (pen == current)
        return;
    end_path();
    current = pen;
}

void vg_svg::move(vg_point to)
{
    origin = dot_of(to);
    is_moved = true;
}

void vg_svg::draw(vg_point to)
{
    const dot end = dot_of(to);
    if (is_moved)
        start(origin);
    if (!(end == at) || command == 'm')
        step(end);
}

// A path is absolute at its first point only.
void vg_svg::start(dot to)
{
    is_moved = false;
    if (path.empty()) {
        path += 'M';
        append(path, to.x);
        path += ' ';
        append(path, to.y);
    } else if (command == 0 || !(to == at)) {
        path += 'm';
        append(path, to.x - at.x);
        if (to.y >= at.y)
            path += ' ';
        append(path, to.y - at.y);
    }
    command = 'm';
    at = to;
}

void vg_svg::step(dot to)
{
    const dot by = {to.x - at.x, to.y - at.y};
    const char letter = by.y == 0 ? 'h' : by.x == 0 ? 'v' : 'l';
    const int first = letter == 'v' ? by.y : by.x;
    if (letter != command)
        path += letter;
    else if (first >= 0)
        path += ' ';
    append(path, first);
    if (letter == 'l') {
        if (by.y >= 0)
            path += ' ';
        append(path, by.y);
    }
    command = letter;
    at = to;
}

void vg_svg::end_path()
{
    if (path.empty())
        return;
    out += "<path";
    append_color(out, "stroke", current.color);
    append_width(out, current.width);
    append_dashes(out, current);
    out.append(" d=\"").append(path).append("\"/>\n");
    path.clear();
    command = 0;
    if (!is_moved)
        origin = at;
    is_moved = true;
}

void vg_svg::fill(std::span<const vg_point> corners, int color)
{
    end_path();
    out += "<path";
    append_color(out, "fill", color);
    out += " d=\"";
    for (const vg_point &corner : corners) {
        const dot to = dot_of(corner);
        out += &corner == corners.data() ? 'M' : 'L';
        append(out, to.x);
        out += ' ';
        append(out, to.y);
    }
    out += "z\"/>\n";
}

void vg_svg::text(const vg_text &text)
{
    end_path();
    const dot where = dot_of(text.at);
    out += "<text x=\"";
    append(out, where.x);
    out += "\" y=\"";
    append(out, where.y + std::round(text.height * dots * (text.up + 1) / 2));
    out += "\" font-size=\"";
    append(out, text.height / capital * dots, 1);
    out += '"';
    append_color(out, "fill", text.color);
    if (text.bold > 0) {
        append_color(out, "stroke", text.color);
        append_width(out, text.bold);
    }
    if (text.across >= 0)
        out.append(" text-anchor=\"").append(text.across > 0 ? "end" : "middle").append("\"");
    if (text.rot != 0) {
        out += " transform=\"rotate(";
        append(out, -text.rot, 2);
        out += ' ';
        append(out, where.x);
        out += ' ';
        append(out, where.y);
        out += ")\"";
    }
    out += '>';
    append_text(out, text.text);
    out += "</text>\n";
}

std::string vg_svg::finish()
{
    end_path();
    out += "</svg>\n";
    return std::move(out);
}
