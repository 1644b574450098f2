#include "support/dialog.h"
#include "support/program_process.h"
#include "support/wi_fixture.h"

namespace {

TEST(Frame, TakesItsOwnOptionFromTheSecondToLastWord)
{
    using row = std::tuple<std::vector<const char *>, int, int>; // words; how many are left; is help edited
    for (const auto &[words, left, editing] :
         {row{{}, 0, 0}, row{{"helpedit"}, 1, 0}, row{{"x", "helpedit"}, 2, 0}, row{{"Helpedit", "x"}, 2, 0},
          row{{"helpedit", "x"}, 1, 1}, row{{"helpedit", "x", "y"}, 3, 0}, row{{"x", "helpedit", "y"}, 2, 1}}) {
        std::vector<char *> argv{const_cast<char *>(" ")};
        for (const char *word : words)
            argv.push_back(const_cast<char *>(word));
        int argc = static_cast<int>(words.size());
        wi_hlp_editable(0);
        wi_main_init(&argc, argv.data());
        EXPECT_EQ(argc, left);
        EXPECT_EQ(wi_hlp_iseditable(), editing);
    }
    wi_hlp_editable(0);
}

TEST(ApplicationWindow, ClosesOnlyAsItsQuitEntrySays)
{
    wi_obj *app = wi_mk_dovapp(nullptr, "title");
    wi_dovapp_quit(app, 0, "", seen::callback, 1);
    seen::reset();
    SendMessageA(app->handle, WM_CLOSE, 0, 0);
    EXPECT_EQ(seen::calls, 0);
    wi_dovapp_quit(app, 5, "", seen::callback, 77);
    SendMessageA(app->handle, WM_CLOSE, 0, 0);
    EXPECT_EQ(seen::last(), std::pair(app, 77));
    EXPECT_TRUE(IsWindow(app->handle));
    wi_dovapp_quit(app, 1, "", nullptr, 0);
    SendMessageA(app->handle, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(app->handle));
    MSG msg;
    EXPECT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the program ends with its window";
}

TEST(ApplicationWindow, TakesItsTitleFromWhoMadeIt)
{
    const auto title = [](const wi_obj *wo) { return window_text(wo->shell->handle); };
    wi_set_window_name("forgotten");
    wi_set_window_name("Message \xc3\xa9");
    EXPECT_EQ(title(wi_mk_label(nullptr, "", 0)), " ") << "the name waits for a form";
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    EXPECT_EQ(title(form), "Message \xc3\xa9");
    EXPECT_EQ(title(wi_mk_form(nullptr, 1, 1)), " ") << "and is used once";
    wi_settitle(form, "set");
    EXPECT_EQ(title(form), "set");
    wi_dovapp_label(form->shell, "labelled");
    EXPECT_EQ(title(form), "labelled");
    wi_settitle(wi_mk_label(wi_form_parent(form, 0, 0, 1, 1), "", 0), "ignored");
}

TEST(ApplicationWindow, TakesTheSizeThatAMonitorOfOtherDpiAsksFor)
{
    wi_obj *label = wi_mk_label(nullptr, "t", 0);
    RECT wanted{30, 40, 630, 340}, got;
    SendMessageA(label->shell->handle, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&wanted));
    GetWindowRect(label->shell->handle, &got);
    EXPECT_TRUE(EqualRect(&got, &wanted));
}

TEST(ApplicationWindow, IgnoresMessagesOfForeignWindows)
{
    wi_obj *app = wi_mk_dovapp(nullptr, "t");
    const HWND foreign = CreateWindowA("button", "", WS_CHILD, 0, 0, 1, 1, app->handle, nullptr, nullptr, nullptr);
    for (const int notification : {0, 1, 300})
        EXPECT_EQ(SendMessageA(app->handle, WM_COMMAND, MAKEWPARAM(1, notification), reinterpret_cast<LPARAM>(foreign)),
                  0);
    EXPECT_EQ(SendMessageA(app->handle, WM_COMMAND, 7, 0), 0);
    HELPINFO info{};
    info.iContextType = HELPINFO_WINDOW;
    info.hItemHandle = foreign;
    EXPECT_EQ(SendMessageA(app->handle, WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), 0);
    DRAWITEMSTRUCT item{};
    item.hwndItem = foreign;
    EXPECT_EQ(SendMessageA(app->handle, WM_DRAWITEM, 1, reinterpret_cast<LPARAM>(&item)), 0);
}

// The program error as a person sees it, watched from outside.
TEST(ProgramError, ShowsItsMessageInABoxAndEndsTheProcess)
{
    const program_process program(L"wi_test.exe", std::filesystem::temp_directory_path(), L"--end-with-error");
    const HWND box = program.wait_for_window(L"Error message:");
    EXPECT_TRUE(child(box, L"Static", L"PE 2, wilabel.c: bad arg.")) << "no such text";
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(program.exit_status(), -1);
}

} // namespace
