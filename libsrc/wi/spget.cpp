#include "wi/spget.h"

#include "dovsys/dovsys.h"
#include "wi/spconvert.h"
#include "wi/spnumber.h"
#include "wi/spvar.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <span>

namespace {

struct word_code {
    const char *word;
    int code;
};

constexpr word_code thicknesses[] = {{"normal", 0}, {"bold", 2}, {"superbold", 3}, {"ultrabold", 5}};
constexpr word_code colors[] = {{"foreground", 1}, {"background", 0}, {"white", 0},  {"black", 1},    {"red", 2},
                                {"blue", 3},       {"green", 4},      {"yellow", 5}, {"purple", 6},   {"brown", 7},
                                {"pink", 8},       {"orange", 9},     {"cyan", 10},  {"magenta", 11}, {"turquoise", 12},
                                {"salmon", 13},    {"gray", 14}};
constexpr word_code linetypes[] = {
    {"solid", 0},      {"dash", 1},        {"longdash", 2},       {"dotdash", 3},      {"dot", 4},
    {"dotdotdash", 5}, {"dashdashdot", 6}, {"dashdashdotdot", 7}, {"dashlongdash", 8}, {"dotdashlongdash", 9}};
constexpr word_code curvetypes[] = {{"line", 0}, {"xscat", 1}, {"yscat", 2}, {"breakpoints", 3}, {"spot", 4}};

struct vocabulary {
    std::span<const word_code> words;
    int unknown;
    int last;
    bool keeps_nearest; // of a code beyond
};

constexpr vocabulary of_thickness = {thicknesses, 0, 9, true};
constexpr vocabulary of_color = {colors, 1, 15, false};
constexpr vocabulary of_linetype = {linetypes, 0, 9, false};
constexpr vocabulary of_curvetype = {curvetypes, 0, 4, false};

int find(const vocabulary &words, const char *word)
{
    for (const word_code &row : words.words)
        if (c_iseqx(row.word, word) != 0)
            return row.code;
    return words.unknown;
}

const char *word_of(const vocabulary &words, int code)
{
    for (const word_code &row : words.words)
        if (row.code == code)
            return row.word;
    return nullptr;
}

// Null when the variable does not exist.
const sp_value *existing(sp_context *context, const char *name)
{
    const sp_value *val = sp_var_getval(context, name);
    return val->type != sp_null ? val : nullptr;
}

bool is_number(const sp_value &val)
{
    return val.type == sp_array || val.type == sp_scaler;
}

double number_of(const sp_value &val)
{
    switch (val.type) {
    case sp_array:
        return val.npts > 0 ? val.ary[0] : 0;
    case sp_scaler:
        return val.scaler;
    case sp_string:
        return sp_read_number(val.string);
    default:
        return 0;
    }
}

// Null for a value that is no word.
const char *word_of(const sp_value &val)
{
    return val.type == sp_string ? val.string : val.type == sp_ename ? val.ename : nullptr;
}

int whole_number(const char *text)
{
    const long long number = std::strtoll(text, nullptr, 10);
    return static_cast<int>(
        std::clamp<long long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int code_of_number(const vocabulary &words, double number)
{
    const double code = std::trunc(number + 0.5);
    if (code >= 0 && code <= words.last)
        return static_cast<int>(code);
    return !words.keeps_nearest || !(code > 0) ? words.unknown : words.last;
}

int get_code(sp_context *context, const char *name, const vocabulary &words, std::int32_t *target)
{
    const sp_value *val = existing(context, name);
    if (val == nullptr)
        return 0;
    if (is_number(*val))
        *target = code_of_number(words, number_of(*val));
    else if (const char *word = word_of(*val))
        *target = find(words, word);
    return 1;
}

template <class Better>
double extreme(const sp_value *val, Better better)
{
    double best = std::numeric_limits<double>::quiet_NaN();
    if (val == nullptr || val->type != sp_array)
        return val != nullptr && val->type == sp_scaler ? val->scaler : best;
    for (int i = 0; i < val->npts; ++i)
        if (std::isfinite(val->ary[i]) && !better(best, val->ary[i]))
            best = val->ary[i];
    return best;
}

} // namespace

int s_get_int(sp_context *context, const char *name, std::int32_t *target)
{
    const sp_value *val = existing(context, name);
    if (val != nullptr)
        *target = val->type == sp_string ? whole_number(val->string) : bestint(number_of(*val));
    return val != nullptr ? 1 : 0;
}

int s_get_double(sp_context *context, const char *name, double *target)
{
    const sp_value *val = existing(context, name);
    if (val != nullptr)
        *target = number_of(*val);
    return val != nullptr ? 1 : 0;
}

int s_get_float(sp_context *context, const char *name, float *target)
{
    auto number = static_cast<double>(*target);
    const int exists = s_get_double(context, name, &number);
    *target = static_cast<float>(number);
    return exists;
}

int s_get_string(sp_context *context, const char *name, char **target)
{
    const sp_value *val = existing(context, name);
    if (val == nullptr)
        return 0;
    sp_value *text = sp_convert(context, val, sp_string);
    if (text->type == sp_string) {
        jfree(*target);
        *target = c_mkstr(text->string);
    }
    sp_free_value(text);
    return 1;
}

int s_get_fstring(sp_context *context, const char *name, char *target, int width)
{
    char *text = nullptr;
    const int exists = s_get_string(context, name, &text);
    const jmalloc_ptr<char> owned(text);
    if (text != nullptr)
        c_strncpy(target, text, width + 1);
    return exists;
}

int s_get_yesno(sp_context *context, const char *name, std::int32_t *target)
{
    const sp_value *val = existing(context, name);
    if (val == nullptr)
        return 0;
    if (is_number(*val))
        *target = number_of(*val) != 0 ? 1 : 0;
    else if (const char *word = word_of(*val))
        *target = c_iseqx(word, "YES") != 0 || c_iseqx(word, "TRUE") != 0 ? 1 : 0;
    return 1;
}

int s_get_thick(sp_context *context, const char *name, std::int32_t *target)
{
    return get_code(context, name, of_thickness, target);
}

int s_get_color(sp_context *context, const char *name, std::int32_t *target)
{
    return get_code(context, name, of_color, target);
}

int s_get_linetype(sp_context *context, const char *name, std::int32_t *target)
{
    return get_code(context, name, of_linetype, target);
}

int s_get_curvetype(sp_context *context, const char *name, std::int32_t *target)
{
    return get_code(context, name, of_curvetype, target);
}

int s_find_thick(const char *word)
{
    return find(of_thickness, word);
}

int s_find_color(const char *word)
{
    return find(of_color, word);
}

int s_find_linetype(const char *word)
{
    return find(of_linetype, word);
}

int s_find_curvetype(const char *word)
{
    return find(of_curvetype, word);
}

const char *s_thick_word(int code)
{
    return word_of(of_thickness, code);
}

const char *s_color_word(int code)
{
    return word_of(of_color, code);
}

const char *s_linetype_word(int code)
{
    return word_of(of_linetype, code);
}

const char *s_curvetype_word(int code)
{
    return word_of(of_curvetype, code);
}

double s_max(const sp_value *val)
{
    return extreme(val, [](double best, double element) { return best >= element; });
}

double s_min(const sp_value *val)
{
    return extreme(val, [](double best, double element) { return best <= element; });
}
