#include "wi/wihlpfile.h"
#include "wi/wihlplib.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace {

constexpr const char *lib = "helplib_test.hlp";
constexpr const char *table = "helplib_test.hlp.tofc";

std::string read(const char *name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string crlf(std::string text)
{
    for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; i += 2)
        text.insert(i, 1, '\r');
    return text;
}

void fresh(const std::string &library, const std::optional<std::string> &contents = std::nullopt)
{
    std::filesystem::remove_all(table);
    std::ofstream(lib, std::ios::binary) << library;
    if (contents)
        std::ofstream(table, std::ios::binary) << *contents;
}

struct HelpLibrary : testing::Test {
    ~HelpLibrary() override
    {
        std::filesystem::remove_all(table);
        std::filesystem::remove(lib);
    }
};

// What the answer comes to, in one text.
std::string said(const std::string &key)
{
    const wi_hlp_answer a = wi_hlp_lookup(lib, key.c_str());
    std::string out = a.what == wi_hlp_answer::by_keyword ? "" : a.text;
    for (const std::string &match : a.matches)
        out.append("[").append(match).append("]");
    return a.key == key.substr(0, 199) ? out : std::string(a.key).append(" -> ").append(out);
}

const std::string sample =
    "\n0 HELP\nall\n\n1 xinstall\n!hidden\nmain\n\n2 Path\nthe path\n\n\n2 Pathology  of  a\nodd\n\n"
    "3 deep\nd\n\n2 DEFAULT\nx\n\n3 Size\nby program\n\n12 no topic\n\n1 DEFAULT\ny\n\n"
    "2 Colour\nfor all\n\n2 a\tb\nt";
const std::string sample_table = "0 HELP\t3\n1 xinstall\t15\n2 Path\t40\n2 Pathology  of  a\t58\n3 deep\t82\n"
                                 "2 DEFAULT\t92\n3 Size\t105\n1 DEFAULT\t137\n2 Colour\t150\n2 a\tb\t168\n";
const std::string list = "\nAdditional information available:\n\n";
const std::string none = "No information available for ";
const std::string path = "Path\nthe path\n\n\n";

TEST_F(HelpLibrary, AnswersKeysWithEitherKindOfLineEnds)
{
    const struct {
        std::string key, answer;
    } rows[] = {
        {"help", "HELP\nall\n\n" + list + "xinstall\t\tDEFAULT\t\t\t"},
        {"help:XINST", "xinstall\nmain\n\n" + list + "Path\t\t\tPathology of a\t\tDEFAULT\t\t\t\n"}, // no comment
        {"help:xinstall:path", path},
        {"help:x:Pathol", "Pathology  of  a\nodd\n\n" + list + "deep\t\t\t"}, // beginnings
        {"help:xinstall:Size", "HELP:XINSTALL:DEFAULT:SIZE -> Size\nby program\n\n"},
        {"help:other:colour", "HELP:DEFAULT:COLOUR -> Colour\nfor all\n\n"},
        {"help:DEFAULT:a\tb", "a\tb\nt"},
        {"help:other:Size", "[HELP:xinstall:DEFAULT:Size]"},
        {"hel", "[HELP]"},                                               // a single part is never a beginning
        {"help:other:default", "[HELP:DEFAULT][HELP:xinstall:DEFAULT]"}, // the nearer one first
        {"help:xinstall:no topic", none + "NO TOPIC"},                   // two digits end a text and begin none
        {"a:b:c:d:e:f:g:h:i:j:k:l:m:n:o:p:q:r:s:zz", none + "J"},
        {std::string(5000, 'q'), none + std::string(80, 'Q')},
        {"", none},
    };
    for (const std::string &library : {sample, crlf(sample)}) {
        fresh(library);
        for (const auto &row : rows)
            EXPECT_EQ(said(row.key), row.answer) << row.key;
        EXPECT_EQ(read(table), sample_table); // characters are counted, not bytes
    }
}

TEST_F(HelpLibrary, MendsOrOutlivesAnyTable)
{
    const struct {
        std::string table, answer;
    } rows[] = {
        {"0 HELP\t3\n1 xinstall\t15\n2 Path\t33\n", path}, // older than a topic before it
        {"0 HELP\t3\n1 X\t1\n2 PATH\t-40\n", "[HELP:X:PATH]"},
        {"0 HELP\t3\n1 xinstall\t1\n2 PATH\t-40\n", path},
        {"0 HELP\t3\n1 xinstall\t1\n2 PATH\t99999999999999999999\n", path},
        {"0 HELP\t3\n1 xinstall\t1\n2 PATH\t4O\n", path},
        {crlf("0 HELP\t3\n1 xinstall\t1\n2 PATH\t40\n"), path},
        {"0 HELP\t3\n1 xinstall\t1\n1 z\t2\n2 PATH\t40\n", "[HELP:z:PATH]"}, // beyond the end of its branch
        {"0 HELP\t3\n1 xinstall\t1\n9 z\t2\n2 PATH\t40", path},              // a jump is no end
        {"0 " + std::string(200000, 'x') + "\n0 HELP\t3\n1 xinstall\t1\n2 PATH\t40\n", path},
        {"2 path\t40\n", "[::path]"},
        {"garbage\n2 path\t40\n", none + "PATH"},
        {std::string("\0\x1a\xff\n\n1\n7 \t\n", 9), none + "PATH"},
        {"", none + "PATH"},
    };
    for (const auto &row : rows) {
        fresh(sample, row.table);
        EXPECT_EQ(said("help:xinst:path"), row.answer) << row.table.substr(0, 60);
    }
    fresh("\n0 HELP\na\r\n\n1 OTHER:\n\n", "0 HELP\t1\n"); // line ends of both kinds
    EXPECT_EQ(said("help"), "HELP\na\n\n" + list + "OTHER:\t\t\t");
    EXPECT_EQ(said("help:other"), "OTHER:\n\n");
    fresh("\n0 A\n\n2 B\n!C\n", "0 C\t8\n");
    EXPECT_EQ(said("c"), none + "C");
    fresh(sample);
    std::filesystem::create_directory(table);
    EXPECT_EQ(said("help"), "Unable to read the help lib table of contents, wihlp.c");
    std::filesystem::remove(lib);
    EXPECT_EQ(said("help"), "Unable to open file helplib_test.hlp for reading!");
}

TEST_F(HelpLibrary, ListsNoMoreThanFits)
{
    std::string topics = "\n0 A\n" + std::string(20000, 'x') + "\n\n";
    const std::string names[] = {std::string(23, 'b'), std::string(46, 'c'), std::string(22, 'd'),
                                 std::string(200, 'e')};
    for (int i = 0; i < 41; ++i)
        topics.append("1 ").append(i < 4 ? names[i] : "k").append("Key\n\n");
    fresh(topics);
    const wi_hlp_answer found = wi_hlp_lookup(lib, "b:key");
    EXPECT_TRUE(found.too_many && found.matches.size() == 40);
    EXPECT_EQ(found.matches[3], "A:kKey"); // the fourth name has its keyword behind 99 characters
    const wi_hlp_answer top = wi_hlp_lookup(lib, "a");
    EXPECT_EQ(top.saved.size(), 9999U);
    const std::string start = list + names[0] + "Key\t\t\t" + names[1] + "\t\n" + names[2] + "Key\t\t\t";
    EXPECT_EQ(top.text.substr(9999, start.size()), start);
}

// The nth call on the system fails, for every n until all is well.
TEST_F(HelpLibrary, IsNeverLostInSaving)
{
    static int calls_left;
    static constexpr auto fails = [] { return calls_left-- == 0; };
    static const wi_hlp_files system = wi_hlp_io;
    const std::string before = crlf(sample);
    const std::string after =
        std::string(before).replace(before.find("Path"), crlf(path).size(), "PATH\r\nnew\r\n\r\n");
    int n = 0;
    for (bool failed = true; failed; ++n) {
        fresh(before, "old");
        calls_left = n;
        wi_hlp_io.open = [](auto name, auto mode) { return fails() ? nullptr : system.open(name, mode); };
        wi_hlp_io.write = [](auto p, auto a, auto b, auto f) { return system.write(p, a, fails() ? b / 2 : b, f); };
        wi_hlp_io.close = [](auto f) { return system.close(f) | -fails(); };
        wi_hlp_io.replace = [](auto from, auto to) { return fails() ? -1 : system.replace(from, to); };
        std::string message;
        const bool edited = wi_hlp_replace(lib, path, "PATH\nnew\n\n", message);
        const bool made = edited && mktofc(lib);
        failed = calls_left < 0;
        wi_hlp_io = system;
        EXPECT_EQ(read(lib), edited ? after : before);
        EXPECT_EQ(read(table) == "old", !made);
        EXPECT_FALSE(std::filesystem::exists(std::string(lib) + ".new"));
        EXPECT_FALSE(std::filesystem::exists(std::string(table) + ".new"));
        EXPECT_EQ(message, edited   ? ""
                           : n == 0 ? "Unable to open file helplib_test.hlp for reading!"
                                    : "Unable to open file helplib_test.hlp for writing!");
    }
    EXPECT_GT(n, 12);
}

TEST_F(HelpLibrary, IsEditedWithItsCommentsAndLineEnds)
{
    std::string message;
    fresh("\n0 A\r\n\r\n1 B\n!one\nold\n!two\n\n!out\n");
    EXPECT_TRUE(wi_hlp_replace(lib, "B\nold\n\n", "B\nnew\nlines\n\n", message));
    EXPECT_EQ(read(lib), "\n0 A\r\n\r\n1 B\n!one\n!two\nnew\nlines\n\n!out\n");
    EXPECT_FALSE(wi_hlp_replace(lib, "gone", "x", message));
    EXPECT_EQ(message, "Unable to find the topic in file helplib_test.hlp!");
    for (const std::size_t size : {999999U, 1000000U}) {
        fresh(std::string(size, 'x'));
        EXPECT_EQ(wi_hlp_replace(lib, "xx", "y", message), size < 1000000);
    }
    EXPECT_EQ(message, "Not enough space in buffer to edit!");
    for (const std::string page : {"A\nb \t\n \n", "A\nb\n\n\nAdditional information available:\n\nC", "A\nb"})
        EXPECT_EQ(wi_hlp_edited_text(page), "A\nb\n\n");
}

TEST(HelpTexts, FollowTheRulesOfLabelsAndMessages)
{
    const struct {
        const char *prognm, *label, *key;
    } rows[] = {{"help:x", "Name:", "help:x:Name"}, {nullptr, "a:b", "default:a:b"}, {"help:x", "", "help:x:"},
                {"help:x", "a::b", nullptr},        {"help:x", ":x", nullptr},       {"help:x", nullptr, nullptr}};
    for (const auto &row : rows) {
        std::string key;
        EXPECT_EQ(wi_hlp_label_key(row.prognm, row.label, key), row.key != nullptr);
        EXPECT_EQ(key, row.key ? row.key : "");
    }
    const std::string a29(29, 'a'), a30(30, 'a');
    const wi_hlp_wrapped wrapped = wi_hlp_wrap(a29 + " b " + a30 + " c\nd");
    EXPECT_EQ(wrapped.text, a29 + " b\n" + a30 + "\nc\nd");
    EXPECT_EQ(wrapped.breaks, 2);
    EXPECT_EQ(wi_hlp_lower("AZ[\xc4"), "az[\xc4");
}

} // namespace
