// Drives a program of ours from another process, as a person would: finds its windows, presses and reads.
#pragma once

#include <filesystem>
#include <string>
#include <windows.h>

constexpr UINT deadline = 30000; // milliseconds that anything is waited for

template <class Condition>
bool wait_until(Condition condition)
{
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < deadline; Sleep(3))
        if (condition())
            return true;
    return false;
}

// A running program, which lies beside the test; the destructor ends it when it has not ended itself.
class program_process {
public:
    // Started in `dir` with `arguments` behind the program's name.
    program_process(const std::wstring &program, const std::filesystem::path &dir, const std::wstring &arguments = L"");
    ~program_process();
    program_process(const program_process &) = delete;
    program_process &operator=(const program_process &) = delete;

    HWND window(const std::wstring &title) const; // the visible window of that title, or null
    HWND wait_for_window(const std::wstring &title) const;
    bool has_focus(HWND control) const; // waits for it
    bool wait_for_end(UINT milliseconds) const { return WaitForSingleObject(process.hProcess, milliseconds) == 0; }
    int exit_status() const; // waits for the end; STILL_ACTIVE when it does not come

private:
    PROCESS_INFORMATION process = {};
};

// As SendMessage, with a limit to how long it waits.
LRESULT send(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

// The first child of a class whose text begins so.
HWND child(HWND parent, const wchar_t *class_name, const std::wstring &start_of_text = L"");
std::wstring text_of(HWND window); // its first 3000 characters

// Tells the program that the button was pressed, and returns when it has done what follows.
void press(HWND button);
