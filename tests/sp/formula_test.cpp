#include "plain.h"

#include <gtest/gtest.h>

#include <map>

namespace {

std::string repeated(const std::string &text, std::size_t count)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

void define(sp_context *context)
{
    for (const char *line :
         {"X = 5", "A = SEQ(1, 2, 4, 8, 16)", "B = SEQ(2, 0.5, 3)", "S = \"4 m\"", "N = #NAME", "Z = RAMP(9, -1, 12)",
          "E = 1/0", "$D = 1", "A$B = 2", "%P = 3", "E0 = RAMP(1, 1, 0)", "A2345678901234567890123456789012 = 32"})
        sp_script_line(context, line, 1);
    sp_var_putval(context, "", sp_mk_scaler(1), sp_user);
}

constexpr const char *parser = "!Syntax error (parser).";
constexpr const char *in_number = "!Syntax error (in a number).";
constexpr const char *order = "!Syntax error: Operations out of order.";
constexpr const char *in_func = "!Syntax error (in %func).";

using rows = std::vector<std::pair<std::string, std::string>>;

// Formulas and values, divided by "|"; messages that occur often are words.
constexpr const char *table = R"~(
2+3*4 => 14 | 2*3+4 => 10 | (2+3)*4 => 20 | 8/4/2 => 1 | 8-4-2 => 2 | 8-2*3/4-1 => 5.5 |  => NULL | () => NULL |
5+() => 5 | ()/5 => 5 | ((( 7 ))) => 7 | 2 3 => !order | 2+*3 => !order | + => !order | +3 => !order |
3- => !order | (1)(2) => !order | X()X => !order | 2 3 $ => !order | 2 3 ! => !parser | 1/0 2 => !order |
(2 3)+( => !parser | 1/0+(2 3) => !zero | (2 3)+1/0 => !order |
1.5E3 => 1500 | 1.5e+03 => 1500 | 1.5E-3 => 0.0015 | 5. => 5 | .5 => 0.5 | 5.e1 => 50 | . => !number |
1E => !number | 1E+ => !number | 1.2.3 => !number | 1E5. => !number | 1E5E5 => !number | .E5 => !number |
1.5E1234 => !number | 1E999 => inf | 1E-999 => 0 | 3 - -2 => 5 | 3--2 => 5 | 2*-3 => -6 | 3---2 => !number |
-X => !number | -(1) => !number | - 1 => !number | --1 => !number | 2E3X => !order | 0x10 => !order |
"a(" => 'a(' | "" => '' | "a => !string | "a""b" => !order | "a"+1.5 => 'a1.5' | "a"-1.5 => 'a' |
1.5+"2x" => 3.5 | 1+"x" => 1 | 1/"x" => !zero | S+S+1/3+#Q => '4 m4 m0.3333333333Q' | S+A*2 => '4 m2' |
S+A/(A-A) => !zero | #Q+A/(A-A) => !zero | 2*S => 8 | Y => #Y | x => 5 | #X => #X | ## => ## | #( => #( |
# => # | (#)+1 => # | @ => #@ | @X => #@X | @(1) => !order | _a1+1 => #_a1 | N*2 => #NAME | X# => !order |
NEW#+1 => !order | A2345678901234567890123456789012 => 32 | A2345678901234567890123456789012XYZ => 32 |
B2345678901234567890123456789012XYZ => #B2345678901234567890123456789012 | N2$ => !order | $D => !parser |
1+$D => !parser | %P*2 => !parser | $Q => #$Q | A$B => !order | A$(1) => !func | %(1) => !func | X! => !parser |
1) => !parser | (1 => !parser | SIN(1 => !func | SIN (0) => !order |
sIn(0) => 0 | SEQ() => [0] | SEQ(1,,2) => [1 0 2] | SEQ(",)(",(1),SEQ(2,3)) => [0 1 2 3] | SEQ(1,2 3) => !order |
SEQ("()",1) => [0 1] | NPTS(A,1,S) => 7 | SIN(1,2 => !func | NONE(1) => !Unknown function. | NONE(1/0) => !zero |
SEQ(1,E,1/0) => !bad | ERRSTR(1/0) => 'Divide By Zero Error.' | ERRSTR(E)+1 => 'Bad Value1' |
ERRSTR(1,2) => !Wrong number of Arguments in ERRSTR. | SEQ(A*B-1,X/2) => [1 0 11 2.5] |
A+B => [3 2.5 7] | A+1 => [2 3 5 9 17] | 1-A => [0 -1 -3 -7 -15] | A*A*A => [1 8 64 512 4096] |
16/A/A => [16 4 1 0.25 0.0625] | X*(A+(1-B))*2 => [0 25 20] | A/0 => !zero | (Z/Z)+A => !zero | Z/Z => !zero |
A+1/0 => !zero | E+Z/Z => !bad | Z/Z+E => !zero | A+E => !bad | (A-1)*A/(A-1) => !zero | A/"" => !zero |
A*() => [1 2 4 8 16] | ()*(A+A) => [2 4 8 16 32] | 1+RAMP(1,1,1E9) => !Out of memory. | SIN(E0,1,2) => [] | E0/E0 => [] |
A*A+E0 => [] | (Z/Z)*E0 => !zero | A*A 1 => !order | (A+A)/(1E308*10-1E308*10) => !zero
)~";

std::string trimmed(const std::string &text)
{
    const std::size_t begin = std::min(text.find_first_not_of(" \n"), text.size());
    return text.substr(begin, text.find_last_not_of(" \n") + 1 - begin);
}

rows rows_of(const std::string &text)
{
    const std::map<std::string, std::string> messages = {{"!parser", parser},
                                                         {"!number", in_number},
                                                         {"!order", order},
                                                         {"!func", in_func},
                                                         {"!string", "!Syntax error (in string)."},
                                                         {"!zero", "!Divide By Zero Error."},
                                                         {"!bad", "!Bad Value"}};
    rows all;
    for (std::size_t begin = 0, end = 0; end < text.size(); begin = end + 1) {
        end = std::min(text.find('|', begin), text.size());
        const std::string item = text.substr(begin, end - begin);
        const std::size_t middle = item.find("=> ");
        const std::string value = trimmed(item.substr(middle + 3));
        all.emplace_back(trimmed(item.substr(0, middle)), messages.contains(value) ? messages.at(value) : value);
    }
    return all;
}

TEST(Formulas, HaveTheirValues)
{
    const own_context context;
    define(context);
    const std::string digits(40, '1');
    rows all = rows_of(table);
    all.insert(all.end(),
               {{" \t\n", "NULL"},
                {digits, "1.1111111111111112e+39"},
                {digits + "1", in_number},
                {digits + ".", "1.1111111111111112e+39"},
                {"." + digits + "2", in_number},
                {"X\r", parser},
                {"\x80", parser},
                {"A*B+A*2-A/B", "[3.5 1 " + number(20 - 4.0 / 3) + "]"},
                {"A/Z", "[" + number(1.0 / 9) + " 0.25 " + number(4.0 / 7) + " " + number(8.0 / 6) + " 3.2]"}});
    for (const auto &[formula, expected] : all) {
        EXPECT_EQ(told(sp_eval_formula(context, formula.c_str())), expected) << formula;
        EXPECT_EQ(told(*plain_formula(context, formula)), expected) << formula << " by the rules one by one";
    }
    EXPECT_EQ(told(sp_eval_formula(context, nullptr)), "NULL");
    std::size_t place = 0;
    for (const auto &[text, at] : {std::pair{std::string("1+\0", 3), 3U},
                                   {std::string("\"\0\"", 3), 1U},
                                   {"2+(3 !)", 6},
                                   {"SEQ(1,2 3)*2", 9},
                                   {"1/0", 0},
                                   {"2+", 3},
                                   {"ERRSTR(1!)+!", 12}}) {
        sp_free_value(sp_eval_text(context, text, &place));
        EXPECT_EQ(place, at) << text;
    }
    for (const auto &[args, expected] : {std::pair{"1,2", "[1 2]"},
                                         {"", "[0]"},
                                         {"1,2)", "!Syntax Error in function call."},
                                         {"\"1", "!Syntax Error in function call."},
                                         {"(1,2", parser},
                                         {"(1,\"2", "!Syntax Error in function call."},
                                         {"(1", parser}})
        EXPECT_EQ(told(sp_eval_function(context, "seq", args)), expected) << args;
    for (const sp_function_row &function : sp_function_table())
        EXPECT_EQ(sp_find_function(function.name), &function);
    EXPECT_EQ(sp_function(context, "SIN", nullptr, 0)->type, sp_error);
}

TEST(Tokens, CarryTheirTexts)
{
    const own_context context;
    define(context);
    const std::unique_ptr<sp_parse_state, parse_deleter> state(
        sp_parse_init(context, " X+(1*\")\")/sin(2,(3))-\"t\"-#ab"));
    std::string all;
    for (int type = 0; type != sp_tok_end;) {
        const std::unique_ptr<parse_token, token_deleter> token(sp_parse_gettoken(state.get()));
        type = token->type;
        all += std::to_string(type) + token->name + "{" + token->formula + "}" +
               (token->val != nullptr ? told(*token->val) : "") + " ";
    }
    EXPECT_EQ(all, "7X{} 1{} 5{1*\")\"} 4{} 6sin{2,(3)} 2{} 8{}'t' 2{} 8{}#ab 10{} ");
}

// Random sequences of tokens, as evaluated by the rules one by one.
TEST(Formulas, AgreeWithTheRulesTakenLiterally)
{
    const own_context context;
    define(context);
    const char *pieces[] = {"A",        "B",   "Z",  "2",     "S", "#N", "()", "(A*B)", "(Z-5)",
                            "SEQ(A,2)", "1/0", "E0", "\"t\"", "(", ")",  ",",  "-",     "$D"};
    std::uint32_t seed = 1;
    const auto random = [&](std::uint32_t n) { return (seed = seed * 1664525U + 1013904223U) / 65536 % n; };
    for (int i = 0; i < 20000; ++i) {
        std::string formula;
        for (std::uint32_t terms = 1 + random(i % 100 == 0 ? 90 : 7); terms-- > 0;) {
            const bool open = random(4) == 0;
            formula += open ? "(" : "";
            formula += pieces[random(random(8) == 0 ? 18 : 10)];
            formula += open && random(8) != 0 ? ")" : "";
            formula += terms > 0 || random(20) == 0 ? std::string(1, "+-*/"[random(4)]) : "";
        }
        ASSERT_EQ(told(sp_eval_formula(context, formula.c_str())), told(*plain_formula(context, formula))) << formula;
    }
}

TEST(Formulas, OfAnyDepthAndLengthTakeLinearTime)
{
    const own_context context;
    define(context);
    constexpr std::size_t deep = 250000;
    using row = std::pair<std::string, std::string>;
    for (const auto &[formula, expected] :
         {row{repeated("(", deep) + "7" + repeated(")", deep), "7"},
          {repeated("1+(", deep) + "1" + repeated(")", deep), "250001"},
          {repeated("SEQ(", deep) + "7" + repeated(")", deep), "[7]"},
          {repeated("ERRSTR(", deep) + "7 7" + repeated(")", deep), "'" + std::string(order + 1) + "'"},
          {repeated("A*1+(", deep) + "0" + repeated(")", deep), "[250000 5e+05 1e+06 2e+06 4e+06]"},
          {repeated("(", deep), parser},
          {repeated("SIN(", deep), in_func},
          {repeated(")", deep), parser},
          {repeated("+", deep), order},
          {repeated("-", deep), in_number},
          {repeated("$A", deep), order},
          {repeated("(\"", deep), parser},
          {repeated("(#\"", deep) + repeated(")", deep), parser},
          {repeated("SEQ(#\"", deep) + repeated(")", deep), parser},
          {repeated("\"a\"+", deep) + "\"\"", "'" + repeated("a", deep) + "'"},
          {repeated("B+", deep) + "B", "[500002 125000.5 750003]"},
          {"NPTS(" + repeated("A*B,", deep) + "1)", "750001"},
          {std::string((1U << 25) + 1, ' '), parser}}) {
        const std::string said = told(sp_eval_formula(context, formula.c_str()));
        EXPECT_TRUE(said == expected) << formula.substr(0, 20) << ": " << said.substr(0, 100);
    }
}

TEST(Scripts, FollowTheRulesOfLines)
{
    const own_context context;
    using row = std::tuple<const char *, sp_line, const char *, std::size_t, const char *>;
    for (const auto &[line, what, name, place, value] :
         {row{" x = 2*3 ; = 4", sp_line::assigned, "x", 0U, "6"}, row{"-x=7", sp_line::assigned, "x", 0, "7"},
          row{"- x=8\n9", sp_line::assigned, "x", 0, "8"}, row{"S=\"a;b\";c", sp_line::assigned, "S", 0, "'a;b'"},
          row{"x=", sp_line::ignored, "", 0, ""}, row{"x ;=1", sp_line::ignored, "", 0, ""},
          row{"#x=1", sp_line::ignored, "", 0, ""}, row{"", sp_line::ignored, "", 0, ""},
          row{"Y = 1 =", sp_line::failed, "Y", 7, "!Bad Value"}, row{"Y = 1/0", sp_line::failed, "Y", 0, "!Bad Value"},
          row{"PI = 1", sp_line::failed, "PI", 0, "3.141592654"},
          row{" C = 1 2", sp_line::failed, "C", 8, "299792500"}}) {
        const sp_line_result result = sp_script_line(context, line, 12);
        EXPECT_EQ(result.what, what) << line;
        EXPECT_EQ(result.name, name) << line;
        EXPECT_EQ(result.place, place) << line;
        EXPECT_EQ(*value != '\0' ? told(*sp_var_getval(context, name)) : "", value) << line;
    }
    EXPECT_STREQ(sp_err_get(context),
                 "Error (line 12): Syntax error (parser).\nError (line 12): Divide By Zero Error.\n"
                 "Error (line 12): Cannot redefine variable provided by program.\nError (line 12): Syntax error: "
                 "Operations out of order.\n"
                 "Error (line 12): Cannot redefine variable provided by program.\n");
}

} // namespace
