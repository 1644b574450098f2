#include "wi/spscript.h"

#include "dovsys/dovsys.h"
#include "wi/speval.h"
#include "wi/spvar.h"

#include <algorithm>

namespace {

constexpr std::string_view white = " \t\n";

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(white), text.size());
    return text.substr(begin, text.find_last_not_of(white) + 1 - begin);
}

std::string_view without_comment(std::string_view line)
{
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == ';' && !quoted)
            return line.substr(0, i);
        quoted ^= line[i] == '"';
    }
    return line;
}

void fail(sp_context *context, sp_line_result &result, const char *message, int number)
{
    if (result.what != sp_line::failed)
        result.message = message;
    result.what = sp_line::failed;
    const std::string line = "Error (line " + std::to_string(number) + "): " + message;
    sp_err_add(context, line.c_str());
}

} // namespace

sp_line_result sp_script_line(sp_context *context, std::string_view line, int number)
{
    sp_line_result result;
    std::string_view rest = trimmed(without_comment(line.substr(0, line.find('\n'))));
    if (rest.starts_with('#'))
        return result;
    const bool is_protected = rest.starts_with('-');
    rest.remove_prefix(is_protected);
    const std::size_t equals = rest.find('=');
    const std::string_view formula = trimmed(rest.substr(std::min(equals + 1, rest.size())));
    if (equals == std::string_view::npos || formula.empty())
        return result;
    result.what = sp_line::assigned;
    result.name = trimmed(rest.substr(0, equals));
    sp_value *value = sp_eval_text(context, formula, &result.place);
    if (value->type == sp_error) {
        fail(context, result, value->string, number);
        result.place += result.place > 0 ? static_cast<std::size_t>(formula.data() - line.data()) : 0;
        sp_free_value(value);
        value = sp_mk_error("Bad Value");
    }
    const char *refusal = sp_var_putval(context, result.name.c_str(), value, is_protected ? sp_system : sp_user);
    if (refusal != nullptr)
        fail(context, result, refusal, number);
    return result;
}
