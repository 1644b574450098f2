#include "dovsys/dovsys.h"
#include "dovsys/internal.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <tuple>

namespace {

namespace fs = std::filesystem;
using names = std::set<std::string>;

#ifdef _WIN32
constexpr char separator = '\\';
#else
constexpr char separator = '/';
#endif

// An own working directory, with a few entries.
class Directory : public testing::Test {
protected:
    Directory()
    {
        rddir_reset();
        fs::remove_all(place_);
        fs::create_directories(place_ / "sub.d");
        fs::current_path(place_);
        for (const char *name : {"a.jrl", "b.jrl", "c.dat", "plain", "data[1].iq", ".dot", "sub.d/in.jrl"})
            std::ofstream(name) << name;
    }

    ~Directory() override
    {
        rddir_reset();
        fs::current_path(fs::temp_directory_path());
        fs::remove_all(place_);
    }

    static names listing(const std::string &mask)
    {
        names found;
        rddir_init(mask.c_str());
        while (const char *file = rddir(mask.c_str()))
            EXPECT_TRUE(found.insert(file).second) << file << " twice";
        EXPECT_EQ(rddir(mask.c_str()), nullptr) << "after the end";
        return found;
    }

    static std::string here(const std::string &name) { return fs::current_path().string() + separator + name; }

    const fs::path place_ = fs::temp_directory_path() / "dovsys_test_directory";
};

TEST_F(Directory, ListsAllThatMatches)
{
    const names all = {"a.jrl", "b.jrl", "c.dat", "plain", "data[1].iq", ".dot", "sub.d", ".", ".."};
    using row = std::tuple<const char *, names>;
    for (const auto &[mask, found] :
         {row{"*", all}, row{"*.*", all}, row{"*.jrl", {"a.jrl", "b.jrl"}}, row{"?.jrl", {"a.jrl", "b.jrl"}},
          row{"plain.*", {"plain"}}, row{"plain*", {"plain"}}, row{"data[1]*", {"data[1].iq"}}, row{"[ab].jrl", {}},
          row{"sub.d", {"sub.d"}}, row{"*.none", {}}, row{"none\\*", {}}, row{"", {}}}) {
        names expected;
        for (const std::string &name : found)
            expected.insert(here(name));
        EXPECT_EQ(listing(mask), expected) << mask;
    }
    EXPECT_EQ(listing("sub.d\\*.jrl"), names{"sub.d\\in.jrl"});
    const std::string native = here("sub.d") + separator;
    EXPECT_EQ(listing(native + "*.jrl"), names{native + "in.jrl"});
}

TEST_F(Directory, StartsOverAfterNothingAndWhenArmed)
{
    rddir_init("a.*");
    EXPECT_EQ(rddir("none.*"), nullptr);
    const char *first = rddir("a.*");
    EXPECT_EQ(std::string(first), here("a.jrl"));
    rddir_free("A");
    rddir_free("\xff");
    rddir_free("");
    rddir_free(nullptr);
    EXPECT_EQ(rddir("*"), nullptr) << "the listing goes on with its own mask";
    EXPECT_EQ(rddir("*"), nullptr);
    EXPECT_STREQ(rddir_init("*.jrl"), "*.jrl");
    EXPECT_NE(rddir("*.jrl"), nullptr);
    EXPECT_STREQ(rddir_init("b.*"), "b.*"); // leaves the listing in the middle
    EXPECT_EQ(rddir("b.*"), first);
    EXPECT_EQ(std::string(first), here("b.jrl"));
}

TEST_F(Directory, SkipsWhatDoesNotFit)
{
    rddir_init(nullptr);
    EXPECT_EQ(rddir(nullptr), nullptr);
    EXPECT_EQ(listing(std::string(300, 'm') + "*"), names{});
#ifndef _WIN32 // where the system itself sets the bound
    while (259 - here("").size() > 200) {
        fs::create_directory(std::string(50, 'd'));
        fs::current_path(std::string(50, 'd'));
    }
    const std::string fits(259 - here("").size(), 'f');
    std::ofstream(fits) << 1;
    std::ofstream(fits + "f") << 1;
    EXPECT_EQ(listing("f*"), names{here(fits)});
#endif
}

TEST_F(Directory, TellsFilesFromDirectories)
{
    using row = std::tuple<const char *, int, int>;
    for (const auto &[path, file, directory] :
         {row{"plain", 1, 0}, row{"sub.d", 0, 1}, row{".", 0, 1}, row{"none", 0, 0}, row{"", 0, 0},
          row{"sub.d\\in.jrl", 1, 0}, row{"sub.d/in.jrl", 1, 0}, row{"plain\\x", 0, 0}, row{nullptr, 0, 0}}) {
        EXPECT_EQ(dovsys_is_file(path), file) << path;
        EXPECT_EQ(dovsys_is_directory(path), directory) << path;
    }
    const std::string endless(70000, 'e');
    EXPECT_EQ(dovsys_is_file(endless.c_str()) + dovsys_is_directory(endless.c_str()), 0);
    EXPECT_EQ(dovsys_mkdir("made"), 0);
    EXPECT_EQ(dovsys_mkdir("made\\inside"), 0);
    EXPECT_EQ(dovsys_is_directory("made\\inside"), 1);
    for (const char *impossible : {"made", "none\\inside", static_cast<const char *>(nullptr)})
        EXPECT_EQ(dovsys_mkdir(impossible), -1) << impossible;
}

TEST(Paths, AreSplitAtTheLastSeparator)
{
    using row = std::tuple<const char *, const char *, const char *>;
    const row rows[] = {
        {"c:\\a\\b.txt", "c:\\a\\", "b.txt"},
        {"b.txt", "", "b.txt"},
        {"a\\", "a\\", ""},
        {"\\b", "\\", "b"},
        {"", "", ""},
        {" a \\ b\n", "a \\", "b"},
#ifdef _WIN32
        {"a\\b/c", "a\\", "b/c"},
#else
        {"a\\b/c", "a\\b/", "c"},
#endif
    };
    for (const auto &[whole, front, back] : rows) {
        std::string path = whole;
        std::string name = whole;
        splitit(path.c_str(), path.data(), name.data());
        EXPECT_STREQ(path.c_str(), front) << whole;
        EXPECT_STREQ(name.c_str(), back) << whole;
    }
}

} // namespace
