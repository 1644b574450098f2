#include "fake_disk.h"
#include "xinstall/misc.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using strings = std::vector<std::string>;

const std::string too_large = "Not enough space in buffer to edit!";

std::string cannot_read(const std::string &file)
{
    return "Unable to open file " + file + " for reading!";
}

std::string replaced(std::string s, const std::string &from, const std::string &to, int times = -1)
{
    for (std::size_t i = 0; times-- != 0 && (i = s.find(from, i)) != std::string::npos; i += to.size())
        s.replace(i, from.size(), to);
    return s;
}

// ---- chstr, over real files ----

struct chstr_case {
    std::string before, from, to;
    int result;
    std::string after; // with LF line ends
    std::string message;
};

std::string repeated(std::size_t n, const std::string &end = "")
{
    return std::string(n - end.size(), 'x') + end;
}

// As the platform writes the text.
std::string on_disk(const std::string &text)
{
#ifdef _WIN32
    return replaced(text, "\n", "\r\n");
#else
    return text;
#endif
}

std::string bytes_of(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Chstr, ReplacesTheFirstOccurrenceAndLosesNothing)
{
    using namespace std::string_literals;
    const std::string long_lines = repeated(299) + "\n" + repeated(300) + "\n" + repeated(1000);
    const chstr_case cases[] = {
        {"", "a", "b", 0, "", ""},
        {"", "", "b", 0, "", ""},
        {"none here", "None", "b", 0, "none here", ""},
        {"a", "a", "", 1, "", ""},
        {"-aa-aa-", "aa", "b", 1, "-b-aa-", ""},
        {"xaab", "aab", "c", 1, "xc", ""},
        {"ends in part of the tok", "token", "b", 0, "ends in part of the tok", ""},
        {"one\ntwo token\nthree", "token", "longer than it", 1, "one\ntwo longer than it\nthree", ""},
        {"one\n\ntoken\n", "token", "", 1, "one\n\n\n", ""},
        {"a\0b token\0\0c"s, "token", "t", 1, "a\0b t\0\0c"s, ""},
        {long_lines + "token" + long_lines, "token", "t", 1, long_lines + "t" + long_lines, ""},
        {"\xc3\xa9 token", "token", "\xe6\x97\xa5", 1, "\xc3\xa9 \xe6\x97\xa5", ""},
        {repeated(99999, "token"), "token", "same!", 1, repeated(99999, "same!"), ""},
        {repeated(99998, "token"), "token", "longer", 1, repeated(99999, "longer"), ""},
        {repeated(99999, "token"), "token", "longer", 0, repeated(99999, "token"), too_large},
        {repeated(99999), "token", "longer", 0, repeated(99999), too_large},
        {repeated(100000, "token"), "token", "", 0, repeated(100000, "token"), too_large},
        {repeated(300000, "token"), "token", "", 0, repeated(300000, "token"), too_large},
    };
    const auto path = std::filesystem::temp_directory_path() / "chstr_test.txt";
    for (const chstr_case &c : cases) {
        for (const bool crlf : {false, true}) {
#ifndef _WIN32
            if (crlf)
                continue;
#endif
            const std::string before = crlf ? replaced(c.before, "\n", "\r\n") : c.before;
            std::ofstream(path, std::ios::binary) << before;
            EXPECT_EQ(chstr(path.string().c_str(), c.from.c_str(), c.to.c_str()), c.result) << before.substr(0, 60);
            EXPECT_TRUE(bytes_of(path) == (c.result ? on_disk(c.after) : before)) << before.substr(0, 60);
            EXPECT_EQ(take_messages(), c.message.empty() ? strings{} : strings{c.message});
        }
    }
    std::filesystem::remove(path);
    EXPECT_EQ(chstr(path.string().c_str(), "a", "b"), 0);
    EXPECT_EQ(take_messages(), strings{cannot_read(path.string())});
}

// ---- batch_install, over the disk in memory ----

const std::string env_text =
    "# program_name\r\nHOME=default_location\\program_name\r\nLOG=default_location\\a.log;default_location";
const std::string bat_text = "@echo default_location program_name\r\n";

class BatchInstall : public testing::Test {
protected:
    BatchInstall()
    {
        set_progname("TANSY_DEMO");
        disk.files = {{"TANSY_DEMO.env", env_text}, {"TANSY_DEMO_install.bat", bat_text}};
    }

    int install(const std::string &location, const std::string &dir)
    {
        disk.dirs.insert(dir);
        return batch_install(location.c_str());
    }

    fake_disk disk;
};

const std::string sep = "\\";

strings commands_for(const std::string &dir)
{
    strings commands = {
        R"(del "@\test.tmp")",
        R"(mkdir "@\TANSY_DEMO")",
        R"(copy TANSY_DEMO.env "@\TANSY_DEMO\TANSY_DEMO.env")",
        R"(copy TANSY_DEMO_install.bat "@\TANSY_DEMO\TANSY_DEMO_install.bat")",
        R"("@\TANSY_DEMO\TANSY_DEMO_install.bat")",
        R"(del "@\TANSY_DEMO\TANSY_DEMO_install.bat")",
    };
    for (std::string &command : commands)
        command = replaced(command, "@", dir);
    return commands;
}

TEST_F(BatchInstall, IssuesTheCommandsAndNamesTheLocationInBothFiles)
{
    const std::string long_name = "C:\\" + std::string(5000, 'd');
    const std::array<std::string, 2> cases[] = {
        // location, directory
        {"c:\\program files\\", "c:\\program files"},
        {"c:\\program files", "c:\\program files"},
        {"C:\\two\\\\", "C:\\two\\"},
        {"C:\\a & b (x86)", "C:\\a & b (x86)"},
        {"C:\\it's 100%", "C:\\it's 100%"},
        {"C:\\na\xc3\xafve \xe6\x97\xa5\\", "C:\\na\xc3\xafve \xe6\x97\xa5"},
        {"\\\\server\\share", "\\\\server\\share"},
        {"C:", "C:"},
        {"relative", "relative"},
        {"", ""},
        {"\\", ""},
        {long_name, long_name},
    };
    for (const auto &[location, dir] : cases) {
        disk.commands.clear();
        const std::string plain = dir.ends_with(sep) ? dir.substr(0, dir.size() - 1) : dir;
        EXPECT_EQ(install(location, plain), 1) << location;
        EXPECT_EQ(disk.commands, commands_for(dir));
        EXPECT_EQ(take_messages(), strings{});
        const auto edited = [&dir = dir](const std::string &text) {
            return replaced(replaced(text, "default_location", dir), "program_name", "TANSY_DEMO");
        };
        const std::string product = plain + "\\TANSY_DEMO";
        EXPECT_EQ(disk.files[product + "\\TANSY_DEMO.env"], edited(env_text));
        EXPECT_EQ(disk.files["ran"], edited(bat_text));
        EXPECT_FALSE(disk.files.count(product + "\\TANSY_DEMO_install.bat"));
        EXPECT_FALSE(disk.files.count(plain + "\\test.tmp"));
    }
}

TEST_F(BatchInstall, EndsAtTheProbeBeforeAnyCommand)
{
    const std::string locations[] = {
        "C:\\missing", "C:\\a\"b", "C:\\x\" & del \"y", "\"C:\\here\"", "C:\\here:stream", "C:\\a<b",         "C:\\a>b",
        "C:\\a|b",     "C:\\a?b",  "C:\\a*b",           "C:\\a\nb",     "C:\\a\tb",        "\\\\?\\C:\\here", ":",
        "::",          "C::",      "C:\\here\\\x1f"};
    for (const std::string &location : locations) {
        if (location != "C:\\missing")
            disk.dirs.insert(location);
        EXPECT_EQ(batch_install(location.c_str()), 0);
        EXPECT_EQ(disk.commands, strings{});
        EXPECT_EQ(take_messages(),
                  strings{"Unable to write to directory " + location + "!  Check permissions or if directory exists!"});
    }
    EXPECT_EQ(disk.files.size(), 2U);
}

TEST_F(BatchInstall, TellsAboutMissingAndOversizedFilesAndGoesOn)
{
    const std::string env = "C:\\x\\TANSY_DEMO\\TANSY_DEMO.env";
    const std::string bat = "C:\\x\\TANSY_DEMO\\TANSY_DEMO_install.bat";
    struct {
        const char *source;
        std::string content;
        strings messages;
    } const cases[] = {
        {"TANSY_DEMO.env", "missing", {cannot_read(env), cannot_read(env)}},
        {"TANSY_DEMO_install.bat", "missing", {cannot_read(bat), cannot_read(bat)}},
        {"TANSY_DEMO.env", "", {}},
        {"TANSY_DEMO.env", repeated(100000), {too_large, too_large}},
        {"TANSY_DEMO_install.bat", repeated(99999), {}},
        {"TANSY_DEMO_install.bat", repeated(99999, "program_name"), {}},
    };
    const auto sources = disk.files;
    for (const auto &c : cases) {
        disk.files = sources;
        if (c.content == "missing")
            disk.files.erase(c.source);
        else
            disk.files[c.source] = c.content;
        EXPECT_EQ(install("C:\\x", "C:\\x"), 1);
        EXPECT_EQ(take_messages(), c.messages) << c.source << c.content.size();
        EXPECT_EQ(disk.commands.size(), 6U);
        disk.commands.clear();
    }
    disk.files.clear();
    EXPECT_EQ(install("C:\\x", "C:\\x"), 1);
    EXPECT_EQ(take_messages(), (strings{cannot_read(bat), cannot_read(bat), cannot_read(env), cannot_read(env)}));
    // A location that holds the token grows the text up to the limit.
    disk.files = sources;
    const std::string growing = "C:\\" + std::string(200, 'd') + "default_location";
    EXPECT_EQ(install(growing, growing), 1);
    EXPECT_EQ(take_messages(), (strings{too_large, too_large}));
}

// Every state that the text passes through while its tokens are replaced one by one.
strings stages(const std::string &text)
{
    strings all;
    for (int locations = 0; locations <= 3; locations++)
        for (int names = 0; names <= 2; names++)
            all.push_back(
                replaced(replaced(text, "default_location", "C:\\x", locations), "program_name", "TANSY_DEMO", names));
    return all;
}

TEST_F(BatchInstall, SurvivesTheFailureOfAnyOneOperation)
{
    const std::string env = "C:\\x\\TANSY_DEMO\\TANSY_DEMO.env";
    const std::string bat = "C:\\x\\TANSY_DEMO\\TANSY_DEMO_install.bat";
    const auto sources = disk.files;
    strings known = {"Unable to write to directory C:\\x!  Check permissions or if directory exists!"};
    for (const std::string &file : {env, bat}) {
        known.push_back("Unable to open file " + file + " for reading!");
        known.push_back("Unable to open file " + file + " for writing!");
        known.push_back("Unable to read file " + file + "!");
        known.push_back("Unable to write file " + file + "!  It is incomplete!");
    }
    const strings allowed = stages(env_text);
    for (int n = 1;; n++) {
        disk.files = sources;
        disk.files[env] = disk.files["C:\\x\\bystander"] = "earlier";
        disk.commands.clear();
        disk.dirs.clear();
        disk.operations = 0;
        disk.fail_at = n;
        const int result = install("C:\\x", "C:\\x");
        const strings messages = take_messages();
        SCOPED_TRACE("operation " + std::to_string(n) + ": " + testing::PrintToString(messages));

        EXPECT_EQ(disk.commands, result ? commands_for("C:\\x") : strings{});
        for (const std::string &message : messages)
            EXPECT_NE(std::find(known.begin(), known.end(), message), known.end()) << message;
        for (const auto &[name, content] : sources)
            EXPECT_EQ(disk.files[name], content);
        EXPECT_EQ(disk.files["C:\\x\\bystander"], "earlier");
        // Without a word about it the file is edited whole, or a failed command left the earlier one in its place.
        const std::string &left = disk.files[env];
        const bool told = testing::PrintToString(messages).find("DEMO.env") != std::string::npos;
        if (left != "earlier" && !told) {
            EXPECT_EQ(left, allowed.back());
        } else if (left != "earlier" && !messages.back().ends_with("incomplete!")) {
            EXPECT_NE(std::find(allowed.begin(), allowed.end(), left), allowed.end()) << left;
        }
        if (disk.operations < n)
            break;
    }
    EXPECT_GT(disk.operations, 60);
}

TEST(Progname, IsCutTo40Characters)
{
    fake_disk disk;
    set_progname("0123456789012345678901234567890123456789-more");
    disk.dirs.insert("C:");
    EXPECT_EQ(batch_install("C:"), 1);
    EXPECT_EQ(disk.commands[1], "mkdir \"C:\\0123456789012345678901234567890123456789\"");
}

// ---- parse_args ----

TEST(ParseArgs, JoinsThenSplitsAtBlanksOutsideQuotes)
{
    const std::string w199(199, 'w');
    struct {
        strings args;
        strings words;
    } const cases[] = {
        {{}, {}},
        {{"", " \t"}, {}},
        {{"one"}, {"one"}},
        {{"one", "two"}, {"onetwo"}},
        {{"one ", "two three"}, {"one", "two"}},
        {{" \tone\ttwo "}, {"one", "two"}},
        {{"\"c:\\program", " files\" x"}, {"c:\\program files", "x"}},
        {{"a\"b c\"d e"}, {"ab cd", "e"}},
        {{"\"open to the end "}, {"open to the end "}},
        {{w199 + "w ", w199}, {w199, w199}},
        {{"a ", std::string(499, 'x')}, {"a"}},
        {{"a ", std::string(498, 'x')}, {"a", std::string(199, 'x')}},
    };
    for (const auto &c : cases) {
        strings args = c.args;
        args.insert(args.begin(), " ");
        std::vector<char *> argv;
        for (std::string &arg : args)
            argv.push_back(arg.data());
        std::array<std::array<char, 200>, 2> buffers;
        std::array<char *, 2> words = {buffers[0].data(), buffers[1].data()};
        const int n = parse_args(argv.data(), static_cast<int>(c.args.size()), words.data());
        EXPECT_EQ(strings(words.begin(), words.begin() + n), c.words);
    }
}

} // namespace
