#include "installer_process.h"
#include "text.h"

#include <map>
#include <regex>

namespace fs = std::filesystem;

namespace {

using tree = std::map<std::wstring, std::string>; // by relative path; a directory holds "<dir>"

const std::string complete = "Installation complete";

tree tree_of(const fs::path &dir)
{
    tree all;
    for (const auto &entry : fs::recursive_directory_iterator(dir))
        all[fs::relative(entry.path(), dir).wstring()] = entry.is_directory() ? "<dir>" : bytes_of(entry.path());
    return all;
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
        std::error_code error;
        EXPECT_TRUE(wait_until([&] { return fs::remove_all(root, error), !error; })) << root;
    }

    // What an installation into `dir` leaves there, but for the moment in the product's own record.
    tree installed_tree(const std::wstring &dir) const
    {
        const std::string settings =
            replaced(replaced(env, "default_location", utf8(dir)), "program_name", "TANSY_DEMO");
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
        for (auto &[path, text] : all)
            text = std::regex_replace(text, std::regex("installed on .* with"), "installed ... with");
        return all;
    }

    const fs::path root = fs::temp_directory_path() / ("xinstall_e2e" + std::to_string(GetCurrentProcessId()));
    const fs::path from = root / "from", to = root / "to";
    std::string env;
};

TEST_F(Installer, AsksInstallsIntoPlacesWithUnusualNamesAndEndsWhenAcknowledged)
{
    const tree sources = tree_of(from);
    using row = std::tuple<std::wstring, std::wstring, bool>; // name; what stands behind it; with keys and mouse
    for (const auto &[name, ending, by_hand] :
         {row{L"program files", L"", false}, row{L"a & b (x86)", L"\\", false}, row{L"it's", L"", false},
          row{L"a,b;c=d^e!f[1]{2}~`+@#$", L"", false}, row{L"two", L"\\\\", false},
          row{L"na\u00efve \u017e\u65e5\u672c", L"\\", true}, row{L"100%", L"", false},
          row{std::wstring(100, L'd'), L"/", false}}) {
        const fs::path place = to / name;
        fs::create_directory(place);
        installer_process installer(from);
        EXPECT_EQ(installer.prompt(), L"Where would you like to place the files for TANSY_DEMO?  Enter the full path "
                                      L"name below.");
        EXPECT_EQ(installer.location(), L"c:\\program files\\");
        EXPECT_TRUE(installer.has_focus(installer.field()));
        const std::wstring location = place.wstring() + ending;
        by_hand ? installer.type_location(location) : installer.set_location(location);
        EXPECT_EQ(installer.location(), location);
        by_hand ? installer.click(L"OK") : installer.press(L"OK");
        ASSERT_TRUE(installer.wait_for_window(L"Message")) << utf8(location);
        EXPECT_EQ(installer.message(), complete) << utf8(location);
        by_hand ? installer.click_to_end(L"ACKNOWLEDGE") : installer.press(L"ACKNOWLEDGE");
        EXPECT_EQ(installer.exit_status(), 0);
        const tree left = without_moment(tree_of(place));
        tree expected = installed_tree(location.substr(0, location.size() - location.ends_with(L'\\')));
        if (name == L"100%" && left.size() == 2) // Some interpreters lose the sign from a batch file's own path.
            expected = {{L"TANSY_DEMO", "<dir>"}, *expected.find(L"TANSY_DEMO\\TANSY_DEMO.env")};
        EXPECT_EQ(left, expected);
    }
    EXPECT_EQ(tree_of(from), sources);
}

TEST_F(Installer, RefusesPlacesThatCannotBeWrittenAndStays)
{
    std::ofstream(to / "file") << "content";
    const std::wstring here = to.wstring();
    std::vector<std::wstring> places = {here + L"\\missing", here + L"\\file", here + L"\\file:stream",
                                        here + L"\" & mkdir \"" + here + L"\\done"};
    if (fs::is_directory("Z:\\proc")) // read-only even for an administrator
        places.emplace_back(L"Z:\\proc");
    const tree before = tree_of(root);
    installer_process installer(from);
    for (const std::wstring &place : places) {
        installer.set_location(place);
        installer.press(L"OK");
        EXPECT_EQ(installer.message(), cannot_write_to(utf8(place)));
        installer.press(L"ACKNOWLEDGE");
        EXPECT_FALSE(installer.popup());
        EXPECT_EQ(installer.location(), place);
    }
    installer.set_location(std::wstring(400, L'x')); // the field gives 255 characters
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), cannot_write_to(std::string(255, 'x')));
    EXPECT_EQ(tree_of(root), before);
    installer.press(L"Cancel");
    EXPECT_EQ(installer.exit_status(), 0);
}

TEST_F(Installer, CollectsMessagesUntilTheyAreAcknowledged)
{
    installer_process installer(from);
    const std::string failure = cannot_write_to("Q:\\nowhere");
    installer.set_location(L"Q:\\nowhere\\");
    installer.press(L"OK");
    EXPECT_TRUE(installer.has_focus(installer.button(L"ACKNOWLEDGE")));
    const int height = installer.message_height();
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), failure + "  " + failure);
    EXPECT_GT(installer.message_height(), height);
    installer.press(L"ACKNOWLEDGE");
    EXPECT_FALSE(installer.popup());

    installer.set_location(to.wstring());
    installer.press(L"OK");
    const tree once = without_moment(tree_of(to));
    installer.press(L"OK");
    EXPECT_EQ(installer.message(), complete + "  " + complete);
    EXPECT_EQ(without_moment(tree_of(to)), once);
    installer.press(L"ACKNOWLEDGE");
    EXPECT_EQ(installer.exit_status(), 0);
}

TEST_F(Installer, TakesNoLocationFromTheCommandLineAndCancelsWithoutATrace)
{
    const tree before = tree_of(root);
    for (const std::wstring &arguments : {std::wstring(L"helpedit x"), to.wstring(), L"a " + to.wstring()}) {
        installer_process installer(from, arguments);
        EXPECT_EQ(installer.location(), L"c:\\program files\\");
        send(installer.field(), WM_RBUTTONUP);
        EXPECT_TRUE(child(installer.window(L"Help"), L"Edit", L"Location\r\nThe directory in which"));
        installer.press(L"Cancel");
        EXPECT_EQ(installer.exit_status(), 0);
    }
    EXPECT_EQ(tree_of(root), before);
}

} // namespace
