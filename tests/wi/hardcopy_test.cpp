#include "support/process.h"
#include "support/wi_fixture.h"

namespace {

// The options window that the environment's values give, and a way to its parts.
class Hardcopy : public testing::Test {
protected:
    ~Hardcopy() override
    {
        for (const char *name : {"ZOLTHCTYPE", "ZOLTHCQUEUE", "ZOLTHCPATH", "ZOLTHCUSER"})
            set_environment(name, nullptr);
        build();
    }

    void build()
    {
        SetWindowTextA(window, "");
        wi_reset_hardcopy();
        wi_hc_menu(nullptr, "Print", seen::callback, 1);
        window = FindWindowA("dovapp", "Printing Options");
    }

    wi_obj *part(const char *type, const char *text) const
    {
        return getwiobject(FindWindowExA(window, nullptr, type, text));
    }
    wi_obj *field(const char *label) const { return part("static", label); }

    void choose(int item) const
    {
        const wi_mb_but *items = part("button", "Printer Type")->obj.menubar->ary->ary;
        SendMessageA(window, WM_COMMAND, items[item].idnumber, 0);
    }

    HWND window = nullptr;
};

TEST_F(Hardcopy, StartsAsTheEnvironmentSays)
{
    const struct {
        const char *type, *queue, *path, *user; // null is not defined
        int code;
        std::string used_queue, used_path;
    } table[] = {{nullptr, nullptr, nullptr, nullptr, 2, "lp", ""},
                 {"PS", "q", "p", "u", 1, "q", "p"},
                 {"cps", nullptr, " a b ", "lpr %s", 4, "lp", "a b"},
                 {"hpgl", " q", nullptr, nullptr, 3, " q", ""},
                 {"PSX", nullptr, "\t x", nullptr, 2, "lp", "x"}};
    for (const auto &row : table) {
        set_environment("ZOLTHCTYPE", row.type);
        set_environment("ZOLTHCQUEUE", row.queue);
        set_environment("ZOLTHCPATH", row.path);
        set_environment("ZOLTHCUSER", row.user);
        build();
        vghardcopy hc{77, "x", "y", 77, "kept"};
        EXPECT_EQ(wi_hc_getenv(&hc), 1);
        EXPECT_EQ(hc.type, row.code);
        EXPECT_EQ(hc.queue, row.used_queue);
        EXPECT_EQ(hc.path, row.used_path);
        EXPECT_EQ(hc.dousr, row.user ? 1 : 0);
        EXPECT_STREQ(hc.usrcmd, row.user ? row.user : "kept");
    }
}

TEST_F(Hardcopy, FollowsTheUser)
{
    build();
    vghardcopy hc{};
    wi_hc_set_usr();
    EXPECT_EQ(wi_hc_getenv(&hc) + hc.type + hc.queue[0], 0) << "the application has filled it";
    wi_strfld_putstr(field("Queue:"), "");
    wi_strfld_putstr(field("User:"), std::string(300, 'u').c_str());
    const int codes[] = {1, 4, 3, 2};
    for (const int item : {0, 1, 1, 2, 3, 3}) {
        choose(item);
        EXPECT_EQ(wi_hc_getenv(&hc), 1);
        EXPECT_EQ(hc.type, codes[item]) << "one stays chosen";
    }
    EXPECT_EQ(std::string(hc.queue) + hc.usrcmd, "lp" + std::string(255, 'u'));
    EXPECT_EQ(hc.dousr, 1);
    SendMessageA(window, WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), LPARAM(part("button", "Do Print")->handle));
    wi_hc_getenv(&hc);
    EXPECT_EQ(hc.dousr, 0);
    wi_hc_set_usr();
    EXPECT_EQ(wi_hc_getenv(nullptr) + wi_hc_getenv(nullptr), 0);
}

TEST_F(Hardcopy, HasOneWindowMadeWithTheFirstObjectOfAll)
{
    wi_reset_help();
    wi_reset_hardcopy();
    wi_hlp_setprognm("prog");
    wi_set_window_name("Main");
    build();
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(taken(wi_hlp_getprognm()), "prog");
    EXPECT_STREQ(field("Path:")->hlp->strt_str, "help:default:Path");
    char title[10] = "";
    GetWindowTextA(wi_mk_form(nullptr, 1, 1)->shell->handle, title, sizeof title);
    EXPECT_STREQ(title, "Main") << "the name waits for the program's own form";
    win_cb(nullptr, 0);
    EXPECT_TRUE(IsWindowVisible(window));
    SendMessageA(field("Queue:")->obj.strfld->editarea, WM_RBUTTONUP, 0, 0);
    EXPECT_TRUE(field("Queue:")->hlp->wo_edpg) << "help has a window to show";
    SendMessageA(window, WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), LPARAM(part("button", "DISMISS")->handle));
    EXPECT_FALSE(IsWindowVisible(window));
    wi_reset_help();
}

} // namespace
