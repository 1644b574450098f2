// dovfile create: a file from lines of numbers.

#include "dovfile/lines.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t block_bytes = 1 << 20;

template <typename T>
bool put_number(char *place, double value)
{
    if constexpr (std::numeric_limits<T>::is_integer) {
        if (value != std::trunc(value) || value < std::numeric_limits<T>::min() ||
            value > std::numeric_limits<T>::max())
            return false;
    }
    const T number = static_cast<T>(value);
    std::memcpy(place, &number, sizeof number);
    return true;
}

bool put_field(char *record, const dov_field &field, double value)
{
    char *place = record + field.offset;
    switch (field.form) {
    case dov_form::i2:
        return put_number<std::int16_t>(place, value);
    case dov_form::i4:
        return put_number<std::int32_t>(place, value);
    case dov_form::f4:
        return put_number<float>(place, value);
    default:
        return put_number<double>(place, value);
    }
}

// False when the numbers are too few, too many, or no values of the fields.
bool fill_element(const dov_layout &layout, const std::vector<double> &numbers, char *element)
{
    if (numbers.size() != layout.fields.size() + layout.group.size() * static_cast<std::size_t>(layout.nitems))
        return false;
    auto number = numbers.begin();
    for (const dov_field &field : layout.fields) {
        if (!put_field(element, field, *number++))
            return false;
    }
    char *item = element + layout.group_at;
    for (std::int32_t i = 0; i < layout.nitems; ++i, item += layout.group_size) {
        for (const dov_field &field : layout.group) {
            if (!put_field(item, field, *number++))
                return false;
        }
    }
    return true;
}

// Options of the fields of a type header.
std::vector<option> header_options(const dov_type &type)
{
    std::vector<option> options;
    for (const dov_field &field : type.header)
        options.push_back({field.name, true});
    return options;
}

bool fill_head(const dov_type &type, std::span<const option> options, char *head)
{
    for (std::size_t i = 0; i < options.size(); ++i) {
        const dov_field &field = type.header[i];
        double value = 0;
        if (!options[i].given)
            continue;
        if (field.form == dov_form::text) {
            const std::string_view text(options[i].value);
            std::memset(head + field.offset, ' ', static_cast<std::size_t>(field.size) - 1);
            text.copy(head + field.offset, static_cast<std::size_t>(field.size) - 1);
        } else if (field.form == dov_form::raw || !parse_number(options[i].value, value) ||
                   !put_field(head, field, value)) {
            return false;
        }
    }
    return true;
}

// Counts that are not given: as many items as the first line has numbers for, and 1 for what else fixes an element.
void complete_counts(const dov_type &type, std::size_t numbers, char *head)
{
    for (std::size_t i = type.counts.size(); i-- > 0;) {
        const dov_field &field = *dov_find_field(type.header, type.counts[i]);
        if (dov_integer_at(head, field) != 0)
            continue;
        put_field(head, field, 1);
        const dov_layout layout = type.layout(head);
        if (i != 0 || layout.group.empty() || numbers <= layout.fields.size())
            continue;
        const std::size_t items = (numbers - layout.fields.size()) / layout.group.size();
        put_field(head, field, static_cast<double>(items));
    }
}

int write_elements(_dovfiletype *p, const dov_layout &layout, line_reader &lines, std::vector<double> numbers,
                   const char *out)
{
    std::vector<char> block;
    const auto size = static_cast<std::size_t>(layout.size);
    int code = dov_ok;
    const auto write_block = [&] {
        code = dovfilewriteblock(p, block.data(), static_cast<int>(block.size() / size));
        block.clear();
        show_progress(lines.at, lines.size);
    };
    for (; !numbers.empty() && code == dov_ok; numbers = lines.next()) {
        block.resize(block.size() + size);
        if (!fill_element(layout, numbers, block.data() + block.size() - size))
            return file_error(lines.name, "line " + std::to_string(lines.number) + ": not the values of one element");
        if (block.size() >= block_bytes)
            write_block();
    }
    if (code == dov_ok)
        write_block();
    if (!lines.good)
        return file_error(lines.name, "line " + std::to_string(lines.number) + ": not a number");
    return code == dov_ok ? status_good : file_error(out, code);
}

int create(const dov_type &type, const char *out, std::vector<char> &head, const char *csv)
{
    line_reader lines(csv);
    if (lines.file == nullptr)
        return file_error(csv, "cannot be opened");
    std::vector<double> first = lines.next();
    complete_counts(type, first.size(), head.data());
    const std::string beside = std::string(out) + ".new";
    file_handle p(dov_create(type, beside.c_str(), head.data(), mcvt_pc, ressize));
    if (p == nullptr)
        return file_error(out, type.state->error);
    int status = write_elements(p.get(), type.layout(head.data()), lines, std::move(first), out);
    const int code = dovfileclose(p.release());
    if (status == status_good && code != dov_ok)
        status = file_error(out, code);
    if (status == status_good && !replace_file(beside, out))
        status = file_error(out, dov_cannot_open);
    if (status != status_good)
        std::remove(beside.c_str());
    return status;
}

} // namespace

int run_create(const command &self, arguments args)
{
    const dov_type *type = args.empty() ? nullptr : dov_type_named(args[0]);
    if (type == nullptr)
        return usage_error(self, "which type?");
    std::vector<option> options = header_options(*type);
    std::vector<const char *> files;
    if (!parse_options(self, args.subspan(1), options, files))
        return status_bad_usage;
    if (files.empty() || files.size() > 2)
        return usage_error(self, "one file to make, from one file or standard input");
    std::vector<char> head(static_cast<std::size_t>(type->headsize));
    dov_init_head(*type, head.data());
    if (!fill_head(*type, options, head.data()))
        return usage_error(self, "a value does not fit its field");
    const bool from_file = files.size() == 2 && std::string_view(files[1]) != "-";
    return create(*type, files[0], head, from_file ? files[1] : nullptr);
}
