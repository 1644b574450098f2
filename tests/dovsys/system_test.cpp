#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/process.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using names = std::set<std::string>;

const std::string separator(1, static_cast<char>(fs::path::preferred_separator));
const bool slash = separator == "/"; // a second one besides the backslash, and not the other system's limits

TEST(Directories, AreListedMadeAndToldFromFiles)
{
    const fs::path place = fs::temp_directory_path() / "dovsys_test_directory";
    fs::remove_all(place);
    fs::create_directories(place / "sub.d");
    fs::current_path(place);
    for (const char *name : {"a.jrl", "b.jrl", "c.dat", "plain", "data[1].iq", ".dot", "sub.d/in.jrl"})
        std::ofstream(name) << name;
    const std::string here = fs::current_path().string() + separator;
    const auto listing = [](const std::string &mask, const std::string &front) { // the names without what is in front
        names found;
        rddir_init(mask.c_str());
        while (const char *file = rddir(mask.c_str()))
            EXPECT_TRUE(std::string(file).starts_with(front) && found.insert(file + front.size()).second) << file;
        EXPECT_EQ(rddir(mask.c_str()), nullptr) << "after the end";
        return found;
    };
    const names all = {"a.jrl", "b.jrl", "c.dat", "plain", "data[1].iq", ".dot", "sub.d", ".", ".."};
    using row = std::pair<std::string, names>;
    for (const auto &[mask, found] :
         {row{"*", all}, row{"*.*", all}, row{"*.jrl", {"a.jrl", "b.jrl"}}, row{"?.jrl", {"a.jrl", "b.jrl"}},
          row{"plain.*", {"plain"}}, row{"plain*", {"plain"}}, row{"data[1]*", {"data[1].iq"}}, row{"[ab].jrl", {}},
          row{"sub.d", {"sub.d"}}, row{"*.none", {}}, row{"none\\*", {}}, row{"", {}},
          row{std::string(300, 'm') + "*", {}}})
        EXPECT_EQ(listing(mask, here), found) << mask;
    for (const std::string &front : {std::string("sub.d\\"), here + "sub.d" + separator})
        EXPECT_EQ(listing(front + "*.jrl", front), names{"in.jrl"});
#ifndef _WIN32 // where the system itself sets the bound
    const std::string fits(259 - here.size(), 'f');
    for (const char *too_much : {"", "f", "g", "h"})
        std::ofstream(fits + too_much) << 1;
    EXPECT_EQ(listing("f*", here), names{fits});
    EXPECT_EQ(listing("*", here).size(), all.size() + 1);
#endif
    rddir_reset();
    EXPECT_EQ(rddir(nullptr), nullptr);
    EXPECT_EQ(rddir("none.*"), nullptr);
    const char *first = rddir("a.*");
    EXPECT_EQ(std::string(first), here + "a.jrl");
    for (const char *other : {"A", "\xff", "", static_cast<const char *>(nullptr)})
        rddir_free(other);
    EXPECT_EQ(rddir("*"), nullptr) << "the listing goes on with its own mask";
    EXPECT_STREQ(rddir_init("*.jrl"), "*.jrl");
    EXPECT_NE(rddir("*.jrl"), nullptr);
    rddir_init("b.*"); // leaves the listing in the middle
    EXPECT_EQ(rddir("b.*"), first);
    EXPECT_EQ(std::string(first), here + "b.jrl");

    for (const auto &[path, result] :
         {std::pair{"made", 0}, {"made\\inside", 0}, {"made", -1}, {"none\\inside", -1}, {nullptr, -1}})
        EXPECT_EQ(dovsys_mkdir(path), result) << path;
    const std::string endless(70000, 'e');
    using kind = std::pair<const char *, int>; // 10 for a file, 1 for a directory
    for (const auto &[path, is] : {kind{"plain", 10}, kind{"sub.d", 1}, kind{".", 1}, kind{"none", 0}, kind{"", 0},
                                   kind{"sub.d\\in.jrl", 10}, kind{"sub.d/in.jrl", 10}, kind{"plain\\x", 0},
                                   kind{nullptr, 0}, kind{endless.c_str(), 0}, kind{"made\\inside", 1}})
        EXPECT_EQ(dovsys_is_file(path) * 10 + dovsys_is_directory(path), is) << path;
    rddir_reset();
    fs::current_path(fs::temp_directory_path());
    fs::remove_all(place);
}

TEST(Paths, AreSplitAtTheLastSeparator)
{
    using split = std::pair<const char *, const char *>; // with * between the parts
    for (const auto &[whole, parts] :
         {split{"c:\\a\\b.txt", "c:\\a\\*b.txt"}, split{"b.txt", "*b.txt"}, split{"a\\", "a\\*"}, split{"\\b", "\\*b"},
          split{"", "*"}, split{" a \\ b\n", "a \\*b"}, split{"a\\b/c", slash ? "a\\b/*c" : "a\\*b/c"}}) {
        char path[16];
        char name[16];
        splitit(c_strncpy(path, whole, 16), path, name);
        EXPECT_EQ(std::string(path) + "*" + name, parts);
    }
}

TEST(Logicals, AreReadFromTheEnvironment)
{
    const std::string longest(511, 'N');
    set_environment(longest.c_str(), "long name");
    set_environment("DOVSYS_X", "plain");
    set_environment("DOVSYS_T_DOVSYS_X", "of the table");
    const char *value = get_logical("DOVSYS_X", nullptr);
    EXPECT_STREQ(value, "plain");
    EXPECT_EQ(get_logical("DOVSYS_X", "DOVSYS_T"), value);
    const std::string longer = longest + "N";
    using row = std::pair<const char *, const char *>;
    for (const auto &[logical, table] :
         {row{"DOVSYS_UNDEFINED", nullptr}, row{"X", "DOVSYS_UNDEFINED"}, row{nullptr, "DOVSYS_X"}, row{"", nullptr},
          row{longest.c_str(), "T"}, row{longer.c_str(), nullptr}})
        EXPECT_EQ(get_logical(logical, table), nullptr) << logical;
    EXPECT_STREQ(value, "of the table");
    EXPECT_STREQ(get_logical(longest.c_str(), nullptr), "long name");
    set_environment("DOVSYS_X", std::string(256, 'v').c_str());
    EXPECT_EQ(std::string(get_logical("DOVSYS_X", nullptr)), std::string(255, 'v'));
    set_environment("DOVSYS_X", "");
    EXPECT_STREQ(get_logical("DOVSYS_X", nullptr), slash ? "" : nullptr); // where it cannot be set

    set_environment("DOVSYS_X", "0123456789");
    using fixed = std::tuple<std::string, int, int, std::string>; // | for NUL, and what lies behind stays
    for (const auto &[name, loglen, equlen, expected] :
         {fixed{"DOVSYS_Xyz", 8, 8, "0123456|...."}, fixed{"DOVSYS_X", 8, 11, "0123456789|."},
          fixed{"DOVSYS_X", 8, 12, "0123456789 |"}, fixed{"DOVSYS_X", 8, 1, "|..........."},
          fixed{"DOVSYS_X", 8, 0, "............"}, fixed{"DOVSYS_X", 7, 5, "    |......."},
          fixed{"DOVSYS_X  ", 10, 5, "    |......."}, fixed{"DOVSYS_X", -1, 4, "   |........"},
          fixed{std::string(600, 'x'), 600, 4, "   |........"}}) {
        std::string equivalent(12, '.');
        transl_(name.c_str(), equivalent.data(), loglen, equlen);
        std::replace(equivalent.begin(), equivalent.end(), '\0', '|');
        EXPECT_EQ(equivalent, expected) << name << " " << equlen;
    }

    const std::string most(58, 'h');
    using home = std::pair<const char *, std::string>;
    for (const auto &[path, expected] :
         {home{"C:\\users\\x", "C:\\users\\x\\"}, home{"C:\\users\\x\\", "C:\\users\\x\\"},
          home{"/home/x", "/home/x" + separator}, home{most.c_str(), most + separator}, home{nullptr, ""}}) {
        logicals_reset();
        set_environment("HOME", path);
        EXPECT_STREQ(dovsys_homedir(), expected.c_str());
        set_environment("HOME", (most + "h").c_str());
        EXPECT_STREQ(dovsys_homedir(), expected.c_str()) << "only read once";
    }
    logicals_reset();
    EXPECT_ENDS(dovsys_homedir(), 1, "Problem in homedir\\(\\), in dovsys library\\.\\.\\.: ");
}

} // namespace
