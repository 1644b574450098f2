#include "support/dialog.h"
#include "support/wi_fixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

// A program with a help library, in a folder of its own.
class HelpWindow : public testing::Test {
protected:
    void SetUp() override
    {
        wi_reset_help();
        fs::create_directories(place);
        fs::current_path(place);
        std::ofstream("test.hlp", std::ios::binary) << "\n0 HELP\nHow to use help.\n"
                                                       "\n1 PROG\nThe program.\n"
                                                       "\n2 Colour\nWhich colour.\n! not shown\nAny of ten.\n"
                                                       "\n2 Size\nHow large.\n"
                                                       "\n1 OTHER\nAnother program.\n"
                                                       "\n2 Colour of it\nIts colour.\n";
        wi_hlp_setprognm("prog");
        wi_hlp_setlib("test.hlp");
    }
    void TearDown() override
    {
        if (button->hlp)
            wi_off(button->hlp->hlp_win);
        wi_reset_help();
        fs::current_path(start);
        fs::remove_all(place);
    }

    void label(const char *text) { button = wi_mk_button(wi_form_parent(form, 0, 0, 1, 1), text, 0, nullptr, 0); }
    void right_click() const { SendMessageA(button->handle, WM_RBUTTONUP, 0, 0); }
    void search(const char *text) const
    {
        wi_strfld_putstr(button->hlp->wo_sfld, text);
        press_key(button->hlp->wo_sfld->obj.strfld->editarea, VK_RETURN);
        EXPECT_EQ(taken(wi_strfld_getstr(button->hlp->wo_sfld)), "");
    }
    std::string text() const { return taken(wi_editpage_getstr(button->hlp->wo_edpg)); }
    std::string topic() const { return taken(wi_strfld_getstr(button->hlp->wo_ss)); }
    static void click(const wi_obj *wo) { SendMessageA(wo->handle, BM_CLICK, 0, 0); }
    static bool is_shown(HWND window) { return GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE; }
    static std::string content(const char *name)
    {
        std::ifstream in(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    // The message in the help message window, which is acknowledged; "" when none is shown.
    static std::string message()
    {
        for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "dovapp", "Help"));)
            if (const HWND ok = FindWindowExA(window, nullptr, "button", "ACKNOWLEDGE"); ok && is_shown(window)) {
                const std::string said = window_text(FindWindowExA(window, nullptr, "static", nullptr));
                SendMessageA(ok, BM_CLICK, 0, 0);
                EXPECT_FALSE(is_shown(window));
                return said;
            }
        return "";
    }

    const fs::path start = fs::current_path(), place = fs::temp_directory_path() / "help_test";
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    wi_obj *button = nullptr;
};

TEST_F(HelpWindow, BelongsToEveryControlWithAKey)
{
    const struct {
        const char *label, *key;
    } table[] = {{"Colour", "help:prog:Colour"},
                 {"Name:", "help:prog:Name"},
                 {"", "help:prog:"},
                 {":x", nullptr},
                 {"a::b", nullptr}};
    for (const auto &[text, key] : table) {
        label(text);
        EXPECT_STREQ(button->hlp ? button->hlp->strt_str : nullptr, key) << text;
    }
    wi_hlp_set_srchstr("one:shot");
    label(":x");
    EXPECT_STREQ(button->hlp->strt_str, "one:shot");
    label("next");
    EXPECT_STREQ(button->hlp->strt_str, "help:prog:next");
    EXPECT_STREQ(button->hlp->wo_up->hlp->strt_str, "help");
    EXPECT_EQ(taken(wi_hlp_getprognm()), "prog");
    wi_reset_help();
    EXPECT_EQ(wi_hlp_getprognm(), nullptr);
    label("x");
    EXPECT_STREQ(button->hlp->strt_str, "default:x");
    EXPECT_STREQ(button->hlp->lib_name, def_lib);
}

TEST_F(HelpWindow, WalksUpAndDownTheTopics)
{
    label("Colour");
    right_click();
    EXPECT_TRUE(is_shown(button->hlp->hlp_win->shell->handle));
    EXPECT_EQ(topic(), "help:prog:colour");
    EXPECT_EQ(text(), "Colour\nWhich colour.\nAny of ten.\n\n");
    click(button->hlp->wo_up);
    EXPECT_EQ(topic(), "help:prog");
    EXPECT_EQ(text().substr(0, 20), "PROG\nThe program.\n\n\n");
    EXPECT_NE(text().find("Additional information available:\n\nColour"), std::string::npos);
    search("size");
    EXPECT_EQ(topic(), "help:prog:size");
    search("a::b");
    search(":b");
    EXPECT_EQ(topic(), "help:prog:size");
    search("");
    EXPECT_EQ(topic(), "help:prog");
    search("nowhere");
    EXPECT_EQ(text(), "No information available for NOWHERE");
    EXPECT_EQ(topic(), "help:prog:nowhere");
    search("whatever"); // after nothing was found, Enter goes back
    EXPECT_EQ(topic(), "help:prog");
    click(button->hlp->wo_help);
    EXPECT_EQ(topic(), "help");
    click(button->hlp->wo_up);
    EXPECT_EQ(topic(), "help");
    search("a:b:c:d:e:f:g:h:zz");
    button->hlp->noinfo = 0;
    search("deeper"); // than nine colons keys do not go
    EXPECT_EQ(topic(), "help:a:b:c:d:e:f:g:h:zz");
    click(button->hlp->wo_dsmss);
    EXPECT_FALSE(is_shown(button->hlp->hlp_win->shell->handle));
}

TEST_F(HelpWindow, StepsThroughTheTopicsOfAKeyword)
{
    label("colour of");
    wi_hlp_set_srchstr("help:other:x:colour");
    wi_hlp_setstr(button, "");
    right_click();
    const wi_hlp &hlp = *button->hlp;
    const wi_updownbut *steps = hlp.wo_ud->obj.updownbut;
    const auto number = [&] { return window_text(hlp.wo_lbl2->handle); };
    EXPECT_EQ(window_text(hlp.wo_lbl1->handle), "2 topics found");
    EXPECT_EQ(number() + topic(), "- (1):help:prog:colour");
    for (const wi_obj *part : std::initializer_list<wi_obj *>{hlp.wo_lbl1, hlp.wo_lbl2, steps->upbut})
        EXPECT_TRUE(is_shown(part->handle));
    click(steps->upbut);
    EXPECT_EQ(number() + topic(), "- (2):help:other:colour of it");
    click(steps->upbut);
    EXPECT_EQ(number() + topic(), "- (1):help:prog:colour");
    click(steps->downbut);
    EXPECT_EQ(number(), "- (2):");
    click(hlp.wo_up);
    EXPECT_EQ(topic(), "help:other");
    EXPECT_FALSE(is_shown(steps->upbut->handle) || is_shown(hlp.wo_lbl1->handle) || is_shown(hlp.wo_lbl2->handle));
}

TEST_F(HelpWindow, SavesAnEditedTopicAndPrintsIt)
{
    label("Size");
    right_click();
    EXPECT_FALSE(is_shown(button->hlp->wo_save->handle));
    wi_hlp_editable(1);
    right_click();
    EXPECT_TRUE(is_shown(button->hlp->wo_save->handle));
    const std::string before = content("test.hlp");
    click(button->hlp->wo_save);
    EXPECT_EQ(content("test.hlp"), before);
    wi_editpage_putstr(button->hlp->wo_edpg, "Size\nSmall, or large. \n");
    click(button->hlp->wo_save);
    std::string after = before;
    after.replace(after.find("How large.\n"), 11, "Small, or large.\n");
    EXPECT_EQ(content("test.hlp"), after);
    right_click();
    EXPECT_EQ(text(), "Size\nSmall, or large.\n\n");
    click(button->hlp->wo_hcpy);
    EXPECT_EQ(content("tmp.hc"), "Size\r\nSmall, or large.\r\n\r\n");
    fs::create_directory("test.hlp.new"); // in the way of writing
    wi_editpage_putstr(button->hlp->wo_edpg, "Size\nLost?");
    click(button->hlp->wo_save);
    EXPECT_EQ(message(), "Unable to open file test.hlp for\nwriting!");
    EXPECT_EQ(content("test.hlp"), after);
}

TEST_F(HelpWindow, TellsWhatIsWrongInAWindowOfItsOwn)
{
    wi_hlp_setlib("missing_library_of_the_test.hlp");
    label("Size");
    right_click();
    EXPECT_EQ(message(), "Unable to open file missing_library_of_the_test.hlp\nfor reading!");
    EXPECT_FALSE(is_shown(button->hlp->hlp_win->shell->handle));
}

} // namespace
