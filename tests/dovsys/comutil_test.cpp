#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/allocator_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace {

using strings = std::vector<std::string>;

strings entries(const char *const *list)
{
    return {list, list + c_listlen(list)};
}

// A buffer of exactly the given size, so that a write behind it is seen.
class buffer {
public:
    buffer(const char *text, int size) : bytes_(c_mkstrn(size)) { std::strcpy(bytes_.get(), text); }
    operator char *() const { return bytes_.get(); }

private:
    jmalloc_ptr<char> bytes_;
};

TEST(Strings, CopiesAndArraysAreNewAndNullForNothing)
{
    const double d[] = {2.385, -1e300, 0.25};
    const float f[] = {2.5F, -0.125F};
    const int ia[] = {7, -9};
    EXPECT_TRUE(std::equal(d, d + 3, jmalloc_ptr<double>(c_cpdary(d, 3)).get()));
    EXPECT_TRUE(std::equal(f, f + 2, jmalloc_ptr<float>(c_cpfary(f, 2)).get()));
    EXPECT_TRUE(std::equal(ia, ia + 2, jmalloc_ptr<int>(c_cpiary(ia, 2)).get()));
    EXPECT_EQ(jmalloc_ptr<double>(c_mkdary(2)).get()[1], 0.0);
    const jmalloc_ptr<char> copy(c_cpstr("tansy"));
    EXPECT_STREQ(std::strcat(copy.get(), "s"), "tansys"); // there is a spare byte
    for (const void *p : std::initializer_list<const void *>{
             c_mkstr(nullptr), c_cpstr(nullptr), c_mkstrn(0), c_mkdary(-1), c_mkfary(0), c_mkiary(0),
             c_cpdary(nullptr, 3), c_cpfary(f, 0), c_mklist(0), c_cpiary(nullptr, 1)})
        EXPECT_EQ(p, nullptr);
}

TEST(Lists, GrowByTheirOwnStepsAndStayEnded)
{
    int copied = 10;
    int moved = 10;
    std::vector<int> figures;
    char **by_copy = c_mklist(copied);
    char **by_move = c_mklist(moved);
    for (int i = 0; i < 40; ++i) {
        by_copy = c_addlistgrow(by_copy, std::to_string(i).c_str(), &copied);
        by_move = c_mvtolistgrow(by_move, c_mkstr(std::to_string(i).c_str()), &moved);
        if (i == 7 || i == 8 || i == 18)
            figures.insert(figures.end(), {copied, moved});
        ASSERT_EQ(c_listlen(by_copy), i + 1);
        for (int free = i + 1; free < copied; ++free)
            ASSERT_EQ(by_copy[free], nullptr) << i;
    }
    EXPECT_EQ(figures, (std::vector<int>{10, 10, 12, 20, 22, 30}));
    EXPECT_EQ(entries(by_copy), entries(by_move));
    by_copy = c_growlist(by_copy, 40); // not above the length
    by_copy = c_growlist(by_copy, 42);
    c_addlist(by_copy, "the last");
    EXPECT_STREQ(by_copy[40], "the last");
    EXPECT_EQ(by_copy[41], nullptr);
    c_freelist(by_copy);
    c_freelist(by_move);
}

TEST(Lists, TakeNullAndWrongFigures)
{
    int figure = 2;
    char **list = c_addlistgrow(nullptr, "a", &figure);
    EXPECT_EQ(figure, 4);
    figure = -100;
    list = c_mvtolistgrow(list, c_mkstr("b"), &figure);
    EXPECT_EQ(entries(list), (strings{"a", "b"}));
    EXPECT_EQ(c_mvtolistgrow(nullptr, nullptr, &figure), nullptr);
    c_addlist(nullptr, "x");
    c_mvtolist(nullptr, nullptr);
    c_freelist(nullptr);
    EXPECT_EQ(c_listlen(nullptr), 0);
    EXPECT_EQ(c_listlen(jmalloc_ptr<char *>(c_growlist(nullptr, 3)).get()), 0);

    EXPECT_EQ(c_locinlist(list, "b"), 1);
    EXPECT_EQ(c_locinlist(list, "B"), -1);
    EXPECT_EQ(c_locinlistx(list, "B"), 1);
    EXPECT_EQ(c_locinlistx(list, nullptr), -1);
    EXPECT_EQ(c_isinlist(list, "a") * 10 + c_isinlistx(list, "A"), 11);
    EXPECT_EQ(c_isinlist(nullptr, "a") + c_isinlistx(nullptr, "A"), 0);
    c_freelist(list);
}

TEST(Strings, Compare)
{
    using row = std::tuple<const char *, const char *, int>;
    for (const auto &[s, t, expected] :
         {row{"", "", 0}, row{"aBc", "AbC", 0}, row{"ab", "abc", -'C'}, row{"z", "A", 'Z' - 'A'},
          row{"_", "a", '_' - 'A'}, row{"\xe4", "\xc4", 0xe4 - 0xc4}, row{"a", "\xe4", 'A' - 0xe4}}) {
        EXPECT_EQ(strcmpx(s, t), expected) << s << " " << t;
        EXPECT_EQ(strcmpx(t, s), -expected);
        EXPECT_EQ(strncmpx(s, t, 9), expected);
        EXPECT_EQ(c_iseqx(s, t), expected == 0 ? 1 : 0);
        EXPECT_EQ(c_iseq(s, t), std::strcmp(s, t) == 0 ? 1 : 0);
    }
    EXPECT_EQ(strncmpx("abX", "ABy", 2), 0);
    EXPECT_EQ(strncmpx("abX", "ABy", 3), -1);
    EXPECT_EQ(strncmpx("a", "b", 0), 0);
    EXPECT_EQ(c_strcmpx(nullptr, nullptr), 1);
    EXPECT_EQ(c_iseq(nullptr, nullptr) + c_iseqx("a", nullptr), 0);
}

TEST(Strings, AbbreviateKeywords)
{
    using row = std::tuple<const char *, const char *, int, int>;
    for (const auto &[keyword, typed, exact, folded] :
         {row{"LIS*T", "LIS", 1, 1}, row{"LIS*T", "LIST", 1, 1}, row{"LIS*T", "LI", 0, 0}, row{"LIS*T", "LISTS", 0, 0},
          row{"LIS*T", "LOST", 0, 0}, row{"LIS*T", "list", 0, 1}, row{"LIS*T", "LIS*T", 0, 0}, row{"EXIT", "EX", 0, 0},
          row{"EXIT", "EXIT", 1, 1}, row{"DEL*ETE", "DELE", 1, 1}, row{"DEL*ETE", "DE", 0, 0}, row{"*ALL", "", 1, 1},
          row{"", "", 1, 1}, row{"A*B*C", "AB*c", 0, 1}, row{"A*B*C", "ABC", 0, 0}, row{"GO*", "GO", 1, 1},
          row{nullptr, "", 0, 0}, row{"", nullptr, 0, 0}}) {
        EXPECT_EQ(c_isabbr(keyword, typed, '*'), exact) << keyword << " " << typed;
        EXPECT_EQ(c_isabbrx(keyword, typed, '*'), folded) << keyword << " " << typed;
    }
    EXPECT_EQ(c_isabbr("AB", "AB", '\0'), 1);
}

// The rules of the template, read literally.
bool wild(const char *t, const char *s)
{
    if (*t == '\0' || *s == '\0')
        return *t == *s;
    if (*t != '*')
        return (*t == '?' || *t == *s) && wild(t + 1, s + 1);
    if (t[1] == '\0')
        return true;
    for (; *s != '\0'; ++s) {
        if (wild(t + 1, s))
            return true;
    }
    return false;
}

// All strings over the alphabet of up to so many characters.
strings all_strings(const std::string &alphabet, std::size_t longest)
{
    strings all = {""};
    for (std::size_t i = 0; i < all.size() && all[i].size() < longest; ++i) {
        for (const char c : alphabet)
            all.push_back(all[i] + c);
    }
    return all;
}

TEST(Strings, MatchTemplates)
{
    const strings texts = all_strings("ab", 6);
    for (const std::string &t : all_strings("ab*?", 5)) {
        for (const std::string &s : texts)
            ASSERT_EQ(c_iswild(t.c_str(), s.c_str()), wild(t.c_str(), s.c_str()) ? 1 : 0) << t << " on " << s;
    }
    EXPECT_EQ(c_iswild("A*C", "AC") * 10 + c_iswild("A?C", "AXC"), 11);
    EXPECT_EQ(c_iswild("A*", "A") + c_iswild("*", "") + c_iswild("ab", "AB"), 0);
    EXPECT_EQ(c_iswildx("a*C?", "AbcD"), 1);
    EXPECT_EQ(c_iswild(nullptr, "a") + c_iswildx("*", nullptr), 0);
    std::string stars;
    for (int i = 0; i < 200; ++i)
        stars += "*a";
    EXPECT_EQ(c_iswild((stars + "b").c_str(), std::string(5000, 'a').c_str()), 0); // and that in no time
}

TEST(Strings, AreSearched)
{
    using row = std::tuple<const char *, const char *, int>;
    for (const auto &[text, part, at] : {row{"", "", 0}, row{"a", "", -1}, row{"", "a", -1}, row{"ab", "abc", -1},
                                         row{"aab", "ab", 1}, row{"abab", "ab", 0}, row{"abc", "C", -1}})
        EXPECT_EQ(strindx(text, part), at) << text << " " << part;

    std::string quoted = R"(a "b,c" d,"e)";
    EXPECT_EQ(c_strchrq(quoted.data(), ','), quoted.data() + 9);
    EXPECT_EQ(c_strchrq(quoted.data(), '"'), quoted.data() + 2);
    EXPECT_EQ(c_strchrq(quoted.data(), 'e'), nullptr);
    EXPECT_EQ(c_strchrq(quoted.data(), '\0'), nullptr);
    EXPECT_EQ(c_strchrq(static_cast<const char *>(nullptr), 'a'), nullptr);
}

TEST(Strings, AreEditedWithinTheirPlace)
{
    struct row {
        const char *before;
        int size;
        std::function<char *(char *)> edit;
        const char *after;
    };
    const row rows[] = {
        {"old", 4, [](char *s) { return c_strncpy(s, "abcd", 4); }, "abc"},
        {"old", 4, [](char *s) { return c_strncpy(s, "abcd", 1); }, ""},
        {"old", 4, [](char *s) { return c_strncpy(s, "abcd", 0); }, "old"},
        {"old", 4, [](char *s) { return c_strncpy(s, nullptr, 4); }, ""},
        {"old", 9, [](char *s) { return strlimcpy(s, "abcd", 9); }, "abcd"},
        {"old", 4, [](char *s) { return strlimcpy(s, "abcd", -1); }, "old"},
        {"ab", 5, [](char *s) { return c_strncat(s, "cdef", 5); }, "abcd"},
        {"ab", 3, [](char *s) { return c_strncat(s, "cdef", 3); }, "ab"},
        {"abc", 4, [](char *s) { return c_strncat(s, "cdef", 2); }, "abc"},
        {"ab", 5, [](char *s) { return c_strncat(s, nullptr, 5); }, "ab"},
        {"ab", 5, [](char *s) { return c_extendstr(s, 4); }, "ab  "},
        {"abc", 4, [](char *s) { return extendstr(s, 2); }, "abc"},
        {"ab", 6, [](char *s) { return c_setstrlen(s, 5); }, "ab   "},
        {"ab", 3, [](char *s) { return c_setstrlen(s, 2); }, "ab"},
        {"abc", 4, [](char *s) { return c_setstrlen(s, 0); }, ""},
        {"abc", 4, [](char *s) { return c_setstrlen(s, -1); }, "abc"},
        {" \t\na b\r\n ", 10, c_ridedgews, "a b\r"},
        {" \n", 3, c_ridedgews, ""},
        {"\t a ", 5, c_ridstartws, "a "},
        {" a \n", 5, c_ridendws, " a"},
        {"az{\xe4", 5, c_strupcase, "AZ{\xe4"},
        {"AZ[\xc4", 5, c_strlowcase, "az[\xc4"},
        {"AZ[", 4, strlwrx, "az["},
        {"a\tb\n\tc\1\t\x7f.", 40, [](char *s) { return c_ridtab(s, 40); }, "a       b\n        c\1       \x7f."},
        {"12345678\t9", 40, [](char *s) { return c_ridtab(s, 40); }, "12345678        9"},
        {"a\tb", 5, [](char *s) { return c_ridtab(s, 5); }, "a   "},
        {"abcdef", 7, [](char *s) { return c_ridtab(s, 3); }, "abcdef"},
        {"\t", 2, [](char *s) { return c_ridtab(s, 0); }, "\t"},
        {"abcd", 8, [](char *s) { return static_cast<char *>(xmove(s + 2, s, 5)) - 2; }, "ababcd"},
        {"abcd", 5, [](char *s) { return static_cast<char *>(xmove(s, s + 1, 4)); }, "bcd"},
        {"abcd", 5, [](char *s) { return static_cast<char *>(xmove(s, s + 1, -4)); }, "abcd"},
    };
    for (const row &r : rows) {
        const buffer place(r.before, r.size);
        EXPECT_EQ(r.edit(place), place) << "row " << &r - rows;
        EXPECT_STREQ(place, r.after) << "row " << &r - rows;
    }
    for (char *(*edit)(char *) : {c_strupcase, c_strlowcase, c_ridstartws, c_ridendws, c_ridedgews})
        EXPECT_EQ(edit(nullptr), nullptr);
    for (char *(*edit)(char *, int) : {c_extendstr, c_setstrlen, c_ridtab})
        EXPECT_EQ(edit(nullptr, 3), nullptr);
    EXPECT_EQ(c_strncpy(nullptr, "a", 2), nullptr);
    EXPECT_EQ(c_strncat(nullptr, "a", 2), nullptr);
}

// In a block of the given capacity when that is enough.
char *exact_copy(const char *text, int size)
{
    if (text == nullptr)
        return nullptr;
    const int least = static_cast<int>(std::strlen(text)) + 1;
    return c_strncpy(c_mkstrn(std::max(least, size)), text, least);
}

TEST(Strings, GrowWhenAppendedTo)
{
    using row = std::tuple<const char *, const char *, int, const char *, int>;
    for (const auto &[s1, s2, before, result, after] :
         {row{"ab", "cd", 5, "abcd", 5}, row{"ab", "cd", 4, "abcd", 104}, row{"ab", "cd", -7, "abcd", 104},
          row{"ab", nullptr, 4, "ab", 4}, row{nullptr, "cd", 0, "cd", 3}, row{nullptr, "cd", 50, "cd", 50},
          row{nullptr, nullptr, 0, "", 20}, row{nullptr, nullptr, 6, "", 6}}) {
        int figure = before;
        const jmalloc_ptr<char> s(c_strcatgrow(exact_copy(s1, before), s2, &figure));
        EXPECT_STREQ(s.get(), result);
        EXPECT_EQ(figure, after) << result;
        s.get()[figure - 1] = '\0';
    }
}

TEST(Words, AreSplitOutsideQuotes)
{
    struct row {
        const char *text;
        strings words;
        std::string left; // of the text, with | for NUL
    };
    const row rows[] = {
        {R"(a "b c" d)", {"a", R"("b c")", "d"}, R"(a|"b c"|d)"},
        {"", {}, ""},
        {" \t\n", {}, " \t\n"},
        {"  one \n two\r", {"one", "two\r"}, "  one|\n two\r"},
        {R"(x"1 2"y"3 4)", {R"(x"1 2"y"3 4)"}, R"(x"1 2"y"3 4)"},
        {R"("" " )", {R"("")", R"(" )"}, R"(""|" )"},
    };
    for (const row &r : rows) {
        std::string text = r.text;
        char **list = c_words(text.data());
        EXPECT_EQ(entries(list), r.words) << r.text;
        std::replace(text.begin(), text.end(), '\0', '|');
        EXPECT_EQ(text, r.left);
        c_freelist(list);

        const allocator_watch watch;
        char **untouched = c_words_new(r.text);
        EXPECT_EQ(entries(untouched), r.words) << r.text;
        c_freelist(untouched);
        EXPECT_EQ(watch.live(), r.words.size()); // the second copies stay
    }
    for (char **list : {c_words(nullptr), c_words_new(nullptr)}) {
        EXPECT_EQ(entries(list), strings{});
        c_freelist(list);
    }
}

TEST(Words, LeaveTheCapacityThatAppendingWould)
{
    int figure = 10;
    char **grown = c_mklist(figure);
    for (std::string text = "w"; text.size() < 60; text += " w") {
        grown = c_addlistgrow(grown, "w", &figure);
        char **list = c_words(std::string(text).data());
        EXPECT_EQ(std::count(list, list + figure, nullptr), figure - c_listlen(grown)) << text;
        c_freelist(list);
    }
    c_freelist(grown);
}

TEST(Numbers, AreWrittenTheSameInEveryLocale)
{
    const double inf = std::numeric_limits<double>::infinity();
    using row = std::tuple<double, const char *, const char *>;
    for (const char *locale : {"C", "de_DE.UTF-8", "German"}) { // those that the system has
        if (std::setlocale(LC_ALL, locale) == nullptr)
            continue;
        for (const auto &[value, as_double, as_float] :
             {row{0, "0.0", "0.0"}, row{-0.0, "0.0", "0.0"}, row{12.5, "12.5", "12.5"}, row{-3, "-3.0", "-3.0"},
              row{100, "100.0", "100.0"}, row{2.0 / 3, "0.666666666667", "0.66667"}, row{1e6, "1000000.0", "1000000.0"},
              row{-1000000.5, "-1.0000005e+06", "-1.0e+06"}, row{1e-6, "0.000001", "0.0"},
              row{-2e-6, "-0.000002", "-0.0"}, row{9.99e-7, "9.99e-07", "9.99e-07"}, row{1e100, "1.0e+100", "1.0e+100"},
              row{-1.0 / 3 * 1e-120, "-3.33333333333333e-121", "-3.333333e-121"},
              row{5e-324, "4.94065645841247e-324", "4.940656e-324"}, row{inf, "inf", "inf"}, row{-inf, "-inf", "-inf"},
              row{-std::nan(""), "nan", "nan"}}) {
            EXPECT_STREQ(c_sfmtd(value), as_double) << locale;
            EXPECT_STREQ(c_sfmtf(value), as_float) << locale;
        }
    }
    std::setlocale(LC_ALL, "C");
    EXPECT_STREQ(c_sfmti(INT_MIN), "-2147483648");
}

TEST(Numbers, StayForTenCallsEach)
{
    comutil_reset();
    const std::vector<const char *> ints = {c_sfmti(1), c_sfmti(2), c_sfmti(3), c_sfmti(4), c_sfmti(5),
                                            c_sfmti(6), c_sfmti(7), c_sfmti(8), c_sfmti(9), c_sfmti(10)};
    EXPECT_GT(ints[0], ints[9]); // the first result lies in the second buffer
    EXPECT_STREQ(ints[0], "1");
    c_sfmtd(1.5);
    c_sfmtf(1.5);
    EXPECT_STREQ(ints[0], "1");
    EXPECT_EQ(c_sfmti(11), ints[0]);
    EXPECT_STREQ(ints[0], "11");
    EXPECT_STREQ(ints[1], "2");
}

TEST(Rounding, GoesAwayFromZeroAtHalves)
{
    const double inf = std::numeric_limits<double>::infinity();
    using row = std::tuple<double, int>;
    for (const auto &[x, expected] :
         {row{0, 0}, row{0.49, 0}, row{0.5, 1}, row{-0.5, -1}, row{2.5, 3}, row{-2.5, -3}, row{-2.4, -2},
          row{2147483646.5, INT_MAX}, row{1e12, INT_MAX}, row{-inf, INT_MIN}, row{std::nan(""), 0}})
        EXPECT_EQ(bestint(x), expected) << x;
}

} // namespace
