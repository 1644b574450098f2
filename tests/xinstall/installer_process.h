// Drives the installer from another process, as a person would: finds its windows, types, presses and reads.
#pragma once

#include <filesystem>
#include <string>
#include <windows.h>

// The running installer; the destructor ends it when it has not ended itself. Everything waits for a limited time.
class installer_process {
public:
    // Started in `dir` with `arguments` behind the program's name. Check found().
    explicit installer_process(const std::filesystem::path &dir, const std::wstring &arguments = L"");
    ~installer_process();
    installer_process(const installer_process &) = delete;
    installer_process &operator=(const installer_process &) = delete;

    bool found() const { return window != nullptr; }

    std::wstring prompt() const { return text_of(child(window, L"Static", L"Where")); }
    std::wstring location() const { return text_of(child(window, L"Edit")); }
    void set_location(const std::wstring &location) const;  // as one text
    void type_location(const std::wstring &location) const; // key by key, in place of what is there

    // Tells the program that the button of that caption was pressed, and returns when it has done what follows.
    void press(const wchar_t *caption) const;
    // Clicks the button with the mouse, and does not wait for what follows.
    void click(const wchar_t *caption) const;
    // Clicks until the program ends: a click is lost when a console takes the focus in the middle of it.
    void click_to_end(const wchar_t *caption) const;

    bool has_message() const { return popup() != nullptr; }
    bool wait_for_message() const;
    std::wstring message() const; // of the pop-up, or "(no message)"
    int message_height() const;
    bool field_has_focus() const { return has_focus(child(window, L"Edit")); }
    bool button_has_focus(const wchar_t *caption) const { return has_focus(button(caption)); }

    int exit_status() const; // waits for the end; STILL_ACTIVE when it does not come

private:
    HWND main_window() const;
    HWND popup() const;
    HWND button(const wchar_t *caption) const;
    bool has_focus(HWND control) const; // waits for it
    static HWND child(HWND parent, const wchar_t *class_name, const std::wstring &start_of_text = L"");
    static std::wstring text_of(HWND window);

    PROCESS_INFORMATION process = {};
    HWND window = nullptr;
};
