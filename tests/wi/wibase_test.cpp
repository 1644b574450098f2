#include "dovsys/dovsys.h"
#include "wi/wicmdline.h"
#include "wi/wifilter.h"
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

TEST(FileFilter, OffersTheFilesOfTheDefaultPathFirst)
{
    using namespace std::string_literals;
    const std::string rest = "DOV Files\0*.iq;*.rea;*.pks;*.spl;*.dop;*.gat;*.img;*.vec\0All Files (*.*)\0*.*\0\0"s;
    const struct {
        std::string path, directory, first;
    } table[] = {{"c:\\data\\*.rea", "c:\\data", "REA Files (*.REA)\0*.rea\0"s},
                 {"*.*", "", ""},
                 {"c:\\data\\", "c:\\data", ""},
                 {"c:\\rel1.2\\data", "c:\\rel1.2", ""},
                 {"c:*.iq", "c:", "IQ Files (*.IQ)\0*.iq\0"s},
                 {"dir:*.iq", "", "IQ Files (*.IQ)\0dir:*.iq\0"s},
                 {"\\a.b.C1", "", "C1 Files (*.C1)\0a.b.C1\0"s},
                 {"x.", "", ""},
                 {"", "", ""}};
    for (const auto &[path, directory, first] : table) {
        EXPECT_EQ(filestringparser(path).directory, directory) << path;
        EXPECT_EQ(wi_file_filter(filestringparser(path)), first + rest) << path;
    }
}

} // namespace
