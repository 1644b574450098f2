#include "support/wi_fixture.h"

#include <thread>

namespace {

class MenuBar : public testing::Test {
protected:
    wi_obj *form = wi_mk_form(nullptr, 100, 100), *bar = wi_mk_menubar(wi_form_parent(form, 0, 0, 60, 10));
    wi_obj *below = wi_form_parent(form, 0, 50, 100, 60);
    wi_mb_pd *pds = bar->obj.menubar->ary;

    void pulldown(const char *label, int items, int type = 0)
    {
        wi_menubar_pulldown(bar, label);
        for (int i = 0; i < items; ++i)
            wi_menubar_button(bar, std::to_string(i).c_str(), type, seen::callback, i);
    }
    void choose(unsigned long id) const { SendMessageA(bar->handle, WM_COMMAND, id, 0); }

    std::string marks()
    {
        std::string s;
        wi_mb_pd &pd = pds[bar->obj.menubar->ipd];
        for (const int kept = pd.ibut; s.size() < std::size_t(pd.nbuts);) {
            pd.ibut = int(s.size());
            s += wi_menubar_getstate(bar) ? '1' : '0';
            pd.ibut = s.size() == std::size_t(pd.nbuts) ? kept : pd.ibut;
        }
        return s;
    }
};

// "File[Open,*Keep]" for a sub-menu of two items, the second of them marked.
std::string tree(HMENU menu)
{
    std::string s;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        char text[100] = "";
        GetMenuStringA(menu, UINT(i), text, sizeof text, MF_BYPOSITION);
        const HMENU sub = GetSubMenu(menu, i);
        const bool marked = !sub && (GetMenuState(menu, UINT(i), MF_BYPOSITION) & MF_CHECKED);
        s += std::string(i ? "," : "") + (marked ? "*" : "") + text + (sub ? "[" + tree(sub) + "]" : "");
    }
    return s;
}

TEST_F(MenuBar, FillsMenusAndSubMenus)
{
    wi_menubar_submenu_done(nullptr);
    wi_menubar_submenu_done(form);
    for (const auto nothing_yet : {wi_menubar_submenu_done, wi_menubar_eset})
        nothing_yet(bar);
    wi_menubar_b_label(bar, "x");
    wi_menubar_pd_label(bar, "x");
    wi_menubar_setstate(bar, 1);
    EXPECT_EQ(wi_menubar_getstate(bar), 0);
    EXPECT_EQ(exit_message([&] { wi_menubar_button(bar, "x", 0, nullptr, 0); }), "PE 12, wimenubar.c: pulldown full.");
    pulldown(nullptr, 1);
    wi_menubar_submenu_done(bar);
    wi_menubar_submenu(bar, "Sub");
    wi_menubar_button(bar, "mark", 1, nullptr, 0);
    wi_menubar_setstate(bar, 5);
    wi_menubar_submenu(bar, nullptr);
    wi_menubar_button(bar, nullptr, 0, nullptr, 0);
    wi_menubar_submenu_done(bar);
    wi_menubar_button(bar, "c", 0, nullptr, 0);
    pds[0].ibut = 1;
    wi_menubar_b_label(bar, "Mark \xe9");
    wi_menubar_pd_label(bar, "File");
    wi_menubar_submenu_done(bar);
    wi_menubar_submenu_done(bar);
    wi_menubar_button(bar, "d", 0, nullptr, 0);
    EXPECT_EQ(tree(pds[0].currentmenu->themenu), "0,Sub[*Mark \xe9,[],c],d");
    char text[10] = "";
    GetWindowTextA(pds[0].button, text, sizeof text);
    EXPECT_STREQ(text, "File");

    for (int depth = 0; depth < 1000; ++depth)
        wi_menubar_submenu(bar, "deeper");
    pulldown("", 20);
    for (const auto more : {+[](wi_obj *to) { wi_menubar_button(to, "x", 0, nullptr, 0); },
                            +[](wi_obj *to) { wi_menubar_submenu(to, "x"); }})
        EXPECT_EQ(exit_message([=, this] { more(bar); }), "PE 12, wimenubar.c: pulldown full.");
    for (int i = 2; i < 20; ++i)
        pulldown("", 0);
    EXPECT_EQ(exit_message([&] { pulldown("", 0); }), "PE 7, wimenubar.c: menubar full.");
}

TEST_F(MenuBar, MakesCurrentWhatIsChosen)
{
    static int state;
    pulldown("a", 3, 1);
    wi_menubar_button(
        bar, "", 1, [](wi_obj *wo, int) { state = wi_menubar_getstate(wo); }, 0);
    pulldown("b", 2);
    seen::reset();
    choose(pds[1].ary[1].idnumber);
    EXPECT_TRUE(seen::wo == bar && seen::tag == 1 && marks() == "00") << "a command has no mark";
    for (const int expected : {1, 0, 1}) {
        choose(pds[0].ary[3].idnumber);
        EXPECT_EQ(state, expected) << "flipped before the callback";
    }
    EXPECT_TRUE(bar->obj.menubar->ipd == 0 && pds[0].ibut == 3);
    choose(pds[0].ary[0].idnumber);
    choose(pds[0].ary[1].idnumber);
    EXPECT_EQ(marks(), "1101");
    wi_menubar_eset(bar);
    EXPECT_TRUE(marks() == "0100" && pds[0].ibut == 3) << "the one whose mark was taken last";
    seen::reset();
    for (const unsigned long unknown : {0xffffUL, 400UL, pds[1].ary[1].idnumber + 1})
        choose(unknown);
    SendMessageA(bar->handle, WM_COMMAND, MAKEWPARAM(7, BN_CLICKED), LPARAM(pds[0].button));
    EXPECT_EQ(seen::calls, 0);
}

TEST_F(MenuBar, HasFourHundredItemsInAProgram)
{
    wi_reset_window_table();
    setwiobject(form->shell->handle, form->shell);
    for (int i = 0; i < 20; ++i)
        pulldown("", 20);
    wi_obj *last = std::exchange(bar, wi_mk_menubar(below));
    pds = bar->obj.menubar->ary;
    pulldown("", 2);
    EXPECT_EQ(pds[0].ary[1].idnumber, 399U);
    choose(399);
    EXPECT_TRUE(seen::wo == last && seen::tag == 19);
    wi_reset_window_table();
}

TEST_F(MenuBar, StandsInARowAndOpensBelowTheButton)
{
    for (const char *label : {"one", "two", "three"})
        pulldown(label, 2);
    wi_obj *after = wi_mk_button(below, "after", 0, nullptr, 0);
    onresize(bar, 10, 5, 200, 30);
    const RECT third = place_of(pds[2].button), expected{142, 5, 208, 35};
    EXPECT_TRUE(EqualRect(&third, &expected)) << third.left << ' ' << third.right;
    wi_on(form);
    wi_activate_first(form->shell);
    EXPECT_EQ(GetFocus(), pds[0].button);
    press_key(pds[1].button, 'X');
    EXPECT_EQ(GetFocus(), after->handle) << "any key moves on from the bar";
    SendMessageA(pds[1].button, WM_RBUTTONUP, 0, 0);
    EXPECT_EQ(bar->hlp, pds[1].hlp);
    EXPECT_EQ(std::string(pds[1].hlp->strt_str) + pds[2].hlp->strt_str, "default:twodefault:three");

    RECT button, menu{};
    GetWindowRect(pds[2].button, &button);
    std::thread person([&] {
        HWND shown = nullptr;
        for (int tries = 0; !shown && tries < 1000; ++tries, Sleep(10))
            shown = FindWindowA("#32768", nullptr);
        GetWindowRect(shown, &menu);
        for (const int key : {VK_DOWN, VK_DOWN, VK_RETURN})
            PostMessageA(bar->handle, WM_KEYDOWN, WPARAM(key), 1);
    });
    seen::reset();
    SendMessageA(bar->handle, WM_COMMAND, MAKEWPARAM(2, BN_CLICKED), LPARAM(pds[2].button));
    person.join();
    pump();
    EXPECT_TRUE(seen::wo == bar && seen::tag == 1 && bar->obj.menubar->ipd == 2);
    EXPECT_TRUE(menu.left == button.left && menu.top == button.bottom) << menu.left << ' ' << menu.top;
    wi_off(form);
}

TEST_F(MenuBar, IsShownAndHiddenWithItsContainerOnly)
{
    wi_obj *inner = wi_mk_form(below, 100, 100), *part = wi_mk_menubar(wi_form_parent(inner, 0, 0, 100, 100));
    wi_menubar_pulldown(part, "x");
    const auto shown = [&] { return (GetWindowLongA(part->obj.menubar->ary->button, GWL_STYLE) & WS_VISIBLE) != 0; };
    wi_off(inner);
    EXPECT_FALSE(shown());
    wi_on(inner);
    EXPECT_TRUE(shown());
    EXPECT_EQ(exit_message([&] { wi_on(part); }), "You cannot turn on that object with wi_on");
    EXPECT_EQ(exit_message([&] { wi_off(part); }), "You cannot turn off that object with wi_off");
    EXPECT_EQ(exit_message([] { wi_off(wi_mk_menubar(nullptr)); }), "") << "its window";
}

} // namespace
