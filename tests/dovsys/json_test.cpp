#include "dovsys/dovsys.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

TEST(Json, ValuesReadBackTheSame)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const auto &[value, text] : {std::pair{0.1, "0.10000000000000001"},
                                      {3.0, "3"},
                                      {-0.0, "-0"},
                                      {1e300, "1.0000000000000001e+300"},
                                      {-1.5e-7, "-1.4999999999999999e-07"},
                                      {5e-324, "4.9406564584124654e-324"},
                                      {inf, "\"inf\""},
                                      {-inf, "\"-inf\""},
                                      {-std::numeric_limits<double>::quiet_NaN(), "\"nan\""}}) {
        std::string out = "[";
        json_number(out, value);
        EXPECT_EQ(out, std::string("[") + text);
    }
    std::string out;
    json_integer(out, INT64_MIN);
    json_string(out, std::string_view("a\"\\\0\n\x1f \x7f\x80\xff", 10));
    EXPECT_EQ(out, "-9223372036854775808\"a\\\"\\\\\\u0000\\u000a\\u001f \x7f\\u0080\\u00ff\"");
}

} // namespace
