#include "wi/wijournalfile.h"

#include "wi/wijournal.h"

#include <algorithm>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

// ---- writing ----

void put_number(std::string &out, std::int32_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>(static_cast<std::uint32_t>(number) >> shift);
}

void put_text(std::string &out, std::string_view text)
{
    put_number(out, static_cast<std::int32_t>(text.size()));
    out += text;
}

int set_size(std::FILE *file, long size)
{
#ifdef _WIN32
    return _chsize(_fileno(file), size);
#else
    return ftruncate(fileno(file), size);
#endif
}

void cut_back(const char *name, long size)
{
    if (std::FILE *file = std::fopen(name, "r+b")) {
        set_size(file, size);
        std::fclose(file);
    }
}

void put_line(std::string &out, std::int32_t number)
{
    out.append(std::to_string(number)).append("\n");
}

// ---- reading ----

// Reads within `data`; `ok` turns false for good where that ends.
struct cursor {
    std::string_view data;
    std::size_t at;
    bool ok = true;

    std::string_view take(std::size_t size)
    {
        ok = ok && size <= data.size() - at;
        const std::string_view taken = ok ? data.substr(at, size) : std::string_view();
        at += taken.size();
        return taken;
    }

    std::int32_t number()
    {
        std::uint32_t value = 0;
        int shift = 0;
        for (const char byte : take(4)) {
            value |= std::uint32_t{static_cast<unsigned char>(byte)} << shift;
            shift += 8;
        }
        return static_cast<std::int32_t>(value);
    }

    std::string_view text() { return take(static_cast<std::size_t>(std::max(number(), 0))); }
};

// What is known of the objects.
struct registry {
    std::span<const wi_journal_kind> kinds;
    std::int32_t most;

    bool is(std::int32_t object, wi_journal_kind kind) const
    {
        return static_cast<std::size_t>(object) < kinds.size() && kinds[static_cast<std::size_t>(object)] == kind;
    }
    bool may_have_value(std::int32_t object) const
    {
        return static_cast<std::size_t>(object) >= kinds.size() || is(object, wi_journal_kind::with_value);
    }
};

std::int32_t read_object(cursor &c, const registry &objects)
{
    const std::int32_t object = c.number();
    c.ok = c.ok && object >= 0 && object <= objects.most;
    return object;
}

std::string_view read_value(cursor &c, const registry &objects, std::int32_t object)
{
    const std::string_view value = c.text();
    c.ok = c.ok && (value.empty() || objects.may_have_value(object));
    return value.substr(0, wi_journal_value_limit);
}

void read_values(cursor &c, const registry &objects, std::vector<wi_journal_value> &values)
{
    values.clear();
    std::int32_t left = c.number();
    c.ok = c.ok && left > 0;
    while (c.ok && --left > 0) {
        const std::int32_t object = read_object(c, objects);
        values.push_back({object, read_value(c, objects, object)});
    }
}

wi_journal_mouse_state read_mouse(cursor &c)
{
    wi_journal_mouse_state mouse;
    mouse.x = c.number();
    mouse.y = c.number();
    for (std::int32_t &button : mouse.buttons)
        button = c.number();
    return mouse;
}

} // namespace

void wi_journal_put_stamp(std::string &out, std::string_view stamp)
{
    put_text(out, stamp);
}

void wi_journal_put_record(std::string &out, const wi_journal_record &record)
{
    put_number(out, static_cast<std::int32_t>(record.values.size() + 1));
    for (const wi_journal_value &value : record.values) {
        put_number(out, value.object);
        put_text(out, value.text);
    }
    put_number(out, record.object);
    put_number(out, record.action);
    if (record.mouse) {
        put_number(out, record.mouse->x);
        put_number(out, record.mouse->y);
        for (const std::int32_t button : record.mouse->buttons)
            put_number(out, button);
    }
    put_text(out, record.own_value);
    put_number(out, record.number);
}

std::string wi_journal_text_mode(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 16);
    for (std::size_t from = 0; from < bytes.size();) {
        const std::size_t feed = std::min(bytes.find('\n', from), bytes.size());
        out.append(bytes.substr(from, feed - from));
        if (feed < bytes.size())
            out += "\r\n";
        from = feed + 1;
    }
    return out;
}

bool wi_journal_append(const char *name, bool anew, std::string_view bytes)
{
    std::FILE *file = wi_hlp_io.open(name, anew ? "wb" : "ab");
    if (!file)
        return false;
    std::setvbuf(file, nullptr, _IONBF, 0); // it is one write
    const long size = std::fseek(file, 0, SEEK_END) == 0 ? std::ftell(file) : -1;
    const bool written = size >= 0 && wi_hlp_io.write(bytes.data(), 1, bytes.size(), file) == bytes.size();
    const bool closed = wi_hlp_io.close(file) == 0;
    if (!(written && closed) && size >= 0)
        cut_back(name, size);
    return written && closed;
}

std::string wi_journal_mirror_text(const wi_journal_record &record)
{
    std::string out;
    put_line(out, static_cast<std::int32_t>(record.values.size() + 1));
    for (const wi_journal_value &value : record.values) {
        put_line(out, value.object);
        out.append(value.text).append("\n");
    }
    put_line(out, record.object);
    put_line(out, record.action);
    if (record.mouse) {
        out += '\'';
        put_line(out, record.mouse->x);
        put_line(out, record.mouse->y);
        for (const std::int32_t button : record.mouse->buttons)
            put_line(out, button);
    }
    put_line(out, static_cast<std::int32_t>(record.own_value.size()));
    out.append(record.own_value).append("\n");
    put_line(out, record.number);
    return out + "\nEND OF RECORD\n\n";
}

bool wi_journal_open(const char *name, wi_journal_file &file)
{
    file = {};
    if (!wi_hlp_read_all(name, file.bytes))
        return false;
    wi_hlp_text_mode(file.bytes);
    return true;
}

bool wi_journal_read_stamp(wi_journal_file &file, std::string_view &stamp)
{
    cursor c{file.bytes.view(), 0};
    stamp = c.text();
    file.at = c.at;
    return c.ok;
}

bool wi_journal_next(wi_journal_file &file, std::span<const wi_journal_kind> kinds, std::int32_t most,
                     wi_journal_record &record)
{
    const registry objects{kinds, most};
    cursor c{file.bytes.view(), file.at};
    read_values(c, objects, record.values);
    record.object = read_object(c, objects);
    record.action = c.number();
    record.mouse.reset();
    if (c.ok && objects.is(record.object, wi_journal_kind::with_mouse))
        record.mouse = read_mouse(c);
    record.own_value = read_value(c, objects, record.object);
    record.number = c.number();
    if (!c.ok || record.number != file.read + 1)
        return false;
    file.at = c.at;
    ++file.read;
    return true;
}

std::string_view wi_journal_list_add(std::string &list, std::int32_t before, std::string_view label)
{
    std::string number = std::to_string(before);
    number.resize(std::max<std::size_t>(number.size(), 4), ' ');
    const std::size_t start = list.size();
    if (start + number.size() + label.size() + 2 > wi_journal_list_limit)
        return {};
    list.append(number).append("\t").append(label).append("\n");
    return std::string_view(list).substr(start);
}

wi_journal_listing wi_journal_list(wi_journal_file &file, std::span<const wi_journal_kind> kinds,
                                   std::span<const std::optional<std::string>> labels)
{
    wi_journal_listing listing{std::string(wi_journal_list_head), false};
    wi_journal_record record;
    while (wi_journal_next(file, kinds, wi_journal_most_objects, record)) {
        const auto object = static_cast<std::size_t>(record.object);
        if (object < labels.size() && labels[object])
            wi_journal_list_add(listing.text, file.read - 1, *labels[object]);
    }
    listing.sound = file.at_end();
    return listing;
}

std::string wi_journal_add_message(std::string_view shown, std::string_view message)
{
    std::string text(shown);
    if (!text.empty())
        text += "\n\n";
    text += message;
    return text.size() < 2000 ? text : std::string(message);
}

wi_journal_wrapped wi_journal_wrap(std::string_view text)
{
    wi_journal_wrapped wrapped{std::string(text), 1};
    int held = 0;
    for (char &c : wrapped.text) {
        const bool ends = c == '\n' || (c == ' ' && held > 49);
        held = ends ? 0 : held + 1;
        if (!ends)
            continue;
        c = '\n';
        ++wrapped.lines;
    }
    return wrapped;
}

std::string wi_journal_copy_command(std::string_view from, std::string_view to)
{
    std::string command = "copy";
    for (const std::string_view name : {from, to}) {
        const bool quoted = name.find_first_of(" \t&()[]{}^=;!'+,`~%") != name.npos;
        command.append(quoted ? " \"" : " ").append(name).append(quoted ? "\"" : "");
    }
    std::replace(command.begin(), command.end(), '/', '\\'); // which would be an option
    return command;
}
