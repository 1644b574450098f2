#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/process.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace {

#ifdef _WIN32
constexpr const char *native_home = "/home/x\\"; // only '\' is a separator
#else
constexpr const char *native_home = "/home/x/";
#endif

TEST(Logicals, AreReadFromTheEnvironment)
{
    set_environment("DOVSYS_X", "plain");
    set_environment("DOVSYS_T_DOVSYS_X", "of the table");
    const char *value = get_logical("DOVSYS_X", nullptr);
    EXPECT_STREQ(value, "plain");
    EXPECT_EQ(get_logical("DOVSYS_X", "DOVSYS_T"), value);
    EXPECT_STREQ(value, "of the table");
    EXPECT_EQ(get_logical("DOVSYS_UNDEFINED", nullptr), nullptr);
    EXPECT_EQ(get_logical("X", "DOVSYS_UNDEFINED"), nullptr);
    EXPECT_EQ(get_logical(nullptr, "DOVSYS_X"), nullptr);
    EXPECT_EQ(get_logical("", nullptr), nullptr);
    EXPECT_STREQ(value, "of the table");
#ifndef _WIN32 // where an empty value cannot be set
    set_environment("DOVSYS_X", "");
    EXPECT_STREQ(get_logical("DOVSYS_X", nullptr), "");
#endif
}

TEST(Logicals, AreBounded)
{
    const std::string name(511, 'N');
    set_environment(name.c_str(), "long name");
    EXPECT_STREQ(get_logical(name.c_str(), nullptr), "long name");
    EXPECT_EQ(get_logical((name + "N").c_str(), nullptr), nullptr);
    EXPECT_EQ(get_logical(name.c_str(), "T"), nullptr);
    for (const std::size_t length : {255U, 256U, 9000U}) {
        set_environment("DOVSYS_X", std::string(length, 'v').c_str());
        EXPECT_EQ(std::string(get_logical("DOVSYS_X", nullptr)), std::string(255, 'v'));
    }
}

TEST(Logicals, AreTranslatedForFortran)
{
    set_environment("DOVSYS_X", "0123456789");
    using row = std::tuple<std::string, int, int, std::string>;
    // | for NUL, and what lies behind stays
    const std::string too_long(600, 'x');
    for (const auto &[name, loglen, equlen, expected] :
         {row{"DOVSYS_Xyz", 8, 8, "0123456|...."}, row{"DOVSYS_X", 8, 11, "0123456789|."},
          row{"DOVSYS_X", 8, 12, "0123456789 |"}, row{"DOVSYS_X", 8, 1, "|..........."},
          row{"DOVSYS_X", 8, 0, "............"}, row{"DOVSYS_X", 7, 5, "    |......."},
          row{"DOVSYS_X  ", 10, 5, "    |......."}, row{"DOVSYS_X", -1, 4, "   |........"},
          row{too_long, 600, 4, "   |........"}}) {
        std::string equivalent(12, '.');
        transl_(name.c_str(), equivalent.data(), loglen, equlen);
        std::replace(equivalent.begin(), equivalent.end(), '\0', '|');
        EXPECT_EQ(equivalent, expected) << name << " " << equlen;
    }
}

class Home : public testing::Test {
protected:
    ~Home() override { logicals_reset(); }

    static const char *of(const char *value)
    {
        logicals_reset();
        set_environment("HOME", value);
        return dovsys_homedir();
    }
};

TEST_F(Home, EndsInASeparatorAndIsReadOnce)
{
    EXPECT_STREQ(of("C:\\users\\x"), "C:\\users\\x\\");
    EXPECT_STREQ(of("C:\\users\\x\\"), "C:\\users\\x\\");
    EXPECT_STREQ(of("/home/x"), native_home);
    const std::string longest(58, 'h');
    EXPECT_EQ(std::string(of(longest.c_str())).substr(0, 58), longest);
    EXPECT_STREQ(of(nullptr), "");
    set_environment("HOME", "C:\\later");
    EXPECT_STREQ(dovsys_homedir(), "");
}

TEST_F(Home, EndsTheProcessWhenItDoesNotFit)
{
    for (const std::size_t length : {59U, 300U})
        EXPECT_ENDS(of(std::string(length, 'h').c_str()), 1, "Problem in homedir\\(\\), in dovsys library\\.\\.\\.: ");
}

} // namespace
