// The installer as a process: what a person does with it.
#pragma once

#include "support/program_process.h"
#include "text.h"

#include <gtest/gtest.h>

inline std::string utf8(const std::wstring &s)
{
    const std::u8string bytes = std::filesystem::path(s).u8string();
    return {bytes.begin(), bytes.end()};
}

class installer_process : public program_process {
public:
    explicit installer_process(const std::filesystem::path &dir, const std::wstring &arguments = L"")
        : program_process(L"xinstall.exe", dir, arguments)
    {
        top = wait_for_window(L" ");
        EXPECT_TRUE(wait_until([this] { return !prompt().empty(); }));
    }

    HWND field() const { return child(top, L"Edit"); }
    std::wstring prompt() const { return text_of(child(top, L"Static", L"Where")); }
    std::wstring location() const { return text_of(field()); }

    // As one text.
    void set_location(const std::wstring &location) const
    {
        send(field(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(location.c_str()));
    }
    // Key by key, in place of what is there.
    void type_location(const std::wstring &location) const
    {
        send(field(), EM_SETSEL, 0, -1);
        for (const wchar_t c : location)
            PostMessageW(field(), WM_CHAR, c, 1);
        wait_until([&] { return this->location().size() >= location.size(); });
    }

    void press(const wchar_t *caption) const { ::press(button(caption)); }
    // Clicks the button with the mouse, and does not wait for what follows.
    void click(const wchar_t *caption) const
    {
        PostMessageW(button(caption), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        PostMessageW(button(caption), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    // Clicks until the program ends: a click is lost when a console takes the focus in the middle of it.
    void click_to_end(const wchar_t *caption) const
    {
        wait_until([&] { return click(caption), wait_for_end(1000); });
    }

    HWND popup() const { return window(L"Message"); }
    // With blanks where its lines are broken.
    std::string message() const { return replaced(utf8(text_of(child(popup(), L"Static"))), "\n", " "); }
    int message_height() const
    {
        RECT rect = {};
        GetWindowRect(popup(), &rect);
        return static_cast<int>(rect.bottom - rect.top);
    }
    HWND button(const wchar_t *caption) const
    {
        const HWND in_window = child(top, L"Button", caption);
        return in_window ? in_window : child(popup(), L"Button", caption);
    }

private:
    HWND top = nullptr;
};
