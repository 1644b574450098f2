// dovfile info: header, type header and keywords.

#include "dovfile/dovfile.h"

#include "dovsys/dovsys.h"

#include <array>

namespace {

struct keyword {
    std::string name;
    int type;
    std::string value;
};

// The well-formed items of the reserved area.
std::vector<keyword> keywords_of(const _dovfile &f, text_style style)
{
    std::vector<keyword> all;
    if (f.rsize < 3 || f.rspace[0] != 1)
        return all;
    const char *list = f.rspace + 1;
    std::array<char, kwl_name_size> name;
    kwl_value value;
    int type = 0;
    int outcome = 0;
    for (int offset = 0; (outcome = kwl_read_at(list, f.rsize - 1, offset, name.data(), &type, &value)) >= 0;
         offset += recallint(list, offset)) {
        if (outcome == 0)
            continue;
        keyword &added = all.emplace_back(keyword{name.data(), type, {}});
        if (type == kwl_integer)
            json_integer(added.value, value.ival);
        else if (type == kwl_real)
            append_number(added.value, value.dval, style);
        else if (style == text_style::json)
            json_string(added.value, value.sval);
        else
            added.value = value.sval;
    }
    return all;
}

std::string as_json(_dovfiletype *p, const dov_type *type)
{
    const _dovfile &f = p->commonstuff;
    std::string out =
        "{\"type\":" + std::to_string(f.kw.filetype) + ",\"machine\":" + std::to_string(f.machine) +
        ",\"version\":" + std::to_string(f.kw.version) + ",\"reservesize\":" + std::to_string(f.kw.reservesize) +
        ",\"headsize\":" + std::to_string(f.kw.headsize) + ",\"elementsize\":" + std::to_string(f.kw.elementsize) +
        ",\"nelements\":" + std::to_string(f.nelements) + ",\"header\":{";
    const char *comma = "";
    for (const dov_field &field : type != nullptr ? type->header : std::span<const dov_field>()) {
        out += comma;
        json_string(out, field.name);
        out += ':';
        append_field(out, dov_head(p), field, text_style::json);
        comma = ",";
    }
    out += "},\"keywords\":[";
    comma = "";
    for (const keyword &k : keywords_of(f, text_style::json)) {
        out += comma;
        out += "{\"name\":";
        json_string(out, k.name);
        out += ",\"type\":" + std::to_string(k.type) + ",\"value\":" + k.value + "}";
        comma = ",";
    }
    return out + "]}\n";
}

std::string as_text(const char *name, _dovfiletype *p, const dov_type *type)
{
    const _dovfile &f = p->commonstuff;
    std::string out = name;
    out += ": type " + std::to_string(f.kw.filetype) + " (" + (type != nullptr ? type->title : "unknown") +
           "), machine " + std::to_string(f.machine) + " (" + machine_name(f.machine) + "), version " +
           std::to_string(f.kw.version) + "\n  reserved area " + std::to_string(f.kw.reservesize) +
           " bytes, type header " + std::to_string(f.kw.headsize) + " bytes, " + std::to_string(f.nelements) +
           " elements of " + std::to_string(f.kw.elementsize) + " bytes\nheader\n";
    for (const dov_field &field : type != nullptr ? type->header : std::span<const dov_field>()) {
        out += std::string("  ") + field.name + " ";
        append_field(out, dov_head(p), field, text_style::plain);
        out += '\n';
    }
    out += "keywords\n";
    for (const keyword &k : keywords_of(f, text_style::plain)) {
        constexpr std::array<const char *, 4> types = {"", " (integer) ", " (real) ", " (string) "};
        out += "  " + k.name + types[static_cast<std::size_t>(k.type)] + k.value + "\n";
    }
    return out;
}

} // namespace

int run_info(const command &self, arguments args)
{
    std::array options = {option{"json"}};
    std::vector<const char *> files;
    if (!parse_options(self, args, options, files))
        return status_bad_usage;
    if (files.size() != 1)
        return usage_error(self, "one file, please");
    const char *name = files[0];
    const dov_type *type = dov_type_of(dovfiletype(name));
    int code = 0;
    int headsize = 0;
    int elemsize = 0;
    // A container of an unknown type has keywords all the same.
    const file_handle p =
        type != nullptr ? open_file(name, "R", type) : file_handle(dovfileopen(name, &code, &headsize, &elemsize));
    if (p == nullptr)
        return type != nullptr ? status_bad_file : file_error(name, dovfileerror());
    put(options[0].given ? as_json(p.get(), type) : as_text(name, p.get(), type));
    return status_good;
}
