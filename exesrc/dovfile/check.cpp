// dovfile check: every structural rule, one a line.

#include "dovfile/rawfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace {

class checker {
public:
    checker(const char *file_name, raw_file &opened) : name(file_name), file(opened) {}

    // Whether every rule holds.
    bool run()
    {
        if (rule(file.has_header, 0, "20 bytes of keyword header, the file has " + std::to_string(file.size)) &&
            machine())
            container();
        int code = 0;
        const file_handle p(dov_open_any(name, "R", &code));
        if (p != nullptr && dov_type_of(p->commonstuff.kw.filetype)->clock == dov_clock::element)
            increasing_times(p.get());
        rule(p != nullptr, 0,
             p != nullptr ? std::string("opens")
                          : "opens: error " + std::to_string(code) + ": " + dovfileerrortext(code));
        return good;
    }

private:
    bool rule(bool holds, std::int64_t offset, const std::string &what)
    {
        put(std::string(name) + (holds ? ": good " : ": BAD  ") + std::to_string(offset) + ": " + what + "\n");
        good = good && holds;
        return holds;
    }

    bool machine()
    {
        const int code = file.kw.machine;
        return rule(file.known_machine, 0,
                    "machine " + std::to_string(code) + " is one of 1 to 5 (" + machine_name(code) + ")");
    }

    void container()
    {
        const _keywords &kw = file.kw;
        rule(kw.version == 1, 1, "version " + std::to_string(kw.version) + " is 1");
        const bool reserve =
            rule(kw.reservesize >= 0, 4, "reservesize " + std::to_string(kw.reservesize) + " is not negative");
        const bool head = rule(kw.headsize >= 0, 8, "headsize " + std::to_string(kw.headsize) + " is not negative");
        const bool size = rule(kw.elementsize > 0, 12, "elementsize " + std::to_string(kw.elementsize) + " is above 0");
        const bool count =
            rule(kw.nelements >= 0, 16, "nelements " + std::to_string(kw.nelements) + " is not negative");
        if (!reserve || !head)
            return;
        const std::int64_t head_at = 20 + std::int64_t{kw.reservesize};
        const std::int64_t byte0 = head_at + kw.headsize;
        const std::string there = ", the file has " + std::to_string(file.size);
        if (rule(file.size >= head_at, 20, "the reserved area ends at " + std::to_string(head_at) + there))
            reserved_area();
        if (!rule(file.size >= byte0, head_at, "the type header ends at " + std::to_string(byte0) + there))
            return;
        if (size && count) {
            const std::int64_t end = byte0 + std::int64_t{kw.nelements} * kw.elementsize;
            rule(file.size >= end, byte0, "the elements end at " + std::to_string(end) + there);
        }
        type_header(head_at);
    }

    void reserved_area()
    {
        const std::string area = file.bytes(20, file.kw.reservesize);
        if (area.size() < 3 || area[0] != 1) {
            rule(true, 20, "no keywords: the reserved area is not in use");
            return;
        }
        const std::string list = area.substr(1);
        const int size = static_cast<int>(list.size());
        int offset = 0;
        for (int length = 0; offset < size && (length = recallint(list.data(), offset)) > 0; offset += length)
            keyword(list, offset);
        const bool ends = offset < size && list[static_cast<std::size_t>(offset)] == '\0';
        rule(ends, 21 + std::min(offset, size), "the keyword list ends in a zero byte");
        if (ends) {
            const std::size_t used = list.find_first_not_of('\0', static_cast<std::size_t>(offset));
            rule(used == list.npos, 21 + static_cast<std::int64_t>(std::min(used, list.size() - 1)),
                 "what is free is zero");
        }
    }

    void keyword(const std::string &list, int offset)
    {
        std::array<char, kwl_name_size> keyword_name;
        kwl_value value;
        int type = 0;
        const int size = static_cast<int>(list.size());
        const bool whole = kwl_read_at(list.data(), size, offset, keyword_name.data(), &type, &value) == 1;
        rule(whole, 21 + offset, whole ? "keyword " + std::string(keyword_name.data()) : "this keyword is well-formed");
        c_strupcase(keyword_name.data());
        if (whole && !seen.insert(keyword_name.data()).second)
            rule(false, 21 + offset, "its name is not taken");
    }

    void type_header(std::int64_t head_at)
    {
        const _keywords &kw = file.kw;
        const dov_type *type = dov_type_of(kw.filetype);
        if (!rule(type != nullptr, 2, "filetype " + std::to_string(kw.filetype) + " is known"))
            return;
        if (!rule(kw.headsize == type->headsize, 8,
                  "headsize of " + std::string(type->name) + " is " + std::to_string(type->headsize)))
            return;
        const std::string head = native_record(file, type->header, file.bytes(head_at, kw.headsize));
        for (const dov_field &field : type->header)
            header_field(head, field, head_at + field.offset);
        for (const char *count : type->counts) {
            const dov_field &field = *dov_find_field(type->header, count);
            const std::int32_t value = dov_integer_at(head.data(), field);
            rule(value > 0, head_at + field.offset, field.name + (" " + std::to_string(value)) + " is above 0");
        }
        const std::int64_t size = type->layout(head.data()).size;
        rule(size == kw.elementsize, 12, "elementsize of this type header is " + std::to_string(size));
    }

    void header_field(const std::string &head, const dov_field &field, std::int64_t offset)
    {
        const std::string_view field_name = field.name;
        std::string what = field.name + std::string(" ");
        append_field(what, head.data(), field, text_style::plain);
        if (field.form == dov_form::text) {
            const auto begin = static_cast<std::size_t>(field.offset);
            const std::string_view text = std::string_view(head).substr(begin, static_cast<std::size_t>(field.size));
            rule(text.find('\0') != text.npos, offset, field.name + std::string(" has its NUL"));
        } else if (field_name == "version") {
            rule(dov_integer_at(head.data(), field) == 1, offset, what + " is 1");
        } else if (field_name == "prf" || field_name == "xlam") {
            rule(dov_real_at(head.data(), field) > 0, offset, what + " is above 0");
        } else if (field.form == dov_form::f8) {
            rule(std::isfinite(dov_real_at(head.data(), field)), offset, what + " is finite");
        }
    }

    void increasing_times(_dovfiletype *p)
    {
        const _dovfile &f = p->commonstuff;
        double last = -HUGE_VAL;
        for (std::int32_t i = 0; i < f.nelements; ++i) {
            double time = 0;
            if (dovfilereadtime(p, &time, i) != dov_ok || !(time > last)) {
                rule(false, f.byte0 + std::int64_t{i} * f.kw.elementsize,
                     "the time of element " + std::to_string(i) + " is above the one before");
                return;
            }
            last = time;
            show_progress(i, f.nelements);
        }
        show_progress(1, 1);
        rule(true, f.byte0, "times increase");
    }

    const char *name;
    raw_file &file;
    std::set<std::string> seen; // names of keywords, in upper case
    bool good = true;
};

} // namespace

int run_check(const command &self, arguments args)
{
    std::vector<const char *> files;
    if (!parse_options(self, args, {}, files))
        return status_bad_usage;
    if (files.empty())
        return usage_error(self, "which files?");
    int status = status_good;
    for (const char *name : files) {
        raw_file file(name);
        if (!file.is_open())
            status = file_error(name, dov_cannot_open);
        else if (!checker(name, file).run())
            status = status_bad_file;
    }
    return status;
}
