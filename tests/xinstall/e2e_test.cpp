#include "installer_process.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>

namespace fs = std::filesystem;

namespace {

using tree = std::map<std::wstring, std::string>; // by relative path; a directory holds "<dir>"

const std::wstring complete = L"Installation complete";

std::string utf8(const std::wstring &s)
{
    std::string out(s.size() * 3, '\0');
    out.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, s.data(), static_cast<int>(s.size()), out.data(), static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

std::string replaced(std::string s, const std::string &from, const std::string &to)
{
    for (std::size_t i = 0; (i = s.find(from, i)) != std::string::npos; i += to.size())
        s.replace(i, from.size(), to);
    return s;
}

std::string bytes_of(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

tree tree_of(const fs::path &dir)
{
    tree all;
    for (const auto &entry : fs::recursive_directory_iterator(dir))
        all[fs::relative(entry.path(), dir).wstring()] = entry.is_directory() ? "<dir>" : bytes_of(entry.path());
    return all;
}

std::wstring cannot_write(const std::wstring &dir)
{
    return L"Unable to write to directory " + dir + L"!  Check permissions or if directory exists!";
}

// As the pop-up breaks one message.
std::wstring wrapped(std::wstring s)
{
    int column = 0;
    for (wchar_t &c : s) {
        column += static_cast<int>(utf8({c}).size());
        if (column >= 50 && c == L' ') {
            c = L'\n';
            column = 0;
        }
    }
    return s;
}

// A scratch directory: the product's files in "from", which the installer is started in, and "to" to install into.
class Installer : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directories(to);
        fs::create_directories(from);
        for (const char *name : {"TANSY_DEMO.env", "TANSY_DEMO_install.bat"}) {
            fs::copy_file(fs::path(PRODUCT_FILES) / name, from / name);
            ASSERT_NE(bytes_of(from / name).find("\r\n"), std::string::npos);
        }
        env = bytes_of(from / "TANSY_DEMO.env");
    }
    void TearDown() override
    {
        // The command interpreter's helpers may hold the directory for a moment after the installer has ended.
        for (int tries = 0; tries < 1000; tries++) {
            std::error_code error;
            fs::remove_all(root, error);
            if (!error)
                return;
            Sleep(5);
        }
        ADD_FAILURE() << "cannot remove " << root;
    }

    static std::string edited(const std::string &text, const std::wstring &dir)
    {
        return replaced(replaced(text, "default_location", utf8(dir)), "program_name", "TANSY_DEMO");
    }

    // What an installation into `dir` leaves there, but for the moment in the product's own record.
    tree installed_tree(const std::wstring &dir) const
    {
        const std::string settings = edited(env, dir);
        return {
            {L"TANSY_DEMO", "<dir>"},
            {L"TANSY_DEMO\\TANSY_DEMO.env", settings},
            {L"TANSY_DEMO\\data", "<dir>"},
            {L"TANSY_DEMO\\hlp", "<dir>"},
            {L"TANSY_DEMO\\tmp", "<dir>"},
            {L"TANSY_DEMO\\installed.txt", "TANSY_DEMO 1.0.0\r\ninstalled ... with these settings:\r\n" + settings}};
    }

    static tree without_moment(tree all)
    {
        if (const auto record = all.find(L"TANSY_DEMO\\installed.txt"); record != all.end()) {
            std::string &text = record->second;
            const std::size_t first = std::min(text.find(" on "), text.size());
            text.replace(first, text.find(" with these") - first, " ...");
        }
        return all;
    }

    const fs::path root = fs::temp_directory_path() / ("xinstall_e2e" + std::to_string(GetCurrentProcessId()));
    const fs::path from = root / "from", to = root / "to";
    std::string env;
};

TEST_F(Installer, AsksTakesWhatIsTypedInstallsAndEndsWhenAcknowledged)
{
    const tree sources = tree_of(from);
    installer_process installer(from);
    ASSERT_TRUE(installer.found());
    EXPECT_EQ(installer.prompt(), L"Where would you like to place the files for TANSY_DEMO?  Enter the full path name "
                                  L"below.");
    EXPECT_EQ(installer.location(), L"c:\\program files\\");
    EXPECT_TRUE(installer.has_focus(installer.field()));
    installer.type_location(to.wstring() + L"\\");
    EXPECT_EQ(installer.location(), to.wstring() + L"\\");
    installer.click(L"OK");
    ASSERT_TRUE(installer.wait_for_message());
    EXPECT_EQ(installer.message(), complete);
    installer.click_to_end(L"ACKNOWLEDGE");
    EXPECT_EQ(installer.exit_status(), 0);
    EXPECT_EQ(without_moment(tree_of(to)), installed_tree(to.wstring()));
    EXPECT_EQ(tree_of(from), sources);
}

TEST_F(Installer, InstallsIntoPlacesWithUnusualNames)
{
    const struct {
        std::wstring name, ending;
        bool typed = false;
    } cases[] = {
        {L"program files", L""}, {L"a & b (x86)", L"\\"},
        {L"it's", L""},          {L"a,b;c=d^e!f[1]{2}~`+@#$", L""},
        {L"two", L"\\\\"},       {L"na\u00efve \u017e\u65e5\u672c", L"\\", true},
        {L"100%", L""},          {std::wstring(100, L'd'), L"/"},
    };
    for (const auto &c : cases) {
        const fs::path place = to / c.name;
        fs::create_directory(place);
        installer_process installer(from);
        ASSERT_TRUE(installer.found());
        const std::wstring location = place.wstring() + c.ending;
        if (c.typed)
            installer.type_location(location);
        else
            installer.set_location(location);
        EXPECT_EQ(installer.location(), location);
        installer.press(L"OK");
        EXPECT_EQ(installer.message(), complete) << utf8(location);
        const std::wstring dir = location.substr(0, location.size() - location.ends_with(L'\\'));
        tree left = without_moment(tree_of(place));
        tree expected = installed_tree(dir);
        if (c.name == L"100%" && left.size() == 2) // Some interpreters lose the sign from a batch file's own path.
            expected = {{L"TANSY_DEMO", "<dir>"}, *expected.find(L"TANSY_DEMO\\TANSY_DEMO.env")};
        EXPECT_EQ(left, expected);
        installer.press(L"ACKNOWLEDGE");
        EXPECT_EQ(installer.exit_status(), 0);
    }
}

TEST_F(Installer, RefusesPlacesThatCannotBeWrittenAndStays)
{
    std::ofstream(to / "file") << "content";
    const std::wstring here = to.wstring();
    std::vector<std::wstring> places = {here + L"\\missing",
                                        here + L"\\file",
                                        here + L"\\file:stream",
                                        here + L"\"",
                                        here + L"\" & mkdir \"" + here + L"\\done",
                                        here + L"\\a|b",
                                        here + L"\\>x",
                                        here + L"\\<file",
                                        here + L"\\a?b",
                                        here + L"\\*"};
    if (fs::is_directory("Z:\\proc")) // read-only even for an administrator
        places.emplace_back(L"Z:\\proc");
    const tree before = tree_of(root);
    installer_process installer(from);
    ASSERT_TRUE(installer.found());
    for (const std::wstring &place : places) {
        installer.set_location(place);
        installer.press(L"OK");
        EXPECT_EQ(installer.message(), wrapped(cannot_write(place)));
        installer.press(L"ACKNOWLEDGE");
        EXPECT_FALSE(installer.has_message());
        EXPECT_EQ(installer.location(), place);
    }
    installer.set_location(std::wstring(400, L'x')); // the field gives 255 characters
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), wrapped(cannot_write(std::wstring(255, L'x'))));
    EXPECT_EQ(tree_of(root), before);
    installer.press(L"Cancel");
    EXPECT_EQ(installer.exit_status(), 0);
}

TEST_F(Installer, CollectsMessagesUntilTheyAreAcknowledged)
{
    installer_process installer(from);
    ASSERT_TRUE(installer.found());
    const std::wstring failure = wrapped(cannot_write(L"Q:\\nowhere"));
    installer.set_location(L"Q:\\nowhere\\");
    installer.press(L"OK");
    EXPECT_TRUE(installer.has_focus(installer.button(L"ACKNOWLEDGE")));
    const int height = installer.message_height();
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), failure + L"\n\n" + failure);
    EXPECT_GT(installer.message_height(), height);
    installer.press(L"ACKNOWLEDGE");
    EXPECT_FALSE(installer.has_message());

    installer.set_location(to.wstring());
    installer.press(L"OK");
    const tree once = without_moment(tree_of(to));
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), complete + L"\n\n" + complete);
    EXPECT_EQ(without_moment(tree_of(to)), once);
    installer.press(L"ACKNOWLEDGE");
    EXPECT_EQ(installer.exit_status(), 0);
}

TEST_F(Installer, TakesNoLocationFromTheCommandLineAndCancelsWithoutATrace)
{
    const tree before = tree_of(root);
    for (const std::wstring &arguments : {std::wstring(L"helpedit x"), to.wstring(), L"a " + to.wstring()}) {
        installer_process installer(from, arguments);
        ASSERT_TRUE(installer.found());
        EXPECT_EQ(installer.location(), L"c:\\program files\\");
        send(installer.field(), WM_RBUTTONUP);
        EXPECT_TRUE(child(installer.window(L"Help"), L"Edit", L"Location\r\nThe directory in which"));
        installer.press(L"Cancel");
        EXPECT_EQ(installer.exit_status(), 0);
    }
    EXPECT_EQ(tree_of(root), before);
}

} // namespace
