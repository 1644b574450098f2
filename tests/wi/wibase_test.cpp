#include "dovsys/dovsys.h"
#include "wi/wicmdline.h"
#include "wi/wistate.h"
#include "wi/wiutil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

TEST(CommandLine, IsSplitAtBlanksTabsAndLineFeedsOnly)
{
    const struct {
        const char *line;
        std::vector<std::string> words;
    } table[] = {{"", {" "}},
                 {" \t\n ", {" "}},
                 {"a  b\tc", {" ", "a", "b", "c"}},
                 {"  lead trail\n", {" ", "lead", "trail"}},
                 {"\"two words\" x", {" ", "\"two", "words\"", "x"}},
                 {"a\rb \xc3\xa9", {" ", "a\rb", "\xc3\xa9"}}};
    for (const auto &row : table) {
        wi_reset_command_line();
        int argc = -1;
        char **argv = nullptr;
        parsecommandline(row.line, &argc, &argv);
        std::vector<std::string> words(argv, argv + argc + 1);
        EXPECT_EQ(words, row.words) << row.line;
        EXPECT_EQ(counttokens(row.line), argc);
        for (int i = 0; i <= argc; ++i)
            jfree(argv[i]);
        jfree(argv);
    }
}

TEST(NumberFormat, FollowsTheFieldsRules)
{
    const struct {
        double value;
        int decimals;
        const char *text;
    } table[] = {{2.5, 0, "3"},
                 {-2.5, 0, "-3"},
                 {0.49, -1, "0"},
                 {-0.2, 0, "0"},
                 {3e9, 0, "3000000000"},
                 {999999999999.0, 0, "999999999999"},
                 {1e12, 0, "1e+12"},
                 {-1e12, 0, "-1e+12"},
                 {2.5e12, 0, "2e+12"},
                 {3.14159, 2, "3.14"},
                 {-0.001, 2, "-0.00"},
                 {2.0 / 3, 20, "0.666666666667"},
                 {1e14, 1, "100000000000000.0"},
                 {-1e14, 12, "-100000000000000.000000000000"},
                 {1.5e14, 2, "1.50e+14"},
                 {-1e308, 12, "-1.000000000000e+308"},
                 {INFINITY, 2, "inf"},
                 {-INFINITY, 0, "-inf"}};
    for (const auto &row : table) {
        char text[40];
        wi_format(text, row.value, row.decimals);
        EXPECT_STREQ(text, row.text) << row.value << " with " << row.decimals;
    }
}

} // namespace
