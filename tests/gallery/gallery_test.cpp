#include "support/program_process.h"

#include <fstream>
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

} // namespace
