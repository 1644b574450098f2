#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/allocator_watch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstring>

namespace {

using strings = std::vector<std::string>;

// The entries, each with a slash.
std::string joined(const char *const *list)
{
    std::string all;
    std::for_each(list, list + c_listlen(list), [&](const char *entry) { all.append(entry).append("/"); });
    return all;
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
        ASSERT_EQ(std::count(by_copy, by_copy + copied, nullptr), copied - i - 1);
    }
    EXPECT_EQ(figures, (std::vector{10, 10, 12, 20, 22, 30}));
    EXPECT_EQ(joined(by_copy), joined(by_move));
    by_copy = c_growlist(c_growlist(by_copy, 40), 42); // 40 is not above the length
    c_addlist(by_copy, "the last");
    EXPECT_EQ(joined(by_copy + 39), "39/the last/");
    c_freelist(by_copy);
    c_freelist(by_move);

    int figure = 2;
    char **list = c_addlistgrow(nullptr, "a", &figure);
    EXPECT_EQ(std::exchange(figure, -100), 4);
    list = c_mvtolistgrow(list, c_mkstr("b"), &figure);
    EXPECT_EQ(joined(list), "a/b/");
    EXPECT_EQ(c_mvtolistgrow(nullptr, nullptr, &figure), nullptr);
    c_addlist(nullptr, "x");
    c_mvtolist(nullptr, nullptr);
    c_freelist(nullptr);
    EXPECT_EQ(c_listlen(nullptr) + c_listlen(jmalloc_ptr<char *>(c_growlist(nullptr, 3)).get()), 0);
    EXPECT_EQ((std::vector{c_locinlist(list, "b"), c_locinlist(list, "B"), c_locinlistx(list, "B"),
                           c_locinlistx(list, nullptr), c_isinlist(list, "a"), c_isinlist(list, "A"),
                           c_isinlistx(list, "A"), c_isinlist(nullptr, "a"), c_isinlistx(nullptr, "A")}),
              (std::vector{1, -1, 1, -1, 1, 0, 1, 0, 0}));
    c_freelist(list);
}

TEST(Strings, AreCopiedComparedAndSearched)
{
    const double d[] = {2.385, -1e300, 0.25};
    EXPECT_TRUE(std::equal(d, d + 3, jmalloc_ptr<double>(c_cpdary(d, 3)).get()));
    EXPECT_STREQ(std::strcat(jmalloc_ptr<char>(c_cpstr("tansy-99")).get(), "s"), "tansy-99s"); // a spare byte
    for (const void *p : std::initializer_list<const void *>{c_mkstr(nullptr), c_cpstr(nullptr), c_mkstrn(0),
                                                             c_mkdary(-1), c_mkfary(0), c_mkiary(0), c_cpdary(d, 0),
                                                             c_cpfary(nullptr, 2), c_mklist(0), c_cpiary(nullptr, 1)})
        EXPECT_EQ(p, nullptr);
    using row = std::tuple<const char *, const char *, int>;
    for (const auto &[s, t, expected] :
         {row{"", "", 0}, row{"aBc", "AbC", 0}, row{"ab", "abc", -'C'}, row{"z", "A", 'Z' - 'A'},
          row{"_", "a", '_' - 'A'}, row{"\xe4", "\xc4", 0xe4 - 0xc4}, row{"a", "\xe4", 'A' - 0xe4}}) {
        EXPECT_EQ((std::vector{strcmpx(s, t), strncmpx(s, t, 9), -strcmpx(t, s)}), std::vector(3, expected)) << s << t;
        EXPECT_EQ(c_iseqx(s, t) * 10 + c_iseq(s, t), (expected == 0) * 10 + (std::strcmp(s, t) == 0)) << s << t;
    }
    EXPECT_EQ((std::vector{strncmpx("abX", "ABy", 2), strncmpx("a", "b", 0), strncmpx("abX", "ABy", 3),
                           c_strcmpx(nullptr, nullptr), c_iseq(nullptr, nullptr), c_iseqx("a", nullptr)}),
              (std::vector{0, 0, -1, 1, 0, 0}));
    for (const auto &[text, part, at] : {row{"", "", 0}, row{"a", "", -1}, row{"", "a", -1}, row{"ab", "abc", -1},
                                         row{"aab", "ab", 1}, row{"abab", "ab", 0}, row{"abc", "C", -1}})
        EXPECT_EQ(strindx(text, part), at) << text << " " << part;
    std::string quoted = R"(a "b,c" d,"e)";
    for (const auto &[c, at] : {std::pair{',', 9}, {'"', 2}, {'e', -1}, {'\0', -1}})
        EXPECT_EQ(c_strchrq(quoted.data(), c), at < 0 ? nullptr : quoted.data() + at) << c;
    EXPECT_EQ(c_strchrq(static_cast<const char *>(nullptr), 'a'), nullptr);
}

TEST(Strings, MatchKeywordsAndTemplates)
{
    using row = std::tuple<const char *, strings, strings, strings>; // matches, in the other case only, does not
    const auto check = [](auto exact, auto folded, std::initializer_list<row> rows) {
        for (const auto &[pattern, same, other_case, none] : rows)
            for (const auto &[texts, expected] : {std::pair{&same, 11}, {&other_case, 1}, {&none, 0}})
                for (const std::string &s : *texts)
                    EXPECT_EQ(exact(pattern, s.c_str()) * 10 + folded(pattern, s.c_str()), expected) << pattern << s;
    };
    check([](const char *t, const char *s) { return c_isabbr(t, s, '*'); },
          [](const char *t, const char *s) { return c_isabbrx(t, s, '*'); },
          {row{"LIS*T", {"LIS", "LIST"}, {"list"}, {"LI", "LISTS", "LOST", "LIS*T", ""}},
           row{"EXIT", {"EXIT"}, {"exit"}, {"EX"}}, row{"DEL*ETE", {"DELE"}, {"dele"}, {"DE"}},
           row{"*ALL", {"", "A"}, {}, {"B"}}, row{"", {""}, {}, {"A"}}, row{"A*B*C", {"A", "AB*"}, {"AB*c"}, {"ABC"}},
           row{"GO*", {"GO"}, {}, {"GOT"}}});
    std::string slow = "b"; // for a matcher that tries every star again
    for (int i = 0; i < 200; ++i)
        slow.insert(0, "*a");
    check(c_iswild, c_iswildx,
          {row{"A*C", {"AC", "ABCC"}, {"ac"}, {"ACB"}}, row{"A?C", {"AXC"}, {}, {"AC"}},
           row{"A*", {"AB"}, {"ab"}, {"A", ""}}, row{"*", {"a"}, {}, {""}}, row{"?", {"a"}, {}, {"", "ab"}},
           row{"", {""}, {}, {"a"}}, row{"a*C?", {}, {"AbcD"}, {"abC"}}, row{"*ab", {"aaab"}, {}, {"aba", "ab?"}},
           row{"*a*b?", {"acabc"}, {}, {"acbab"}}, row{"**", {"a"}, {}, {""}}, row{"ab?", {}, {}, {"ab"}},
           row{slow.c_str(), {}, {}, {std::string(5000, 'a')}}});
    EXPECT_EQ(c_isabbr("AB", "AB", '\0') * 2 + c_isabbr(nullptr, "", '*') + c_isabbrx("", nullptr, '*'), 2);
    EXPECT_EQ(c_iswild(nullptr, "") + c_iswildx("", nullptr), 0);
}

TEST(Strings, AreEditedWithinTheirPlaceOrGrown)
{
    constexpr auto copy = [](char *s, int n) { return c_strncpy(s, "abcd", n); };
    constexpr auto edges = [](char *s, int /*n*/) { return c_ridedgews(s); };
    constexpr auto upper = [](char *s, int /*n*/) { return c_strupcase(s); };
    constexpr auto lower = [](char *s, int /*n*/) { return c_strlowcase(s); };
    constexpr auto append = [](char *s, int n) { return c_strncat(s, "cdef", n); };
    using row = std::tuple<const char *, int, char *(*) (char *, int), int, const char *>;
    for (const auto &[text, size, edit, n, after] :
         {row{"old", 4, copy, 4, "abc"}, row{"old", 4, copy, 1, ""}, row{"old", 4, copy, 0, "old"},
          row{"ab", 5, append, 5, "abcd"}, row{"abc", 4, append, 2, "abc"}, row{"ab", 5, c_extendstr, 4, "ab  "},
          row{"abc", 4, c_extendstr, 2, "abc"}, row{"ab", 6, c_setstrlen, 5, "ab   "}, row{"ab", 3, c_setstrlen, 0, ""},
          row{"abc", 4, c_setstrlen, -1, "abc"}, row{" \t\na b\r\n ", 10, edges, 0, "a b\r"},
          row{" \n", 3, edges, 0, ""}, row{"`az{\xe4", 6, upper, 0, "`AZ{\xe4"},
          row{"@AZ[\xc4", 6, lower, 0, "@az[\xc4"},
          row{"12345678\tb\n\tc\1\x7f\t.", 40, c_ridtab, 40, "12345678        b\n        c\1\x7f       ."},
          row{"a\tb", 5, c_ridtab, 5, "a   "}, row{"abcdef", 7, c_ridtab, 3, "abcdef"},
          row{"\t", 2, c_ridtab, 0, "\t"}}) {
        const jmalloc_ptr<char> place(c_strncpy(c_mkstrn(size), text, size)); // nothing may be written behind it
        EXPECT_STREQ(edit(place.get(), n), after) << text << " " << n;
        EXPECT_EQ(edit(nullptr, n), nullptr) << text;
    }
    char place[8] = "abcd";
    EXPECT_STREQ(static_cast<char *>(xmove(place + 2, place, 5)), "abcd");
    EXPECT_STREQ(static_cast<char *>(xmove(xmove(place, place + 1, 5), place + 3, -4)), "babcdd");
    EXPECT_STREQ(c_strncat(strlimcpy(place, "AZ[", -1), nullptr, 8), "babcdd");
    EXPECT_STREQ(strlwrx(strlimcpy(place, "AZ[", 8)), "az[");
    EXPECT_STREQ(c_strncpy(place, nullptr, 8), "");

    using grown = std::tuple<const char *, const char *, int, const char *, int>;
    for (const auto &[s1, s2, before, result, after] :
         {grown{"ab", "cd", 5, "abcd", 5}, grown{"ab", "cd", 4, "abcd", 104}, grown{"ab", "cd", -7, "abcd", 104},
          grown{"ab", nullptr, 4, "ab", 4}, grown{nullptr, "cd", 0, "cd", 3}, grown{nullptr, "cd", 50, "cd", 50},
          grown{nullptr, nullptr, 0, "", 20}, grown{nullptr, nullptr, 6, "", 6}}) {
        int figure = before;
        char *start = s1 != nullptr ? c_strncpy(c_mkstrn(std::max(before, 3)), s1, 3) : nullptr;
        const jmalloc_ptr<char> s(c_strcatgrow(start, s2, &figure));
        EXPECT_STREQ(s.get(), result);
        EXPECT_EQ(figure, after) << result;
        s.get()[figure - 1] = '\0'; // that much there is
    }
}

TEST(Words, AreSplitOutsideQuotes)
{
    using row = std::tuple<const char *, const char *, const char *, int>; // text, words, text after with | for NUL
    for (const auto &[before, words, after, capacity] :
         {row{R"(a "b c" d)", R"(a/"b c"/d/)", R"(a|"b c"|d)", 10}, row{"", "", "", 10}, row{" \t\n", "", " \t\n", 10},
          row{"  one \n two\r", "one/two\r/", "  one|\n two\r", 10},
          row{R"(x"1 2"y"3 4)", R"(x"1 2"y"3 4/)", R"(x"1 2"y"3 4)", 10}, row{R"("" " )", R"(""/" /)", R"(""|" )", 10},
          row{"1 2 3 4 5 6 7 8", "1/2/3/4/5/6/7/8/", "1|2|3|4|5|6|7|8", 10},
          row{"1 2 3 4 5 6 7 8 9", "1/2/3/4/5/6/7/8/9/", "1|2|3|4|5|6|7|8|9", 12},
          row{"1 2 3 4 5 6 7 8 9 A B", "1/2/3/4/5/6/7/8/9/A/B/", "1|2|3|4|5|6|7|8|9|A|B", 14}}) {
        std::string text = before;
        char **list = c_words(text.data());
        EXPECT_EQ(joined(list), words);
        EXPECT_EQ(std::count(list, list + capacity, nullptr), capacity - c_listlen(list));
        std::replace(text.begin(), text.end(), '\0', '|');
        EXPECT_EQ(text, after);
        c_freelist(list);
        const allocator_watch watch;
        list = c_words_new(before);
        EXPECT_EQ(joined(list), words);
        c_freelist(list);
        EXPECT_EQ(watch.live(), std::count(words, words + std::strlen(words), '/')); // the second copies stay
    }
    for (char **list : {c_words(nullptr), c_words_new(nullptr)})
        EXPECT_EQ(jmalloc_ptr<char *>(list).get()[0], nullptr);
}

TEST(Numbers, AreWrittenTheSameInEveryLocaleAndRounded)
{
    using row = std::pair<double, const char *>;                // with 12 or 14 decimals, with 5 or 6
    for (const char *locale : {"German", "de_DE.UTF-8", "C"}) { // where the system has none of a name, the last again
        std::setlocale(LC_ALL, locale);
        for (const auto &[value, texts] :
             {row{0, "0.0 0.0"}, row{-0.0, "0.0 0.0"}, row{12.5, "12.5 12.5"}, row{-3, "-3.0 -3.0"},
              row{100, "100.0 100.0"}, row{2.0 / 3, "0.666666666667 0.66667"}, row{1e6, "1000000.0 1000000.0"},
              row{-1000000.5, "-1.0000005e+06 -1.0e+06"}, row{1e-6, "0.000001 0.0"}, row{-2e-6, "-0.000002 -0.0"},
              row{9.99e-7, "9.99e-07 9.99e-07"}, row{1e100, "1.0e+100 1.0e+100"},
              row{-1.0 / 3 * 1e-120, "-3.33333333333333e-121 -3.333333e-121"},
              row{5e-324, "4.94065645841247e-324 4.940656e-324"}, row{HUGE_VAL, "inf inf"}, row{-HUGE_VAL, "-inf -inf"},
              row{-std::nan(""), "nan nan"}})
            EXPECT_EQ(std::string(c_sfmtd(value)) + " " + c_sfmtf(value), texts) << locale;
    }
    comutil_reset();
    const char *results[10];
    std::generate(results, results + 10, [i = INT_MIN]() mutable { return c_sfmti(i++); });
    EXPECT_GT(results[0], results[9]); // the first result lies in the second buffer
    EXPECT_EQ(std::string(results[0]) + c_sfmtd(1.5) + c_sfmtf(2.5) + results[0], "-21474836481.52.5-2147483648");
    EXPECT_EQ(c_sfmti(11), results[0]);
    EXPECT_EQ(std::string(results[0]) + results[1], "11-2147483647");
    using round = std::pair<double, int>;
    for (const auto &[x, n] :
         {round{0, 0}, round{0.49, 0}, round{0.5, 1}, round{-0.5, -1}, round{2.5, 3}, round{-2.5, -3}, round{-2.4, -2},
          round{2147483646.5, INT_MAX}, round{1e12, INT_MAX}, round{-HUGE_VAL, INT_MIN}, round{std::nan(""), 0}})
        EXPECT_EQ(bestint(x), n) << x;
}

} // namespace
