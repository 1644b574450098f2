#include "xinstall/msgtext.h"

#include <cstring>
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
    struct {
        std::vector<std::string> messages; // the pop-up is shown from the second on
        std::string text;
        int breaks;
    } const cases[] = {
        {{""}, "", 0},
        {{"", "a"}, "\n\na", 2},
        {{"a", ""}, "a", 0},
        {{"Installation complete"}, "Installation complete", 0},
        {{"one", "two"}, "one\n\ntwo", 2},
        {{x(60)}, x(60), 0},
        {{x(50) + " " + x(9)}, x(50) + "\n" + x(9), 1},
        {{x(49) + " " + x(9)}, x(49) + "\n" + x(9), 1},
        {{x(50) + " " + x(9) + " y"}, x(50) + "\n" + x(9) + " y", 1},
        {{x(48) + " " + x(9) + " y"}, x(48) + " " + x(9) + "\ny", 1},
        {{x(60) + "\n" + x(49) + " y"}, x(60) + "\n" + x(49) + "\ny", 2},
        {{"a\nb " + x(46) + " y"}, "a\nb " + x(46) + "\ny", 1}, // an early line feed is like any other character
        {{x(60) + " y", x(60) + " y"}, x(60) + "\ny\n\n" + x(60) + "\ny", 4},
        {{x(1000), x(999)}, x(1000) + "\n\n" + x(997), 2},
        {{x(1000), x(1000)}, x(1000), 0}, // would not fit and starts afresh
        {{x(1998), "y"}, x(1998) + "\n", 2},
        {{x(1999)}, x(1999), 0},
        {{x(2000)}, x(1999), 0},
        {{x(5000)}, x(1999), 0},
        {{x(5000), "y"}, "y", 0},
        {{x(5000), ""}, x(1999), 0},
    };
    for (const auto &c : cases) {
        msgtext text{};
        bool shown = false;
        for (const std::string &message : c.messages) {
            msgtext_put(text, message, shown);
            shown = true;
        }
        EXPECT_EQ(std::string(text.str.data()), c.text);
        EXPECT_EQ(text.lastj, static_cast<int>(c.text.size()));
        EXPECT_EQ(text.lastnl, c.breaks) << c.text;
        EXPECT_EQ(msgtext_height(text), 140 + 5 * c.breaks);
    }
}

TEST(MessageText, StartsAfreshAfterThePopUpWasHidden)
{
    msgtext text{};
    msgtext_put(text, x(60) + " first", false);
    msgtext_put(text, "second", false);
    EXPECT_STREQ(text.str.data(), "second");
    EXPECT_EQ(text.lastnl, 0);
}

} // namespace
