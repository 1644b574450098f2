#include "wi/spparse.h"

#include "dovsys/dovsys.h"
#include "wi/splexer.h"
#include "wi/spname.h"
#include "wi/spnumber.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

constexpr std::int32_t lst_operator = 1; // of a state's lsttype
constexpr std::int32_t lst_operand = 2;

constexpr const char *parser_fault = "Syntax error (parser).";
constexpr const char *number_fault = "Syntax error (in a number).";

// What a character can begin, or be part of.
enum character : std::uint8_t {
    other,
    blank,
    number_part, // a digit or "."
    letter,      // or "_"
    name_sign,   // "$" and "%"
    ename_sign,  // "#" and "@"
    quote,
    bracket,
    plus,
    minus,
    times,
    divide,
};

constexpr auto characters = [] {
    std::array<character, 256> table{};
    const auto set = [&](std::string_view chars, character c) {
        for (const char each : chars)
            table[static_cast<unsigned char>(each)] = c;
    };
    set(" \t\n", blank);
    set("0123456789.", number_part);
    set("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_", letter);
    set("$%", name_sign);
    set("#@", ename_sign);
    set("\"", quote);
    set("(", bracket);
    set("+", plus);
    set("-", minus);
    set("*", times);
    set("/", divide);
    return table;
}();

character kind_of(char c)
{
    return characters[static_cast<unsigned char>(c)];
}

bool in_name(char c)
{
    const character kind = kind_of(c);
    return kind == letter || (kind == number_part && c != '.');
}

bool in_wide_name(char c)
{
    return in_name(c) || kind_of(c) == name_sign;
}

// The machine that reads numbers: from each state, where a sign, a point, a digit and an exponent mark lead.
enum number_state : std::int8_t { start, sign, integer, point, fraction, mark, mark_sign, exponent, stop, bad };
constexpr std::array<std::array<number_state, 4>, 8> number_machine = {{
    {sign, point, integer, bad},     // start
    {stop, point, integer, bad},     // sign
    {stop, point, integer, mark},    // integer
    {stop, bad, fraction, mark},     // point
    {stop, bad, fraction, mark},     // fraction
    {mark_sign, bad, exponent, bad}, // mark
    {stop, bad, exponent, bad},      // mark_sign
    {stop, bad, exponent, bad},      // exponent
}};
constexpr int most_digits = 40; // of the mantissa
constexpr int most_exponent_digits = 3;

number_state follow(number_state state, char c)
{
    const auto &from = number_machine[static_cast<std::size_t>(state)];
    if (c >= '0' && c <= '9')
        return from[2];
    if (c == '+' || c == '-')
        return from[0];
    if (c == '.')
        return from[1];
    return c == 'E' || c == 'e' ? from[3] : stop;
}

char *make_string(std::string_view text)
{
    char *copy = c_mkstrn(static_cast<int>(text.size()) + 1);
    text.copy(copy, text.size());
    return copy;
}

} // namespace

void sp_match_brackets(std::string_view text, std::uint32_t *matches)
{
    // The brackets that are open, behind an even and an odd number of quotes: each holds the one before it.
    std::array<std::uint32_t, 2> open = {sp_no_match, sp_no_match};
    std::size_t odd = 0;
    for (std::size_t i = std::min(text.find('('), text.size()); i < text.size(); ++i) {
        const auto place = static_cast<std::uint32_t>(i);
        if (text[i] == '(') {
            matches[i] = open[odd];
            open[odd] = place;
        } else if (text[i] == ')' && open[odd] != sp_no_match) {
            const std::uint32_t opened = open[odd];
            open[odd] = matches[opened];
            matches[opened] = place;
        } else if (text[i] == '"') {
            odd ^= 1;
        }
    }
    for (std::uint32_t left : open)
        while (left != sp_no_match)
            left = std::exchange(matches[left], sp_no_match);
}

void sp_lexer::skip_blanks()
{
    while (at < end && kind_of(text[at]) == blank)
        ++at;
}

std::uint32_t sp_lexer::match(std::uint32_t open) const
{
    if (matches != nullptr)
        return matches[open] < end ? matches[open] : sp_no_match;
    std::uint32_t depth = 0;
    for (std::size_t i = open; i < end; ++i) {
        if (text[i] == '(')
            ++depth;
        else if (text[i] == ')' && --depth == 0)
            return static_cast<std::uint32_t>(i);
        else if (text[i] == '"')
            i = std::min<std::size_t>(text.find('"', i + 1), end);
    }
    return sp_no_match;
}

std::string_view sp_lexer::scan_name()
{
    const std::uint32_t start = at;
    while (at < end && in_name(text[at]))
        ++at;
    return from(start).substr(0, sp_name_length);
}

std::int32_t sp_lexer::error(const char *message)
{
    fault = message;
    return sp_tok_error;
}

std::int32_t sp_lexer::next(bool after_operand)
{
    if (at == end)
        return sp_tok_end;
    const character kind = kind_of(text[at]);
    switch (kind) {
    case number_part:
        return parse_num();
    case letter:
    case name_sign:
    case ename_sign:
        return parse_name();
    case quote:
        return parse_string();
    case bracket:
        return parse_brackets();
    case minus:
        if (!after_operand)
            return parse_num();
        ++at;
        return sp_tok_minus;
    case plus:
        ++at;
        return sp_tok_plus;
    case times:
        ++at;
        return sp_tok_times;
    case divide:
        ++at;
        return sp_tok_divide;
    default:
        return error(parser_fault);
    }
}

// At a fault the cursor stays there.
std::int32_t sp_lexer::parse_num()
{
    const std::uint32_t begin = at;
    number_state state = start;
    int digits = 0;
    int exponent_digits = 0;
    for (; at < end; ++at) {
        const number_state next = follow(state, text[at]);
        if (next == stop)
            break;
        digits += next == integer || next == fraction;
        exponent_digits += next == exponent;
        state = next;
        if (next == bad || (next == mark && digits == 0) || digits > most_digits ||
            exponent_digits > most_exponent_digits)
            return error(number_fault);
    }
    if (digits == 0 || state == mark || state == mark_sign)
        return error(number_fault);
    literal = sp_scaler;
    number = sp_read_number(from(begin));
    return sp_tok_literal;
}

// A text that holds a NUL could not be kept whole.
std::int32_t sp_lexer::parse_string()
{
    const std::size_t close = text.substr(0, end).find('"', at + 1);
    word = text.substr(at + 1, close - at - 1);
    if (close == std::string_view::npos || word.find('\0') != std::string_view::npos)
        return error("Syntax error (in string).");
    at = static_cast<std::uint32_t>(close) + 1;
    literal = sp_string;
    return sp_tok_literal;
}

// From the "(" at the cursor past its ")"; false when there is none.
bool sp_lexer::pass_brackets()
{
    const std::uint32_t close = match(at);
    if (close == sp_no_match)
        return false;
    inner = text.substr(at + 1, close - at - 1);
    at = close + 1;
    return true;
}

std::int32_t sp_lexer::parse_brackets()
{
    return pass_brackets() ? sp_tok_bracket : error(parser_fault);
}

// What a name is, is told by the character behind it, then by the variables.
std::int32_t sp_lexer::parse_name()
{
    std::uint32_t behind = std::max(at, name_end);
    while (behind < end && in_wide_name(text[behind]))
        ++behind;
    name_end = behind;
    if (behind < end && text[behind] == '(')
        return parse_func();
    const std::string_view name = text.substr(at, std::min<std::uint32_t>(behind - at, sp_name_length));
    if (name.empty() || (behind < end && text[behind] == '#'))
        return parse_ename();
    sp_init_vlib(context);
    const int index = sp_find_name(context->vlib, name);
    return index < 0 ? parse_ename() : parse_var(name, context->vlib->vals[index]);
}

std::int32_t sp_lexer::parse_var(std::string_view known, const sp_value *known_value)
{
    word = scan_name();
    if (word.empty())
        return error(parser_fault); // the name begins with "$" or "%"
    value = known_value;
    if (word.size() != known.size()) {
        const int index = sp_find_name(context->vlib, word);
        value = index < 0 ? nullptr : context->vlib->vals[index];
    }
    return sp_tok_variable;
}

std::int32_t sp_lexer::parse_func()
{
    word = scan_name();
    return is_at('(') && pass_brackets() ? sp_tok_function : error("Syntax error (in %func).");
}

// Takes the first character behind a leading "#" whatever it is.
std::int32_t sp_lexer::parse_ename()
{
    at += is_at('#');
    const std::uint32_t begin = at;
    at += at < end;
    while (at < end && in_name(text[at]))
        ++at;
    literal = sp_ename;
    word = from(begin).substr(0, sp_name_length);
    return sp_tok_literal;
}

sp_value *sp_lexer::literal_value() const
{
    if (literal == sp_scaler)
        return sp_mk_scaler(number);
    sp_value *made = sp_get_blank_value();
    made->type = literal;
    if (literal == sp_ename)
        word.copy(made->ename, sp_name_length);
    else
        made->string = make_string(word);
    return made;
}

sp_parse_state *sp_parse_init(sp_context *context, const char *str)
{
    auto *state = static_cast<sp_parse_state *>(jmalloc(sizeof(sp_parse_state)));
    state->context = context;
    state->str = state->ptr = c_mkstr(str != nullptr ? str : "");
    state->end = state->str + std::strlen(state->str);
    state->lsttype = lst_operator;
    return state;
}

parse_token *sp_parse_gettoken(sp_parse_state *state)
{
    const std::string_view text(state->ptr, static_cast<std::size_t>(state->end - state->ptr));
    sp_lexer lexer(state->context, text, nullptr);
    lexer.skip_blanks();
    auto *token = static_cast<parse_token *>(jmalloc(sizeof(parse_token)));
    token->type = lexer.next(state->lsttype == lst_operand);
    state->ptr += lexer.at;
    state->lsttype = token->type <= sp_tok_divide ? lst_operator : lst_operand;
    if (token->type == sp_tok_function || token->type == sp_tok_variable)
        lexer.word.copy(token->name, sp_name_length);
    if (token->type == sp_tok_literal)
        token->val = lexer.literal_value();
    const bool brackets = token->type == sp_tok_bracket || token->type == sp_tok_function;
    token->formula = make_string(brackets ? lexer.inner : token->type == sp_tok_error ? lexer.fault : "");
    return token;
}

void sp_parse_free(sp_parse_state *state)
{
    if (state == nullptr)
        return;
    jfree(state->str);
    jfree(state);
}

void sp_parse_free_token(parse_token *token)
{
    if (token == nullptr)
        return;
    jfree(token->formula);
    sp_free_value(token->val);
    jfree(token);
}
