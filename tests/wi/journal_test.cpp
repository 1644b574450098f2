#include "support/dialog.h"
#include "support/wi_fixture.h"
#include "wi/wijournalstate.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

void click(const wi_obj *wo)
{
    SendMessageA(wo->handle, BM_CLICK, 0, 0);
}

void enter(const wi_obj *strfld, const char *text)
{
    SetWindowTextA(strfld->obj.strfld->editarea, text);
    press_key(strfld->obj.strfld->editarea, VK_RETURN);
}

// The text of the message window, which is acknowledged; "" when none is shown.
std::string message()
{
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "dovapp", "Journal Message"));)
        if (IsWindowVisible(window)) {
            const std::string said = window_text(FindWindowExA(window, nullptr, "static", nullptr));
            SendMessageA(FindWindowExA(window, nullptr, "button", "ACKNOWLEDGE"), BM_CLICK, 0, 0);
            EXPECT_FALSE(IsWindowVisible(window));
            return said;
        }
    return "";
}

std::string i4(std::initializer_list<int> numbers)
{
    std::string bytes;
    for (const int number : numbers)
        bytes.append(reinterpret_cast<const char *>(&number), 4);
    return bytes;
}

// A program with a button that counts, a toggle and three fields, in a folder of its own.
class Journal : public testing::Test {
protected:
    void SetUp() override
    {
        wi_hlp_init(); // whose controls are not in the journal then
        fs::create_directories(place);
        fs::current_path(place);
        begin("demo", (place / "a b.jrl").string().c_str());
        wi_journal_on(nullptr, 0);
    }
    void TearDown() override
    {
        message();
        wi_reset_journal();
        fs::current_path(start);
        fs::remove_all(place);
    }

    void begin(const char *stamp, const char *file)
    {
        wi_journal_init(stamp, file, restart);
        form = wi_mk_form(nullptr, 1, 1);
        const auto area = [] { return wi_form_parent(form, 0, 0, 1, 1); };
        const auto count = [](wi_obj *, int by) { clicks += by; };
        button = wi_mk_button(area(), "Go", 0, count, 1);
        toggle = wi_mk_button(
            area(), "Bold", 1, [](wi_obj *, int) {}, 0);
        name = wi_mk_strfld(area(), "Name:", 0.5);
        wi_strfld_set_cb(name, seen::callback, 7);
        size = wi_mk_numfld(area(), "Size:", 0.5, 1);
        note = wi_mk_strfld(area(), "Note:", 0.5);
        clicks = restarts = 0;
    }
    static void restart()
    {
        ++restarts;
        clicks = 0;
        wi_button_setstate(toggle, 0);
        wi_set_string(name, "");
        wi_set_string(size, "0");
        wi_journal_store_win(form);
        wi_off(form);
    }
    static void five_actions()
    {
        enter(name, "one");
        click(toggle);
        wi_set_string(size, "2.5");
        click(button);
        enter(name, "two");
        click(toggle);
    }
    static std::string state()
    {
        return std::to_string(clicks) + (wi_button_getstate(toggle) ? " bold " : " plain ") +
               taken(wi_get_string(name)) + " " + taken(wi_get_string(size));
    }

    // The manager's fields are the first whose values are not saved.
    static wi_obj *entry() { return wi_jrl.wo_ifo[2]; }
    static wi_window step(bool up)
    {
        const wi_updownbut *buttons = entry()->obj.incdecfld->updownbut->obj.updownbut;
        return (up ? buttons->upbut : buttons->downbut)->handle;
    }
    static void go_to(const char *number)
    {
        wi_set_string(entry(), number);
        press_key(entry()->obj.incdecfld->numfld->obj.numfld->editarea, VK_RETURN);
    }
    static void load(const char *file) { enter(wi_jrl.wo_ifo[1], file); }
    static std::string shown_entry() { return taken(wi_get_string(entry())); }
    static std::string content(const char *file)
    {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    const fs::path start = fs::current_path(), place = fs::temp_directory_path() / "journal test";
    static inline wi_obj *form, *button, *toggle, *name, *size, *note;
    static inline int clicks, restarts;
};

TEST_F(Journal, RecordsActionsAndValuesToTheByte)
{
    const int at = wi_jrl.places.at(button);
    const auto values = [&](const std::string &text) {
        return i4({4, at + 2, int(text.size())}) + text + i4({at + 3, 3}) + "0.0" + i4({at + 4, 0});
    };
    click(button);
    click(toggle);
    enter(note, "no callback");
    wi_set_string(note, "");
    enter(name, "J\x1a");
    const std::string expected = i4({4}) + "demo" + values("") + i4({at, 0, 0, 1}) + values("") +
                                 i4({at + 1, 1, 0, 2}) + values("J\x1a") + i4({at + 2, 0, 2}) + "J\x1a" + i4({3});
    EXPECT_EQ(content("a b.jrl"), wi_journal_text_mode(expected));
    EXPECT_EQ(wi_journal_new(), 3);
    EXPECT_EQ(shown_entry(), "3");
}

TEST_F(Journal, ReplaysForwardBackAndForwardAgain)
{
    five_actions();
    const std::string end = state(), written = content("a b.jrl");
    EXPECT_EQ(end, "1 plain two 2.5");
    go_to("3");
    EXPECT_EQ(message(), "");
    EXPECT_EQ(restarts, 1);
    EXPECT_EQ(state(), "1 bold one 2.5");
    EXPECT_TRUE(IsWindowVisible(form->shell->handle));
    EXPECT_EQ(content("tmp.jrl"), written);
    EXPECT_EQ(content("a b.jrl"), written.substr(0, content("a b.jrl").size())) << "the replay writes it anew";
    SendMessageA(step(true), BM_CLICK, 0, 0);
    EXPECT_EQ(state(), "1 bold two 2.5");
    go_to("999");
    EXPECT_EQ(state(), end);
    EXPECT_EQ(content("a b.jrl"), written);
    EXPECT_EQ(shown_entry(), "5");
    SendMessageA(step(true), BM_CLICK, 0, 0);
    EXPECT_EQ(message(), "End of journal!");
    go_to("0");
    EXPECT_EQ(restarts, 2);
    EXPECT_EQ(state(), "0 plain  0");
    SendMessageA(step(true), BM_CLICK, 0, 0);
    EXPECT_EQ(state(), "0 plain one 0.0");
}

TEST_F(Journal, RefusesWhatItCannotReplay)
{
    five_actions();
    const std::string before = state();
    const auto refused = [&](const char *file) {
        load(file);
        EXPECT_EQ(state() + shown_entry() + std::to_string(restarts), before + "50") << file;
        return message();
    };
    EXPECT_EQ(refused("none.jrl"), "Unable to open journal file none.jrl for reading!\n");
    std::ofstream("other.jrl") << i4({5}) << "other";
    EXPECT_EQ(refused("other.jrl"), "This journal file was written by the program other\nand cannot be used by demo!");
    std::ofstream("cut.jrl", std::ios::binary) << content("a b.jrl").substr(0, 150);
    load("cut.jrl");
    EXPECT_EQ(message(), "Journal file cut.jrl is damaged after entry 2!");
    go_to("5");
    EXPECT_EQ(shown_entry(), "2") << "what is sound can be replayed";
    std::ofstream("any.jrl", std::ios::binary) << i4({0}) << i4({1, wi_jrl.places.at(button), 0, 0, 1});
    load("any.jrl");
    go_to("1");
    EXPECT_EQ(message() + shown_entry(), "1") << "an empty stamp is accepted";
    EXPECT_EQ(clicks, 1);
}

TEST_F(Journal, RecordsAndReplaysADrawingAreaOnce)
{
    static std::string drawn;
    const auto draw = [](wi_obj *wo, int tag, int x, int y, const int *buttons) {
        wi_journal_mouse(x, y, buttons);
        wi_journal_write(wo, tag);
        drawn += std::to_string(tag) + "@" + std::to_string(x) + "," + std::to_string(y) + " ";
    };
    wi_obj *area = wi_mk_drawarea(wi_form_parent(form, 0, 0, 1, 1), nullptr, 0, nullptr, 0);
    wi_journal_add_wo(area);
    for (int type = 0; type < 4; ++type)
        wi_drawarea_mouse_cb(area, type, draw, type + 1);
    drawn = "";
    const std::pair<UINT, LPARAM> mouse[] = {{WM_MOUSEMOVE, MAKELPARAM(1, 2)},
                                             {WM_LBUTTONDOWN, MAKELPARAM(3, 4)},
                                             {WM_MOUSEMOVE, MAKELPARAM(65535, 6)},
                                             {WM_LBUTTONUP, MAKELPARAM(7, 10)}};
    for (const auto &[message, at] : mouse)
        SendMessageA(area->handle, message, 0, at);
    const std::string all = std::exchange(drawn, ""), written = content("a b.jrl");
    EXPECT_EQ(all, "4@1,2 1@3,4 3@65535,6 2@7,10 ");
    go_to("0");
    go_to("4");
    EXPECT_EQ(drawn, all);
    EXPECT_EQ(content("a b.jrl"), written);
}

TEST_F(Journal, IgnoresWhatItWasToldToAndIsBounded)
{
    wi_journal_ignore_cb(toggle);
    wi_journal_ignore_fo(name);
    wi_journal_nojournal(1);
    wi_obj *unknown = wi_mk_button(wi_form_parent(form, 0, 0, 1, 1), "x", 0, nullptr, 0);
    wi_journal_nojournal(0);
    while (wi_jrl.wo_all.size() < 500)
        wi_journal_add_wo(button);
    wi_obj *beyond = wi_mk_button(wi_form_parent(form, 0, 0, 1, 1), "y", 0, nullptr, 0);
    click(toggle);
    wi_journal_write(unknown, 0);
    EXPECT_EQ(wi_journal_new(), 0);
    wi_journal_write(beyond, 0);
    const int at = wi_jrl.places.at(name);
    EXPECT_EQ(content("a b.jrl"), wi_journal_text_mode(i4({4}) + "demo" + i4({3, at + 1, 3}) + "0.0" + i4({at + 2, 0}) +
                                                       i4({500, 0, 0, 1})));
}

} // namespace
