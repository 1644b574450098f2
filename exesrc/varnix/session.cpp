#include "session.h"

#include "dovsys/dovsys.h"
#include "print.h"

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

struct value_deleter {
    void operator()(sp_value *value) const { sp_free_value(value); }
};
using value_ptr = std::unique_ptr<sp_value, value_deleter>;

constexpr std::string_view white = " \t\n";

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(white), text.size());
    return text.substr(begin, text.find_last_not_of(white) + 1 - begin);
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '$' || c == '%' || c == '_';
}

void print(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fputc('\n', stdout);
}

constexpr std::string_view general_help =
    "A line is a formula, or NAME = FORMULA to define a variable.\n"
    "\n"
    "  1.5e3, \"text\", NAME          numbers, texts, variables and names\n"
    "  + - * /  ( )                  by precedence, from the left; on arrays for each element\n"
    "  ; comment                     behind NAME = FORMULA\n"
    "\n"
    "  :vars  :reset  :help NAME  :quit\n"
    "\n"
    "Functions:\n";

// A window of a long line around a place, with what a terminal would obey made visible.
constexpr std::size_t shown_before = 60;
constexpr std::size_t shown_length = 100;

bool continues(char c) // a character of several bytes
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

void show_place(std::string_view line, std::size_t place)
{
    std::size_t start = place > shown_before ? place - shown_before : 0;
    while (start > 0 && start < line.size() && continues(line[start]))
        --start;
    std::string shown(line.substr(start, shown_length));
    std::replace(shown.begin(), shown.end(), '\t', ' ');
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
    const std::string_view before = std::string_view(shown).substr(0, place - 1 - start);
    const auto columns =
        before.size() - static_cast<std::size_t>(std::count_if(before.begin(), before.end(), continues));
    std::fprintf(stderr, "    %s\n    %*s^\n", shown.c_str(), static_cast<int>(columns), "");
}

} // namespace

struct session::origin {
    const std::string &where;
    int number;
};

bool is_script_line(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return false;
    std::string_view name = trimmed(line.substr(0, equals));
    name.remove_prefix(name.starts_with('-'));
    return !name.empty() && is_letter(name.front()) &&
           std::all_of(name.begin(), name.end(), [](char c) { return is_letter(c) || is_digit(c); });
}

std::string session::json_answer(std::string_view line)
{
    if (!is_script_line(line)) {
        std::size_t place = 0;
        return json_of(*value_ptr(sp_eval_text(context, line, &place)));
    }
    const sp_line_result result = sp_script_line(context, line, 1);
    sp_err_flush(context);
    if (result.what == sp_line::failed)
        return json_error(result.message);
    if (result.what == sp_line::ignored)
        return R"({"ignored":true})";
    std::string answer = R"({"assigned":)";
    json_string(answer, result.name);
    return answer + '}';
}

void session::text_line(std::string_view line, const std::string &where, int number)
{
    const origin from = {where, number};
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (trimmed(line).empty())
        return;
    if (line.starts_with(':'))
        return command(trimmed(line), from);
    if (is_script_line(line)) {
        const sp_line_result result = sp_script_line(context, line, number);
        sp_err_flush(context);
        if (result.what == sp_line::failed)
            fault(line, from, result.message, result.place);
        return;
    }
    std::size_t place = 0;
    const value_ptr value(sp_eval_text(context, line, &place));
    if (value->type == sp_error)
        fault(line, from, value->string, place);
    else
        print(text_of(*value));
}

void session::fault(std::string_view line, const origin &from, std::string_view message, std::size_t place)
{
    any_failed = true;
    std::fflush(stdout); // both may go to one terminal or file
    std::fprintf(stderr, "varnix: %s%d: %.*s\n", from.where.c_str(), from.number, static_cast<int>(message.size()),
                 message.data());
    if (place > 0)
        show_place(line, place);
}

void session::command(std::string_view line, const origin &from)
{
    const std::size_t blank = std::min(line.find_first_of(white), line.size());
    const std::string_view name = line.substr(0, blank);
    const std::string_view rest = trimmed(line.substr(blank));
    if (name == ":help")
        help(rest, from);
    else if (name == ":vars" && rest.empty())
        list_variables();
    else if (name == ":reset" && rest.empty())
        sp_var_freelib(context);
    else if (name == ":quit" && rest.empty())
        quit = true;
    else
        fault(line, from, "Commands are :help [NAME], :vars, :reset and :quit.", 0);
}

void session::help(std::string_view name, const origin &from)
{
    if (name.empty()) {
        std::string text(general_help);
        for (const sp_function_row &row : sp_function_table())
            text.append("  ").append(row.help).append("\n");
        text.pop_back();
        print(text);
    } else if (const sp_function_row *row = sp_find_function(name)) {
        print(row->help + std::string("\nExample: ") + row->example + " gives " + row->gives);
    } else {
        fault(name, from, "No such function. Try :help.", 0);
    }
}

// The user's variables, if any, in a second table.
void session::list_variables()
{
    const jmalloc_ptr<char> program(sp_var_list(context, sp_program));
    const jmalloc_ptr<char> user(sp_var_list(context, sp_user));
    const std::string_view rows(user.get());
    std::fputs(program.get(), stdout);
    if (std::count(rows.begin(), rows.end(), '\n') > 2)
        std::printf("\n%s", user.get());
}
