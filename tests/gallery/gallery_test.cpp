#include "support/program_process.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>

namespace {

std::string bytes_of(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Gallery, ReportsWhatItsObjectsDo)
{
    const program_process gallery(L"gallery.exe", std::filesystem::current_path());
    const HWND window = gallery.wait_for_window(L"Gallery");
    ASSERT_TRUE(window);
    const HWND status = GetWindow(child(window, L"Static", L"Status:"), GW_HWNDNEXT);
    const struct {
        const wchar_t *button, *said;
    } table[] = {{L"Push button", L"Push button was pressed, tag 1"},
                 {L"Toggle button", L"Toggle button is on"},
                 {L"Toggle button", L"Toggle button is off"},
                 {L"+", L"The pair was stepped up"},
                 {L"Next icon", L"Icon 2"},
                 {L"Choices", L"Page: Choices"},
                 {L"Two", L"Button array, tag 2"},
                 {L"Toggles", L"Page: Toggles"},
                 {L"Venus", L"Page: Toggles"},
                 {L"States", L"Exactly one of them: Venus"},
                 {L"Venus", L"Exactly one of them: Venus"},
                 {L"States", L"Exactly one of them: Mercury"},
                 {L"Forbid this colour", L"Colour: green"},
                 {L"Lock the colour", L"No colour"},
                 {L"Text", L"Page: Text"},
                 {L"Read-only", L"Read-only is on"},
                 {L"Count characters", L"62 characters"},
                 {L"Cell 7", L"Cell 7 was pressed, tag 7"}};
    for (const auto &[button, said] : table) {
        press(child(window, L"Button", button));
        EXPECT_EQ(text_of(status), said) << testing::PrintToString(button);
    }
}

TEST(Gallery, HasHelpForEveryButton)
{
    const std::string before = bytes_of(SHIPPED_CONTENTS);
    const program_process gallery(L"gallery.exe", std::filesystem::current_path());
    const HWND window = gallery.wait_for_window(L"Gallery");
    ASSERT_TRUE(window);
    int looked_up = 0;
    for (HWND button = nullptr; (button = FindWindowExW(window, button, L"Button", nullptr));) {
        const std::wstring caption = text_of(button);
        if (caption.empty())
            continue;
        send(button, WM_RBUTTONUP);
        ++looked_up;
        const HWND help = gallery.window(L"Help");
        ASSERT_TRUE(help);
        HWND page = nullptr; // the one of several lines
        while ((page = FindWindowExW(help, page, L"Edit", nullptr)) &&
               !(GetWindowLongW(page, GWL_STYLE) & ES_MULTILINE)) {
        }
        EXPECT_FALSE(text_of(page).starts_with(L"No information")) << testing::PrintToString(caption);
    }
    EXPECT_GT(looked_up, 40);
    EXPECT_EQ(bytes_of(CONTENTS_BESIDE_THE_PROGRAM), before) << "run exesrc/help/make-contents";
}

// The edit window behind a label.
HWND field(HWND window, const std::wstring &label)
{
    HWND control = child(window, L"Static", label);
    do {
        control = GetWindow(control, GW_HWNDNEXT);
    } while (control && !(SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL));
    return control;
}

void enter(HWND edit, const std::wstring &text)
{
    send(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    send(edit, WM_KEYDOWN, VK_RETURN, 1);
}

// The text of every field but the status line, and the state of every toggle button.
std::wstring state_of(HWND window)
{
    const HWND status = field(window, L"Status:");
    std::wstring state;
    for (HWND control = nullptr; (control = FindWindowExW(window, control, L"Edit", nullptr));)
        state += control == status ? L"" : text_of(control) + L"|";
    for (HWND control = nullptr; (control = FindWindowExW(window, control, L"Button", nullptr));)
        if ((GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_CHECKBOX)
            state += send(control, BM_GETCHECK) ? L'1' : L'0';
    return state;
}

TEST(Gallery, ReplaysASessionInAnotherProcess)
{
    const std::filesystem::path place = std::filesystem::current_path();
    std::vector<std::wstring> states; // before and after each action
    {
        const program_process gallery(L"gallery.exe", place, L"journal gallery_e2e.jrl");
        const HWND window = gallery.wait_for_window(L"Gallery");
        ASSERT_TRUE(window);
        const auto pressing = [=](const wchar_t *button) { return [=] { press(child(window, L"Button", button)); }; };
        const auto entering = [=](const wchar_t *label, const wchar_t *text) {
            return [=] { enter(field(window, label), text); };
        };
        const auto mouse = [=](UINT message, int x, int y) {
            return [=] { send(child(window, L"dovdrawarea"), message, 0, MAKELPARAM(x, y)); };
        };
        const std::function<void()> actions[] = {pressing(L"Toggle button"),
                                                 entering(L"String field:", L"caf\u00e9 = 1"),
                                                 entering(L"Numeric field:", L"2.50"),
                                                 pressing(L"Push button"),
                                                 entering(L"From 0 to 10:", L"7"),
                                                 mouse(WM_LBUTTONDOWN, 5, 10),
                                                 mouse(WM_MOUSEMOVE, 30, 13),
                                                 mouse(WM_LBUTTONUP, 40, 40),
                                                 pressing(L"Read-only"),
                                                 entering(L"File:", L"C:\\a b.iq"),
                                                 pressing(L"Toggle button")};
        states.push_back(state_of(window));
        for (const auto &act : actions) {
            act();
            states.push_back(state_of(window));
        }
    }
    const program_process gallery(L"gallery.exe", place, L"journal gallery_e2e_again.jrl");
    const HWND window = gallery.wait_for_window(L"Gallery");
    ASSERT_TRUE(window);
    press(child(window, L"Button", L"Journal Manager"));
    const HWND manager = gallery.wait_for_window(L"Journal Manager");
    ASSERT_TRUE(manager);
    enter(field(manager, L"File:"), L"gallery_e2e.jrl");
    EXPECT_EQ(text_of(child(manager, L"Static", L"Total")), L"Total Entries: 11");
    EXPECT_EQ(bytes_of(place / "gallery_e2e.jrl").substr(0, 11), std::string("\7\0\0\0gallery", 11));
    for (const int entry : {11, 5, 6, 0, 11}) {
        enter(field(manager, L"Entry:"), std::to_wstring(entry));
        EXPECT_EQ(text_of(field(manager, L"Entry:")), std::to_wstring(entry));
        EXPECT_EQ(state_of(window), states[static_cast<std::size_t>(entry)]) << entry;
    }
    EXPECT_FALSE(gallery.window(L"Journal Message"));
    for (const char *journal : {"gallery_e2e.jrl", "gallery_e2e_again.jrl"})
        EXPECT_TRUE(std::filesystem::remove(journal));
}

} // namespace
