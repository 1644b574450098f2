// dovfile dump: the elements, one a line.

#include "dovfile/dovfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

enum { json, csv, from, to, count };

constexpr std::int64_t block_bytes = 1 << 20;

struct line_format {
    text_style style;
    std::string_view begin;
    std::string_view between;
    std::string_view end;
};

// Times of elements, from the type header or the elements.
struct element_clock {
    explicit element_clock(_dovfiletype *p, const dov_type &type) : source(type.clock)
    {
        if (source != dov_clock::header)
            return;
        t0 = dov_real_at(dov_head(p), *dov_find_field(type.header, "t0"));
        prf = dov_real_at(dov_head(p), *dov_find_field(type.header, "prf"));
    }
    double time_of(std::int32_t index, const char *element) const
    {
        constexpr dov_field first = {"time", dov_form::f8, 0, 8};
        return source == dov_clock::element ? dov_real_at(element, first) : index / prf + t0;
    }
    dov_clock source;
    double t0 = 0;
    double prf = 1;
};

// Elements without a time of their own get the one that the type header says.
void append_element(std::string &out, const char *element, const dov_layout &layout, const element_clock &clock,
                    double time, const line_format &format)
{
    std::string_view before = format.begin;
    if (clock.source == dov_clock::header) {
        out += before;
        append_number(out, time, format.style);
        before = format.between;
    }
    const auto append_fields = [&](std::span<const dov_field> fields, const char *record) {
        for (const dov_field &field : fields) {
            out += before;
            append_field(out, record, field, format.style);
            before = format.between;
        }
    };
    append_fields(layout.fields, element);
    for (std::int32_t i = 0; i < layout.nitems; ++i)
        append_fields(layout.group, element + layout.group_at + static_cast<std::ptrdiff_t>(i) * layout.group_size);
    out += format.end;
}

struct range {
    double from = -std::numeric_limits<double>::infinity();
    double to = std::numeric_limits<double>::infinity();
    std::int32_t count = std::numeric_limits<std::int32_t>::max();
};

int dump(const char *name, _dovfiletype *p, const dov_type &type, range wanted, const line_format &format)
{
    const dov_layout layout = type.layout(dov_head(p));
    const element_clock clock(p, type);
    const auto at_once = static_cast<std::int32_t>(std::max<std::int64_t>(block_bytes / layout.size, 1));
    int code = u_timemove(p, wanted.from);
    std::vector<char> block;
    std::string text;
    std::int32_t next = p->commonstuff.nextelem;
    const std::int32_t end = next + std::min(wanted.count, p->commonstuff.nelements - next);
    while (code == dov_ok && next < end) {
        const std::int32_t n = std::min(at_once, end - next);
        block.resize(static_cast<std::size_t>(layout.size * n));
        code = u_getnelem(p, n, block.data());
        const char *element = block.data();
        for (std::int32_t i = 0; code == dov_ok && i < n; ++i, ++next, element += layout.size) {
            const double time = clock.time_of(next, element);
            if (time > wanted.to)
                return status_good;
            text.clear();
            append_element(text, element, layout, clock, time, format);
            put(text);
        }
        show_progress(next, end);
    }
    return code == dov_ok ? status_good : file_error(name, code);
}

bool parse_range(std::span<const option> options, range &wanted)
{
    return (!options[from].given || parse_number(options[from].value, wanted.from)) &&
           (!options[to].given || parse_number(options[to].value, wanted.to)) &&
           (!options[count].given || (parse_number(options[count].value, wanted.count) && wanted.count >= 0));
}

} // namespace

int run_dump(const command &self, arguments args)
{
    std::array options = {option{"json"}, option{"csv"}, option{"from", true}, option{"to", true},
                          option{"count", true}};
    std::vector<const char *> files;
    range wanted;
    if (!parse_options(self, args, options, files))
        return status_bad_usage;
    if (files.size() != 1)
        return usage_error(self, "one file, please");
    if (!parse_range(options, wanted))
        return usage_error(self, "times and counts are numbers");
    if (options[json].given && options[csv].given)
        return usage_error(self, "either --json or --csv");
    const dov_type *type = nullptr;
    const file_handle p = open_file(files[0], "R", type);
    if (p == nullptr)
        return status_bad_file;
    const line_format format = options[json].given  ? line_format{text_style::json, "[", ", ", "]\n"}
                               : options[csv].given ? line_format{text_style::plain, "", ",", "\n"}
                                                    : line_format{text_style::plain, "", " ", "\n"};
    return dump(files[0], p.get(), *type, wanted, format);
}
