// dovfile annotate: every byte range of a file with its offset, name, form, value and bytes.

#include "dovfile/rawfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::int64_t most_at_once = 1 << 20;

const char *form_name(dov_form form, int machine)
{
    struct names {
        const char *i2, *i4, *f4, *f8;
    };
    constexpr names little = {"int16 little-endian", "int32 little-endian", "IEEE single little-endian",
                              "IEEE double little-endian"};
    constexpr std::array<names, 6> by_machine = {
        names{"int16", "int32", "real32", "real64"},
        names{"int16 little-endian", "int32 little-endian", "VAX F", "VAX D"},
        little,
        names{"int16 big-endian", "int32 big-endian", "IEEE single big-endian", "IEEE double big-endian"},
        little,
        names{"int16 little-endian", "int32 little-endian", "VAX F", "VAX G"}};
    const names &of = by_machine[machine >= 1 && machine <= 5 ? static_cast<std::size_t>(machine) : 0];
    switch (form) {
    case dov_form::i2:
        return of.i2;
    case dov_form::i4:
        return of.i4;
    case dov_form::f4:
        return of.f4;
    case dov_form::f8:
        return of.f8;
    case dov_form::text:
        return "text";
    case dov_form::raw:
        break;
    }
    return "bytes";
}

void append_padded(std::string &line, std::string_view text, std::size_t width)
{
    line += text;
    line.append(text.size() < width ? width - text.size() : 0, ' ');
    line += "  ";
}

// In hexadecimal; a longer run of one byte only once.
std::string hex(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    const bool same = bytes.size() > 8 && bytes.find_first_not_of(bytes.front()) == bytes.npos;
    std::string text;
    for (const char c : same ? bytes.substr(0, 1) : bytes) {
        text += digits[static_cast<unsigned char>(c) / 16U];
        text += digits[static_cast<unsigned char>(c) % 16U];
    }
    return same ? text + " x " + std::to_string(bytes.size()) : text;
}

class annotator {
public:
    explicit annotator(raw_file &opened) : file(opened) {}

    void run()
    {
        if (!file.has_header) {
            rest("cut short");
            return;
        }
        fields(dov_keyword_header(), "", file.bytes(0, sizeof file.kw));
        if (!file.known_machine || file.kw.reservesize < 0 || file.kw.headsize < 0 || file.kw.elementsize < 1) {
            rest("not known");
            return;
        }
        reserved_area();
        elements(type_header());
        rest("not declared");
    }

private:
    // One line; the range goes on from there.
    void range(std::string_view name, std::string_view form, std::string_view value, std::string_view bytes)
    {
        std::string line;
        append_padded(line, std::to_string(at), 10);
        append_padded(line, hex(bytes), 16);
        append_padded(line, name, 12);
        append_padded(line, form, 26);
        line += value;
        line.erase(line.find_last_not_of(' ') + 1);
        put(line + "\n");
        at += static_cast<std::int64_t>(bytes.size());
    }

    void rest(std::string_view name)
    {
        while (at < file.size) {
            const std::string bytes = file.bytes(at, most_at_once);
            if (bytes.empty())
                return;
            range(name, "bytes", "", bytes);
        }
    }

    // The fields of a record; bytes that belong to none are unused. A record that is cut short has fewer.
    void fields(std::span<const dov_field> table, const std::string &suffix, const std::string &record)
    {
        const std::string native = record_in_full(table, record);
        std::int32_t next = 0;
        const auto whole = static_cast<std::int32_t>(record.size());
        for (const dov_field &field : table) {
            if (field.offset + field.size > whole)
                break;
            std::string value;
            append_field(value, native.data(), field,
                         field.form == dov_form::text ? text_style::json : text_style::plain);
            range(field.name + suffix, form_name(field.form, file.kw.machine), value,
                  std::string_view(record).substr(static_cast<std::size_t>(field.offset),
                                                  static_cast<std::size_t>(field.size)));
            next = field.offset + field.size;
        }
        if (next < whole)
            range("unused", "bytes", "", std::string_view(record).substr(static_cast<std::size_t>(next)));
    }

    // Converted, with zeros for what is cut off.
    std::string record_in_full(std::span<const dov_field> table, std::string record) const
    {
        for (const dov_field &field : table)
            record.resize(std::max(record.size(), static_cast<std::size_t>(field.offset + field.size)));
        return file.known_machine ? native_record(file, table, std::move(record)) : record;
    }

    void reserved_area()
    {
        const std::string area = file.bytes(at, file.kw.reservesize);
        if (area.empty())
            return;
        range("resformat", "bytes", std::to_string(static_cast<unsigned char>(area[0])), area.substr(0, 1));
        std::size_t used = 1;
        if (area[0] == 1)
            used += keyword_list(area.substr(1));
        if (used < area.size())
            range(area[0] == 1 ? "free" : "not in use", "bytes", "", std::string_view(area).substr(used));
    }

    // How much of it the items take.
    std::size_t keyword_list(const std::string &list)
    {
        const int size = static_cast<int>(list.size());
        int offset = 0;
        for (int length = 0; offset < size && (length = recallint(list.data(), offset)) > 0; offset += length) {
            const std::string item = list.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
            std::array<char, kwl_name_size> name;
            kwl_value value;
            int type = 0;
            if (kwl_read_at(list.data(), size, offset, name.data(), &type, &value) == 1)
                keyword_item(item, type);
            else
                range("malformed", "bytes", "", item);
        }
        return static_cast<std::size_t>(std::min(offset, size));
    }

    void keyword_item(const std::string &item, int type)
    {
        static constexpr dov_field numbers[] = {{"value", dov_form::i4, 2, 4}, {"value", dov_form::f8, 2, 8}};
        range("length", "bytes", std::to_string(item.size()), item.substr(0, 1));
        range("kwtype", "bytes", std::to_string(type), item.substr(1, 1));
        std::size_t name_at = 0;
        if (type == kwl_string) {
            const auto size = static_cast<std::size_t>(recallint(item.data(), 2));
            range("strlength", "bytes", std::to_string(size), item.substr(2, 1));
            quoted("value", item.substr(3, size));
            name_at = 3 + size;
        } else {
            const dov_field &field = numbers[type == kwl_integer ? 0 : 1];
            const std::string native = native_record(file, std::span(&field, 1), item);
            std::string value;
            append_field(value, native.data(), field, text_style::plain);
            range("value", form_name(field.form, file.kw.machine), value,
                  item.substr(2, static_cast<std::size_t>(field.size)));
            name_at = std::size_t{2} + static_cast<std::size_t>(field.size);
        }
        quoted("name", item.substr(name_at));
    }

    void quoted(const char *name, const std::string &bytes)
    {
        std::string value;
        json_string(value, bytes.substr(0, bytes.find('\0')));
        range(name, "text", value, bytes);
    }

    // How an element is made up, as far as the type header tells.
    dov_layout type_header()
    {
        const dov_type *type = dov_type_of(file.kw.filetype);
        const std::string head = file.bytes(at, file.kw.headsize);
        if (type == nullptr || type->headsize != file.kw.headsize) {
            if (!head.empty())
                range("type header", "bytes", "", head);
            return {};
        }
        fields(type->header, "", head);
        native_head = native_record(file, type->header, record_of(head, type->headsize));
        const dov_layout layout = type->layout(native_head.data());
        return layout.size == file.kw.elementsize ? layout : dov_layout();
    }

    static std::string record_of(std::string bytes, std::int32_t size)
    {
        bytes.resize(static_cast<std::size_t>(size));
        return bytes;
    }

    void elements(const dov_layout &layout)
    {
        for (std::int32_t i = 0; i < file.kw.nelements && at < file.size; ++i) {
            const std::string element = file.bytes(at, file.kw.elementsize);
            if (static_cast<std::int64_t>(element.size()) < file.kw.elementsize || layout.size == 0) {
                range(layout.size == 0 ? "element" : "cut short", "bytes", "", element);
                continue;
            }
            one_element(layout, element, "[" + std::to_string(i) + "]");
            show_progress(i, file.kw.nelements);
        }
        show_progress(1, 1);
    }

    void one_element(const dov_layout &layout, const std::string &element, const std::string &suffix)
    {
        const std::int64_t begin = at;
        if (!layout.fields.empty())
            fields(layout.fields, suffix,
                   element.substr(0, static_cast<std::size_t>(layout.nitems > 0 ? layout.group_at : layout.size)));
        for (std::int32_t k = 0; k < layout.nitems; ++k) {
            const std::int64_t item = layout.group_at + std::int64_t{k} * layout.group_size;
            fields(layout.group, suffix + "[" + std::to_string(k) + "]",
                   element.substr(static_cast<std::size_t>(item), static_cast<std::size_t>(layout.group_size)));
        }
        if (at < begin + layout.size)
            range("unused", "bytes", "", std::string_view(element).substr(static_cast<std::size_t>(at - begin)));
    }

    raw_file &file;
    std::int64_t at = 0;
    std::string native_head;
};

} // namespace

int run_annotate(const command &self, arguments args)
{
    std::vector<const char *> files;
    if (!parse_options(self, args, {}, files))
        return status_bad_usage;
    if (files.size() != 1)
        return usage_error(self, "one file, please");
    raw_file file(files[0]);
    if (!file.is_open())
        return file_error(files[0], dov_cannot_open);
    annotator(file).run();
    // What is wrong with it is what the readers would say.
    int code = 0;
    const file_handle p(dov_open_any(files[0], "R", &code));
    return p != nullptr || (code == dov_wrong_type && dovfiletype(files[0]) >= 0 &&
                            dov_type_of(dovfiletype(files[0])) == nullptr)
               ? status_good
               : file_error(files[0], code);
}
