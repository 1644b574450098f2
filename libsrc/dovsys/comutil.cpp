#include "dovsys/comutil.h"
#include "dovsys/basicstr.h"
#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

template <typename T>
T *make_array(int n)
{
    return n < 1 ? nullptr : static_cast<T *>(jmalloc_bytes(static_cast<std::size_t>(n) * sizeof(T)));
}

template <typename T>
T *copy_array(const T *source, int n)
{
    T *copy = source != nullptr ? make_array<T>(n) : nullptr;
    if (copy != nullptr)
        std::copy_n(source, n, copy);
    return copy;
}

char *make_string(std::string_view text)
{
    auto *copy = static_cast<char *>(jmalloc_bytes(text.size() + 2));
    text.copy(copy, text.size());
    return copy;
}

// How characters are seen by a comparison.
using fold = char (*)(char);

char exact(char c)
{
    return c;
}

int is_abbreviation(const char *keyword, const char *typed, char marker, fold seen)
{
    bool enough = false;
    while (true) {
        if (!enough && *keyword != '\0' && *keyword == marker) {
            enough = true;
            ++keyword;
        } else if (*typed == '\0') {
            return enough || *keyword == '\0' ? 1 : 0;
        } else if (seen(*keyword) != seen(*typed)) {
            return 0;
        } else {
            ++keyword;
            ++typed;
        }
    }
}

// Only the last star needs to be tried again further on: what an earlier one could give it by taking more is a shorter
// rest. And once s is at its end, taking more does not help any star.
int matches(const char *t, const char *s, fold seen)
{
    const char *after_star = nullptr;
    const char *retry = nullptr;
    while (*s != '\0') {
        if (*t == '*') {
            after_star = ++t;
            retry = s;
            if (*t == '\0')
                return 1;
        } else if (*t == '?' || (*t != '\0' && seen(*t) == seen(*s))) {
            ++t;
            ++s;
        } else if (after_star != nullptr) {
            t = after_star;
            s = ++retry;
        } else {
            return 0;
        }
    }
    return *t == '\0' ? 1 : 0;
}

int locate(const char *const *slst, const char *str, int (*equal)(const char *, const char *))
{
    if (slst == nullptr)
        return -1;
    for (int i = 0; slst[i] != nullptr; ++i) {
        if (equal(slst[i], str) != 0)
            return i;
    }
    return -1;
}

bool is_separator(char c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

struct word {
    const char *begin;
    const char *end; // its separator or the NUL
};

// The first word at or after text; empty when there is none.
word next_word(const char *text)
{
    while (is_separator(*text))
        ++text;
    const char *end = text;
    for (bool quoted = false; *end != '\0' && (quoted || !is_separator(*end)); ++end)
        quoted ^= *end == '"';
    return {text, end};
}

constexpr int first_words = 10;

// The capacity that c_addlistgrow() would leave a list of so many words that started with 10.
int words_capacity(int words)
{
    return words < first_words - 1 ? first_words : (words - 1) / 2 * 2 + 4;
}

// A digit stays behind the point.
std::string_view without_trailing_zeros(std::string_view number)
{
    const std::size_t last = number.find_last_not_of('0');
    const std::size_t kept = last + (number[last] == '.' ? 2 : 1);
    return number.substr(0, kept);
}

// Ten results, used in turn. The first one used is the second.
template <std::size_t size>
struct result_ring {
    static constexpr std::size_t count = 10;
    std::array<std::array<char, size>, count> slots{};
    std::size_t current = 0;

    // Joins both texts, cut to so many characters.
    const char *put(std::string_view text, std::string_view more, std::size_t most)
    {
        current = (current + 1) % count;
        char *slot = slots[current].data();
        std::size_t length = text.copy(slot, most);
        length += more.copy(slot + length, most - length);
        slot[length] = '\0';
        return slot;
    }
};

result_ring<30> double_results;
result_ring<30> float_results;
result_ring<20> int_results;

const char *format_number(result_ring<30> &results, double value, int fixed_decimals, int exponent_decimals)
{
    constexpr std::size_t most = 29;
    if (value == 0)
        return results.put("0.0", {}, most);
    if (!std::isfinite(value))
        return results.put(std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf", {}, most);
    const double magnitude = std::fabs(value);
    const bool fixed = 1e-6 <= magnitude && magnitude <= 1e6;
    std::array<char, 40> buffer;
    const int length = fixed ? std::snprintf(buffer.data(), buffer.size(), "%.*f", fixed_decimals, value)
                             : std::snprintf(buffer.data(), buffer.size(), "%.*e", exponent_decimals, value);
    std::replace(buffer.begin(), buffer.begin() + length, ',', '.');
    const std::string_view text(buffer.data(), static_cast<std::size_t>(length));
    const std::size_t exponent = std::min(text.find('e'), text.size());
    return results.put(without_trailing_zeros(text.substr(0, exponent)), text.substr(exponent), most);
}

} // namespace

char *c_mkstr(const char *str)
{
    return str != nullptr ? make_string(str) : nullptr;
}

char *c_cpstr(const char *str)
{
    return c_mkstr(str);
}

char *c_mkstrn(int n)
{
    return make_array<char>(n);
}

double *c_mkdary(int n)
{
    return make_array<double>(n);
}

double *c_cpdary(const double *d, int n)
{
    return copy_array(d, n);
}

float *c_mkfary(int n)
{
    return make_array<float>(n);
}

float *c_cpfary(const float *f, int n)
{
    return copy_array(f, n);
}

int *c_mkiary(int n)
{
    return make_array<int>(n);
}

int *c_cpiary(const int *ia, int n)
{
    return copy_array(ia, n);
}

char **c_mklist(int n)
{
    return make_array<char *>(n);
}

int c_listlen(const char *const *slst)
{
    int length = 0;
    while (slst != nullptr && slst[length] != nullptr)
        ++length;
    return length;
}

char **c_growlist(char **slst, int n)
{
    if (slst == nullptr)
        return c_mklist(n);
    const int length = c_listlen(slst);
    if (n <= length)
        return slst;
    auto **grown = static_cast<char **>(jrealloc_bytes(slst, static_cast<std::size_t>(n) * sizeof(char *)));
    std::fill(grown + length, grown + n, nullptr);
    return grown;
}

void c_addlist(char **slst, const char *str)
{
    if (slst != nullptr)
        c_mvtolist(slst, c_mkstr(str));
}

void c_mvtolist(char **slst, char *sptr)
{
    if (slst != nullptr)
        slst[c_listlen(slst)] = sptr;
}

char **c_addlistgrow(char **slst, const char *sptr, int *mn)
{
    const int length = c_listlen(slst);
    if (slst == nullptr) {
        *mn = std::max(*mn, 4);
        slst = c_mklist(*mn);
    } else if (length + 2 >= *mn) {
        *mn = length + 4;
        slst = c_growlist(slst, *mn);
    }
    slst[length] = c_mkstr(sptr);
    return slst;
}

char **c_mvtolistgrow(char **slst, char *sptr, int *mn)
{
    if (slst == nullptr)
        return nullptr;
    const int length = c_listlen(slst);
    if (length + 2 >= *mn) {
        *mn = std::max(*mn + 10, length + 2); // a figure that was too small still leaves room for the end
        slst = c_growlist(slst, *mn);
    }
    slst[length] = sptr;
    return slst;
}

void c_freelist(char **slst)
{
    for (int i = 0; slst != nullptr && slst[i] != nullptr; ++i)
        jfree(slst[i]);
    jfree(slst);
}

int c_locinlist(const char *const *slst, const char *str)
{
    return locate(slst, str, c_iseq);
}

int c_locinlistx(const char *const *slst, const char *str)
{
    return locate(slst, str, c_iseqx);
}

int c_isinlist(const char *const *slst, const char *str)
{
    return c_locinlist(slst, str) >= 0 ? 1 : 0;
}

int c_isinlistx(const char *const *slst, const char *str)
{
    return c_locinlistx(slst, str) >= 0 ? 1 : 0;
}

int c_iseq(const char *s1, const char *s2)
{
    return s1 != nullptr && s2 != nullptr && std::strcmp(s1, s2) == 0 ? 1 : 0;
}

int c_iseqx(const char *s1, const char *s2)
{
    return c_strcmpx(s1, s2) == 0 ? 1 : 0;
}

int c_strcmpx(const char *s1, const char *s2)
{
    return s1 != nullptr && s2 != nullptr ? strcmpx(s1, s2) : 1;
}

int c_isabbr(const char *s1, const char *s2, char c)
{
    return s1 != nullptr && s2 != nullptr ? is_abbreviation(s1, s2, c, exact) : 0;
}

int c_isabbrx(const char *s1, const char *s2, char c)
{
    return s1 != nullptr && s2 != nullptr ? is_abbreviation(s1, s2, c, toupperx) : 0;
}

int c_iswild(const char *t, const char *s)
{
    return t != nullptr && s != nullptr ? matches(t, s, exact) : 0;
}

int c_iswildx(const char *s1, const char *s2)
{
    return s1 != nullptr && s2 != nullptr ? matches(s1, s2, toupperx) : 0;
}

const char *c_strchrq(const char *str, char c)
{
    if (str == nullptr)
        return nullptr;
    for (bool quoted = false; *str != '\0'; ++str) {
        if (*str == c && !quoted)
            return str;
        quoted ^= *str == '"';
    }
    return nullptr;
}

char *c_strchrq(char *str, char c)
{
    const char *found = c_strchrq(static_cast<const char *>(str), c);
    return found != nullptr ? str + (found - str) : nullptr;
}

char *c_strupcase(char *str)
{
    return str != nullptr ? struprx(str) : nullptr;
}

char *c_strlowcase(char *str)
{
    for (char *c = str; c != nullptr && *c != '\0'; ++c)
        *c = tolowerx(*c);
    return str;
}

char *c_strncpy(char *s1, const char *s2, int n)
{
    return s1 != nullptr ? strlimcpy(s1, s2 != nullptr ? s2 : "", n) : nullptr;
}

char *c_strncat(char *s1, const char *s2, int n)
{
    if (s1 == nullptr || s2 == nullptr)
        return s1;
    const std::size_t length = std::strlen(s1);
    if (n > 0 && length < static_cast<std::size_t>(n))
        strlimcpy(s1 + length, s2, n - static_cast<int>(length));
    return s1;
}

char *c_strcatgrow(char *s1, const char *s2, int *n)
{
    if (s1 == nullptr) {
        const std::string_view text(s2 != nullptr ? s2 : "");
        const std::size_t least = s2 != nullptr ? text.size() + 1 : *n > 0 ? 1 : 20;
        const std::size_t size = std::max(least, static_cast<std::size_t>(std::max(*n, 0)));
        s1 = static_cast<char *>(jmalloc_bytes(size));
        text.copy(s1, text.size());
        *n = static_cast<int>(size);
        return s1;
    }
    if (s2 == nullptr)
        return s1;
    const std::size_t length = std::strlen(s1);
    const std::size_t more = std::strlen(s2);
    if (*n < 0 || length + more + 1 > static_cast<std::size_t>(*n)) {
        const std::size_t size = length + more + 100;
        s1 = static_cast<char *>(jrealloc_bytes(s1, size));
        *n = static_cast<int>(size);
    }
    std::memcpy(s1 + length, s2, more + 1);
    return s1;
}

char *c_extendstr(char *str, int n)
{
    return str != nullptr ? extendstr(str, n) : nullptr;
}

char *c_setstrlen(char *str, int n)
{
    if (str == nullptr || n < 0)
        return str;
    if (std::strlen(str) > static_cast<std::size_t>(n))
        str[n] = '\0';
    return extendstr(str, n);
}

char *c_ridstartws(char *str)
{
    return str != nullptr ? ridstartws(str) : nullptr;
}

char *c_ridendws(char *str)
{
    return str != nullptr ? ridendws(str) : nullptr;
}

char *c_ridedgews(char *str)
{
    return c_ridendws(c_ridstartws(str));
}

char *c_ridtab(char *str, int mxn)
{
    if (str == nullptr || mxn < 1)
        return str;
    const std::string_view text(str);
    const auto tabs = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\t'));
    if (tabs == 0)
        return str;
    const jmalloc_ptr<char> expanded(static_cast<char *>(jmalloc_bytes(text.size() + 8 * tabs + 4)));
    char *out = expanded.get();
    std::size_t column = 0;
    for (const char c : text) {
        if (c == '\t') {
            const std::size_t blanks = 8 - column % 8;
            std::memset(out, ' ', blanks);
            out += blanks;
            column += blanks;
            continue;
        }
        *out++ = c;
        const auto code = static_cast<unsigned char>(c);
        if (c == '\n')
            column = 0;
        else if (code >= 32 && code != 127)
            ++column;
    }
    return c_strncpy(str, expanded.get(), mxn);
}

char **c_words(char *str)
{
    if (str == nullptr)
        return c_mklist(first_words);
    int count = 0;
    for (word w = next_word(str); w.begin != w.end; w = next_word(w.end))
        ++count;
    char **list = c_mklist(words_capacity(count));
    char *rest = str;
    for (int i = 0; i < count; ++i) {
        const word w = next_word(rest);
        list[i] = make_string({w.begin, w.end});
        rest = str + (w.end - str);
        if (*rest != '\0')
            *rest++ = '\0';
    }
    return list;
}

char **c_words_new(const char *str)
{
    if (str == nullptr)
        return c_mklist(2);
    const jmalloc_ptr<char> copy(c_mkstr(str));
    const jmalloc_ptr<char *> intermediate(c_words(copy.get()));
    const int count = c_listlen(intermediate.get());
    char **list = c_mklist(count + 2);
    std::transform(intermediate.get(), intermediate.get() + count, list, c_mkstr);
    return list;
}

const char *c_sfmtd(double dd)
{
    return format_number(double_results, dd, 12, 14);
}

const char *c_sfmtf(double ff)
{
    return format_number(float_results, ff, 5, 6);
}

const char *c_sfmti(int ii)
{
    constexpr std::size_t most = 18; // one less than there is room for; programs rely on what they see
    std::array<char, 16> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), "%d", ii);
    return int_results.put({buffer.data(), static_cast<std::size_t>(length)}, {}, most);
}

void comutil_reset()
{
    double_results = {};
    float_results = {};
    int_results = {};
}
