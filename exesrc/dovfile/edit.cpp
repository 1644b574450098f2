// dovfile set and unset: keywords.

#include "dovfile/dovfile.h"

#include <cmath>
#include <cstring>

namespace {

constexpr std::size_t longest_name = 60;
constexpr std::size_t longest_string_item = 122; // name and string together

struct assignment {
    std::string name;
    std::string value;
    bool is_string;
};

// NAME=VALUE or NAME:s=VALUE.
bool parse_assignment(std::string_view text, assignment &parsed)
{
    const std::size_t equals = text.find('=');
    std::string_view name = text.substr(0, equals);
    parsed.is_string = name.ends_with(":s");
    if (parsed.is_string)
        name.remove_suffix(2);
    parsed.name = name;
    parsed.value = equals != text.npos ? text.substr(equals + 1) : "";
    return equals != text.npos && !name.empty() && name.size() <= longest_name;
}

// What a header field of numbers is set to; false when the text is no such number.
bool put_header_number(_dovfiletype *p, const dov_field &field, const std::string &text, int &code)
{
    const char *name = field.name;
    double real = 0;
    double stored = 0;
    std::int32_t integer = 0;
    if (field.form == dov_form::i4) {
        if (!parse_number(text, integer))
            return false;
        code = u_kwput_i(p, name, integer);
        return true;
    }
    if (!parse_number(text, real))
        return false;
    code = u_kwput_d(p, name, real);
    if (code == dov_ok)
        u_kwget_d(p, name, &stored);
    return code != dov_ok || stored == real || field.form == dov_form::f4 || std::isnan(stored);
}

int set_keyword(const char *file, _dovfiletype *p, const dov_type &type, const assignment &a)
{
    const dov_field *field = dov_find_keyword(type, a.name.c_str());
    std::int32_t integer = 0;
    double real = 0;
    int code = dov_ok;
    if (field != nullptr && field->form != dov_form::text) {
        if (!put_header_number(p, *field, a.value, code))
            return file_error(file, a.name + " cannot be " + a.value);
    } else if (!a.is_string && field == nullptr && parse_number(a.value, integer)) {
        code = u_kwput_i(p, a.name.c_str(), integer);
    } else if (!a.is_string && field == nullptr && parse_number(a.value, real)) {
        code = u_kwput_d(p, a.name.c_str(), real);
    } else {
        if (field == nullptr && a.name.size() + a.value.size() > longest_string_item)
            return file_error(file, a.name + ": name and text together are longer than 122 characters");
        code = u_kwput_s(p, a.name.c_str(), a.value.c_str());
    }
    if (code == -1)
        return file_error(file, a.name + " cannot be set: it is fixed, its text is empty, or there is no room for it");
    return code == dov_ok ? status_good : file_error(file, code);
}

int unset_keyword(const char *file, _dovfiletype *p, const dov_type & /*type*/, const std::string &name)
{
    return u_kwdelete(p, name.c_str()) == dov_ok ? status_good : file_error(file, name + " cannot be removed");
}

// Does something with each of the items, as long as that goes well.
template <typename T, typename action>
int edit(const char *file, const std::vector<T> &items, action act)
{
    const dov_type *type = nullptr;
    file_handle p = open_file(file, "U", type);
    if (p == nullptr)
        return status_bad_file;
    int status = status_good;
    for (std::size_t i = 0; i < items.size() && status == status_good; ++i)
        status = act(file, p.get(), *type, items[i]);
    const int code = dovfileclose(p.release());
    return code == dov_ok ? status : file_error(file, code);
}

} // namespace

int run_set(const command &self, arguments args)
{
    std::vector<const char *> rest;
    if (!parse_options(self, args, {}, rest))
        return status_bad_usage;
    std::vector<assignment> assignments(rest.empty() ? 0 : rest.size() - 1);
    for (std::size_t i = 0; i < assignments.size(); ++i) {
        if (!parse_assignment(rest[i + 1], assignments[i]))
            return usage_error(self, std::string("not NAME=VALUE: ") + rest[i + 1]);
    }
    if (assignments.empty())
        return usage_error(self, "nothing to set");
    return edit(rest[0], assignments, set_keyword);
}

int run_unset(const command &self, arguments args)
{
    std::vector<const char *> rest;
    if (!parse_options(self, args, {}, rest))
        return status_bad_usage;
    if (rest.size() < 2)
        return usage_error(self, "nothing to remove");
    return edit(rest[0], std::vector<std::string>(rest.begin() + 1, rest.end()), unset_keyword);
}
