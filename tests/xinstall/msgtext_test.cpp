#include "xinstall/msgtext.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

std::string x(int n)
{
    return std::string(static_cast<std::size_t>(n), 'x');
}

TEST(MessageText, WrapsAppendsAndIsCutAtTheEndOfTheBuffer)
{
    using row = std::tuple<std::vector<std::string>, std::string, int>; // shown from the second on; text, breaks
    for (const auto &[messages, expected, breaks] :
         {row{{""}, "", 0}, row{{"", "a"}, "\n\na", 2}, row{{"a", ""}, "a", 0}, row{{"one", "two"}, "one\n\ntwo", 2},
          row{{x(60)}, x(60), 0}, row{{x(50) + " " + x(9)}, x(50) + "\n" + x(9), 1},
          row{{x(49) + " " + x(9)}, x(49) + "\n" + x(9), 1},
          row{{x(50) + " " + x(9) + " y"}, x(50) + "\n" + x(9) + " y", 1},
          row{{x(48) + " " + x(9) + " y"}, x(48) + " " + x(9) + "\ny", 1},
          row{{x(60) + "\n" + x(49) + " y"}, x(60) + "\n" + x(49) + "\ny", 2},
          row{{"a\nb " + x(46) + " y"}, "a\nb " + x(46) + "\ny", 1},
          row{{x(60) + " y", x(60) + " y"}, x(60) + "\ny\n\n" + x(60) + "\ny", 4},
          row{{x(1000), x(999)}, x(1000) + "\n\n" + x(997), 2},
          row{{x(1000), x(1000)}, x(1000), 0}, // would not fit and starts afresh
          row{{x(1998), "y"}, x(1998) + "\n", 2}, row{{x(1999)}, x(1999), 0}, row{{x(5000)}, x(1999), 0},
          row{{x(5000), "y"}, "y", 0}, row{{x(5000), ""}, x(1999), 0}}) {
        msgtext text{};
        msgtext_put(text, x(60) + " was there until the pop-up was hidden", false);
        bool shown = false;
        for (const std::string &message : messages) {
            msgtext_put(text, message, shown);
            shown = true;
        }
        EXPECT_EQ(std::string(text.str.data()), expected);
        EXPECT_EQ(text.lastj, static_cast<int>(expected.size()));
        EXPECT_EQ(text.lastnl, breaks) << expected;
        EXPECT_EQ(msgtext_height(text), 140 + 5 * breaks);
    }
}

} // namespace
