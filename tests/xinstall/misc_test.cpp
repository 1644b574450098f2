#include "fake_disk.h"
#include "text.h"
#include "xinstall/misc.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace {

using strings = std::vector<std::string>;

const std::string too_large = "Not enough space in buffer to edit!";

std::string cannot_read(const std::string &file)
{
    return "Unable to open file " + file + " for reading!";
}

// ---- chstr, over real files ----

std::string repeated(std::size_t n, const std::string &end = "")
{
    return std::string(n - end.size(), 'x') + end;
}

#ifdef _WIN32
const std::string line_end = "\r\n"; // as the platform writes it
#else
const std::string line_end = "\n";
#endif

TEST(Chstr, ReplacesTheFirstOccurrenceAndLosesNothing)
{
    using namespace std::string_literals;
    const std::string long_lines = repeated(299) + "\n" + repeated(300) + "\n" + repeated(1000);
    const std::string same = "same", full = "full";                               // nothing is found; not enough space
    using row = std::tuple<std::string, const char *, const char *, std::string>; // before, from, to, after
    const auto path = std::filesystem::temp_directory_path() / "chstr_test.txt";
    for (const auto &[before, from, to, after] :
         {row{"", "a", "b", same}, row{"", "", "b", same}, row{"none here", "None", "b", same}, row{"a", "a", "", ""},
          row{"-aa-aa-", "aa", "b", "-b-aa-"}, row{"xaab", "aab", "c", "xc"},
          row{"ends in part of the tok", "token", "b", same},
          row{"one\ntwo token\nthree", "token", "longer than it", "one\ntwo longer than it\nthree"},
          row{"one\n\ntoken\n", "token", "", "one\n\n\n"}, row{"a\0b token\0\0c"s, "token", "t", "a\0b t\0\0c"s},
          row{long_lines + "token" + long_lines, "token", "t", long_lines + "t" + long_lines},
          row{"\xc3\xa9 token", "token", "\xe6\x97\xa5", "\xc3\xa9 \xe6\x97\xa5"},
          row{repeated(99999, "token"), "token", "same!", repeated(99999, "same!")},
          row{repeated(99998, "token"), "token", "longer", repeated(99999, "longer")},
          row{repeated(99999, "token"), "token", "longer", full}, row{repeated(99999), "token", "longer", full},
          row{repeated(100000, "token"), "token", "", full}, row{repeated(300000, "token"), "token", "", full}}) {
        std::ofstream(path, std::ios::binary) << before;
        const bool edited = after != same && after != full;
        EXPECT_EQ(chstr(path.string().c_str(), from, to), edited) << before.substr(0, 60);
        EXPECT_TRUE(bytes_of(path) == (edited ? replaced(after, "\n", line_end) : before)) << before.substr(0, 60);
        EXPECT_EQ(take_messages(), after == full ? strings{too_large} : strings{});
    }
    std::filesystem::remove(path);
    EXPECT_EQ(chstr(path.string().c_str(), "a", "b"), 0);
    EXPECT_EQ(take_messages(), strings{cannot_read(path.string())});
}

// ---- batch_install, over the disk in memory ----

const std::string env_text =
    "# program_name\r\nHOME=default_location\\program_name\r\nLOG=default_location\\a.log;default_location";
const std::string env = "C:\\x\\TANSY_DEMO\\TANSY_DEMO.env", bat = "C:\\x\\TANSY_DEMO\\TANSY_DEMO_install.bat";
const std::string bat_text = "@echo default_location program_name\r\n";

class BatchInstall : public testing::Test {
protected:
    BatchInstall()
    {
        set_progname("TANSY_DEMO");
        disk.files = {{"TANSY_DEMO.env", env_text}, {"TANSY_DEMO_install.bat", bat_text}};
    }

    // The text with its tokens replaced, or the first so many of each.
    static std::string edited(const std::string &text, const std::string &dir, int locations = -1, int names = -1)
    {
        return replaced(replaced(text, "default_location", dir, locations), "program_name", "TANSY_DEMO", names);
    }

    int install(const std::string &location, const std::string &dir)
    {
        disk.dirs.insert(dir);
        return batch_install(location.c_str());
    }

    fake_disk disk;
};

strings commands_for(const std::string &dir)
{
    strings commands = {R"(del "@\test.tmp")",
                        R"(mkdir "@\TANSY_DEMO")",
                        R"(copy TANSY_DEMO.env "@\TANSY_DEMO\TANSY_DEMO.env")",
                        R"(copy TANSY_DEMO_install.bat "@\TANSY_DEMO\TANSY_DEMO_install.bat")",
                        R"("@\TANSY_DEMO\TANSY_DEMO_install.bat")",
                        R"(del "@\TANSY_DEMO\TANSY_DEMO_install.bat")"};
    for (std::string &command : commands)
        command = replaced(command, "@", dir);
    return commands;
}

TEST_F(BatchInstall, IssuesTheCommandsAndNamesTheLocationInBothFiles)
{
    const std::string long_name = "C:\\" + std::string(5000, 'd');
    using row = std::pair<std::string, std::string>;
    for (const auto &[location, dir] :
         {row{"c:\\program files\\", "c:\\program files"}, row{"C:\\two\\\\", "C:\\two\\"},
          row{"C:\\a & b (x86)", "C:\\a & b (x86)"},
          row{"C:\\na\xc3\xafve \xe6\x97\xa5\\", "C:\\na\xc3\xafve \xe6\x97\xa5"},
          row{"\\\\server\\share", "\\\\server\\share"}, row{"C:", "C:"}, row{"relative", "relative"}, row{"", ""},
          row{"\\", ""}, row{long_name, long_name}}) {
        disk.commands.clear();
        const std::string plain = dir.ends_with('\\') ? dir.substr(0, dir.size() - 1) : dir;
        EXPECT_EQ(install(location, plain), 1) << location;
        EXPECT_EQ(disk.commands, commands_for(dir));
        EXPECT_EQ(take_messages(), strings{});
        const std::string installed = plain + "\\TANSY_DEMO\\TANSY_DEMO.env";
        EXPECT_EQ(disk.files[installed], edited(env_text, dir));
        EXPECT_EQ(disk.files["ran"], edited(bat_text, dir));
        EXPECT_EQ(disk.files.size(), 4U) << "the two files, what was installed and what ran";
        disk.files.erase(installed);
    }
    set_progname("0123456789012345678901234567890123456789-more");
    disk.commands.clear();
    EXPECT_EQ(install("C:", "C:"), 1);
    EXPECT_EQ(disk.commands[1], "mkdir \"C:\\0123456789012345678901234567890123456789\"");
}

TEST_F(BatchInstall, EndsAtTheProbeBeforeAnyCommand)
{
    for (const std::string location : {"C:\\missing", "C:\\a\"b", "C:\\x\" & del \"y", "\"C:\\here\"",
                                       "C:\\here:stream", "C:\\a<b", "C:\\a>b", "C:\\a|b", "C:\\a?b", "C:\\a*b",
                                       "C:\\a\nb", "C:\\a\tb", "\\\\?\\C:\\here", ":", "::", "C::", "C:\\here\\\x1f"}) {
        if (location != "C:\\missing")
            disk.dirs.insert(location);
        EXPECT_EQ(batch_install(location.c_str()), 0);
        EXPECT_EQ(disk.commands, strings{});
        EXPECT_EQ(take_messages(), strings{cannot_write_to(location)});
    }
    EXPECT_EQ(disk.files.size(), 2U);
}

TEST_F(BatchInstall, TellsAboutMissingAndOversizedFilesAndGoesOn)
{
    using row = std::tuple<const char *, std::string, strings>; // source, what it holds, messages
    const auto sources = disk.files;
    for (const auto &[source, content, messages] :
         {row{"TANSY_DEMO.env", "missing", {cannot_read(env), cannot_read(env)}},
          row{"TANSY_DEMO_install.bat", "missing", {cannot_read(bat), cannot_read(bat)}},
          row{"TANSY_DEMO.env", repeated(100000), {too_large, too_large}}}) {
        disk.files = sources;
        disk.commands.clear();
        disk.files[source] = content;
        if (content == "missing")
            disk.files.erase(source);
        EXPECT_EQ(install("C:\\x", "C:\\x"), 1);
        EXPECT_EQ(take_messages(), messages) << source << content.size();
        EXPECT_EQ(disk.commands.size(), 6U);
    }
    // A location that holds the token grows the text up to the limit.
    disk.files = sources;
    const std::string growing = "C:\\" + std::string(200, 'd') + "default_location";
    EXPECT_EQ(install(growing, growing), 1);
    EXPECT_EQ(take_messages(), (strings{too_large, too_large}));
}

TEST_F(BatchInstall, SurvivesTheFailureOfAnyOneOperation)
{
    const auto sources = disk.files;
    strings known = {cannot_write_to("C:\\x")}, allowed; // all states while tokens are replaced one by one
    for (int i = 0; i < 12; i++)
        allowed.push_back(edited(env_text, "C:\\x", i / 3, i % 3));
    for (const std::string &file : {env, bat}) {
        known.push_back(cannot_read(file));
        known.push_back("Unable to open file " + file + " for writing!");
        known.push_back("Unable to read file " + file + "!");
        known.push_back("Unable to write file " + file + "!  It is incomplete!");
    }
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

// ---- parse_args ----

TEST(ParseArgs, JoinsThenSplitsAtBlanksOutsideQuotes)
{
    const std::string w199(199, 'w');
    using row = std::pair<strings, strings>;
    for (const auto &[given, expected] :
         {row{{}, {}}, row{{"", " \t"}, {}}, row{{"one"}, {"one"}}, row{{"one", "two"}, {"onetwo"}},
          row{{"one ", "two three"}, {"one", "two"}}, row{{" \tone\ttwo "}, {"one", "two"}},
          row{{"\"c:\\program", " files\" x"}, {"c:\\program files", "x"}}, row{{"a\"b c\"d e"}, {"ab cd", "e"}},
          row{{"\"open to the end "}, {"open to the end "}}, row{{w199 + "w ", w199}, {w199, w199}},
          row{{"a ", std::string(499, 'x')}, {"a"}},
          row{{"a ", std::string(498, 'x')}, {"a", std::string(199, 'x')}}}) {
        strings args = given;
        args.insert(args.begin(), " ");
        std::vector<char *> argv;
        for (std::string &arg : args)
            argv.push_back(arg.data());
        std::array<std::array<char, 200>, 2> buffers;
        std::array<char *, 2> words = {buffers[0].data(), buffers[1].data()};
        const int n = parse_args(argv.data(), static_cast<int>(given.size()), words.data());
        EXPECT_EQ(strings(words.begin(), words.begin() + n), expected);
    }
}

} // namespace
