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
    using row = std::pair<const char *, std::vector<std::string>>;
    for (const auto &[line, expected] :
         {row{"", {" "}}, row{" \t\n ", {" "}}, row{"a  b\tc", {" ", "a", "b", "c"}},
          row{"  lead trail\n", {" ", "lead", "trail"}}, row{"\"two words\" x", {" ", "\"two", "words\"", "x"}},
          row{"a\rb \xc3\xa9", {" ", "a\rb", "\xc3\xa9"}}}) {
        wi_reset_command_line();
        int argc = -1;
        char **argv = nullptr;
        parsecommandline(line, &argc, &argv);
        std::vector<std::string> words(argv, argv + argc + 1);
        EXPECT_EQ(words, expected) << line;
        EXPECT_EQ(counttokens(line), argc);
        for (int i = 0; i <= argc; ++i)
            jfree(argv[i]);
        jfree(argv);
    }
}

TEST(NumberFormat, FollowsTheFieldsRules)
{
    using row = std::tuple<double, int, const char *>;
    for (const auto &[value, decimals, expected] :
         {row{2.5, 0, "3"}, row{-2.5, 0, "-3"}, row{0.49, -1, "0"}, row{-0.2, 0, "0"}, row{3e9, 0, "3000000000"},
          row{999999999999.0, 0, "999999999999"}, row{1e12, 0, "1e+12"}, row{-1e12, 0, "-1e+12"},
          row{2.5e12, 0, "2e+12"}, row{3.14159, 2, "3.14"}, row{-0.001, 2, "-0.00"}, row{2.0 / 3, 20, "0.666666666667"},
          row{1e14, 1, "100000000000000.0"}, row{-1e14, 12, "-100000000000000.000000000000"},
          row{1.5e14, 2, "1.50e+14"}, row{-1e308, 12, "-1.000000000000e+308"}, row{INFINITY, 2, "inf"},
          row{-INFINITY, 0, "-inf"}}) {
        char text[40];
        wi_format(text, value, decimals);
        EXPECT_STREQ(text, expected) << value << " with " << decimals;
    }
}

TEST(FileFilter, OffersTheFilesOfTheDefaultPathFirst)
{
    using namespace std::string_literals;
    const std::string rest = "DOV Files\0*.iq;*.rea;*.pks;*.spl;*.dop;*.gat;*.img;*.vec\0All Files (*.*)\0*.*\0\0"s;
    using row = std::tuple<std::string, std::string, std::string>;
    for (const auto &[path, directory, first] :
         {row{"c:\\data\\*.rea", "c:\\data", "REA Files (*.REA)\0*.rea\0"s}, row{"*.*", "", ""},
          row{"c:\\data\\", "c:\\data", ""}, row{"c:\\rel1.2\\data", "c:\\rel1.2", ""},
          row{"c:*.iq", "c:", "IQ Files (*.IQ)\0*.iq\0"s}, row{"dir:*.iq", "", "IQ Files (*.IQ)\0dir:*.iq\0"s},
          row{"\\a.b.C1", "", "C1 Files (*.C1)\0a.b.C1\0"s}, row{"x.", "", ""}, row{"", "", ""}}) {
        EXPECT_EQ(filestringparser(path).directory, directory) << path;
        EXPECT_EQ(wi_file_filter(filestringparser(path)), first + rest) << path;
    }
}

} // namespace
