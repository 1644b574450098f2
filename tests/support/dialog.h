// Answers a dialog as a person would, from another thread: finds the box, reads it, presses a button.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

struct dialog {
    std::string caption, text;
    std::vector<std::string> buttons; // in the order of the dialog
    HICON icon = nullptr;
    HWND owner = nullptr;
};

inline std::string window_text(HWND window)
{
    std::string text(static_cast<std::size_t>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(static_cast<std::size_t>(SendMessageA(window, WM_GETTEXT, text.size(), LPARAM(text.data()))));
    return text;
}

// Without one the process ends: nobody else will close what keeps the other thread waiting.
inline HWND wait_for_dialog()
{
    const auto mine = [](HWND window, LPARAM found) {
        char name[8] = "";
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        GetClassNameA(window, name, sizeof name);
        const bool is_it = process == GetCurrentProcessId() && std::string(name) == "#32770" && IsWindowVisible(window);
        if (is_it)
            *reinterpret_cast<HWND *>(found) = window;
        return BOOL{!is_it};
    };
    HWND found = nullptr;
    for (int tries = 0; !found && tries < 1000; ++tries, Sleep(10))
        EnumWindows(mine, LPARAM(&found));
    if (!found) {
        std::fputs("no dialog has popped up\n", stderr);
        std::_Exit(3);
    }
    return found;
}

inline dialog read_dialog(HWND box)
{
    dialog d;
    d.caption = window_text(box);
    d.owner = GetWindow(box, GW_OWNER);
    for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
        char name[8] = "";
        GetClassNameA(part, name, sizeof name);
        const bool shown = GetWindowLongA(part, GWL_STYLE) & WS_VISIBLE;
        if (lstrcmpiA(name, "button") == 0 && shown)
            d.buttons.push_back(window_text(part));
        else if (const auto icon = SendMessageA(part, STM_GETICON, 0, 0); icon && lstrcmpiA(name, "static") == 0)
            d.icon = reinterpret_cast<HICON>(icon);
        else if (lstrcmpiA(name, "static") == 0 && shown)
            d.text += window_text(part);
    }
    return d;
}

// Runs `pop_up`, which does not return before the dialog is closed, and closes it with `act(window)`.
template <class PopUp, class Act>
dialog answered(PopUp &&pop_up, Act &&act)
{
    dialog d;
    std::thread person([&] {
        const HWND box = wait_for_dialog();
        d = read_dialog(box);
        act(box);
    });
    pop_up();
    person.join();
    return d;
}

inline auto press(int button)
{
    return [=](HWND box) { SendMessageA(box, WM_COMMAND, WPARAM(button), LPARAM(GetDlgItem(box, button))); };
}
