// What the tests of the toolkit share. Test programs run inside the real frame.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <windows.h>

#include "dovsys/dovsys.h"
#include "wi/wi.h"
#include "wi/wistate.h"

// The message with which `call` ends the program, or "" when it does not.
template <class Call>
std::string exit_message(Call &&call)
{
    struct ended {
        std::string msg;
    };
    wi_set_exit_handler([](const char *msg) { throw ended{msg}; });
    std::string msg;
    try {
        call();
    } catch (const ended &e) {
        msg = e.msg;
    }
    wi_set_exit_handler(nullptr);
    return msg;
}

// The text, which is freed.
inline std::string taken(char *text)
{
    const std::string s = text ? text : "(null)";
    jfree(text);
    return s;
}

// Lets the frame's windows handle what is waiting for them.
inline void pump()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

// A window's place relative to its parent's client area.
inline RECT place_of(HWND window)
{
    RECT r;
    GetWindowRect(window, &r);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT *>(&r), 2);
    return r;
}

// What the last callback was given.
struct seen {
    static inline wi_obj *wo;
    static inline int tag, calls;
    static void callback(wi_obj *from, int with)
    {
        wo = from;
        tag = with;
        ++calls;
    }
    static std::pair<wi_obj *, int> last() { return {wo, tag}; }
    static void reset()
    {
        wo = nullptr;
        tag = calls = 0;
    }
};

// A place for an object, in a window of its own.
inline wi_obj *new_area()
{
    return wi_form_parent(wi_mk_form(nullptr, 100, 100), 0, 0, 50, 10);
}

// What a window gets when the control in it is clicked.
inline void click_on(HWND control)
{
    SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), LPARAM(control));
}

inline void type_text(HWND window, const char *text)
{
    for (; *text; ++text)
        SendMessageA(window, WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(*text)), 1);
}

inline void press_key(HWND window, int key)
{
    SendMessageA(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
}
