#include "support/wi_fixture.h"

#include <chrono>

namespace {

TEST(Frame, TakesItsOwnOptionFromTheSecondToLastWord)
{
    const struct {
        std::vector<const char *> words;
        int left, editing;
    } table[] = {{{}, 0, 0},
                 {{"helpedit"}, 1, 0},
                 {{"x", "helpedit"}, 2, 0},
                 {{"Helpedit", "x"}, 2, 0},
                 {{"helpedit", "x"}, 1, 1},
                 {{"helpedit", "x", "y"}, 3, 0},
                 {{"x", "helpedit", "y"}, 2, 1}};
    for (const auto &row : table) {
        std::vector<char *> argv{const_cast<char *>(" ")};
        for (const char *word : row.words)
            argv.push_back(const_cast<char *>(word));
        int argc = static_cast<int>(row.words.size());
        wi_hlp_editable(0);
        wi_main_init(&argc, argv.data());
        EXPECT_EQ(argc, row.left);
        EXPECT_EQ(wi_hlp_iseditable(), row.editing);
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
    EXPECT_EQ(seen::wo, app);
    EXPECT_EQ(seen::tag, 77);
    EXPECT_TRUE(IsWindow(app->handle));
    wi_dovapp_quit(app, 1, "", nullptr, 0);
    SendMessageA(app->handle, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(app->handle));
    MSG msg;
    EXPECT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the program ends with its window";
}

TEST(ApplicationWindow, TakesItsTitleFromWhoMadeIt)
{
    const auto title = [](const wi_obj *wo) {
        char text[100];
        GetWindowTextA(wo->shell->handle, text, sizeof text);
        return std::string(text);
    };
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
    std::string command = std::string("\"") + __argv[0] + "\" --end-with-error";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(
        CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    HWND box = nullptr;
    while (!box && std::chrono::steady_clock::now() < deadline) {
        box = FindWindowA(nullptr, "Error message:");
        Sleep(10);
    }
    EXPECT_NE(box, nullptr);
    char text[100] = "";
    while (box && !*text && std::chrono::steady_clock::now() < deadline)
        for (HWND child = nullptr; (child = FindWindowExA(box, child, "static", nullptr)) != nullptr;)
            if (GetWindowTextLengthA(child) > 0)
                SendMessageA(child, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, "PE 2, wilabel.c: bad arg.");
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    DWORD status = 0;
    if (WaitForSingleObject(process.hProcess, 30000) != WAIT_OBJECT_0)
        TerminateProcess(process.hProcess, 1);
    GetExitCodeProcess(process.hProcess, &status);
    EXPECT_EQ(status, static_cast<DWORD>(-1));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

} // namespace
