// What the toolkit does with platform windows, whatever their object.
#pragma once

#include "wi/wiplatform.h"
#include "wi/witype.h"

// Creates a visible child window of a standard control class in the window of `parent`. A null text is empty.
HWND wi_create_control(const wi_obj *parent, const wchar_t *control_class, const char *text, DWORD style, DWORD exstyle,
                       const wi_rect &provisional, int id);

// The same, registered for `wo` and with the toolkit's font.
HWND wi_make_control(wi_obj *wo, const wi_obj *parent, const wchar_t *control_class, const char *text, DWORD style,
                     DWORD exstyle, const wi_rect &provisional, int id);

// Puts `proc` in front of the window's own procedure, which is returned for wi_class_proc. Not when the window table
// does not lead from the window to `wo` (it is full, or the platform uses a handle again): the control then works
// without what the toolkit adds.
std::intptr_t wi_subclass(const wi_obj *wo, HWND window, WNDPROC proc);

// Handles a message as the control's class does.
LRESULT wi_class_proc(std::intptr_t class_proc, HWND window, UINT msg, WPARAM wparam, LPARAM lparam);

// The system's message font at that DPI; shared, lives as long as the process.
HFONT wi_message_font(UINT dpi);

// Gives the application window, and all controls that it has, the font that belongs to its present DPI.
void wi_refont(wi_obj *dovapp);

// Moves a child window without repainting; the layout pass repaints once.
void wi_move(HWND window, const wi_rect &r);

// Lays an application window out for a client area of w by h pixels, and repaints it when anything moved.
void wi_layout_window(wi_obj *dovapp, int w, int h);

void wi_show_window(HWND window, bool on);

// At most 255 characters of the window's text, in a new buffer of 256 bytes.
char *wi_window_text(HWND window);

// Rows of types that consist of the one window in `handle`.
void wi_handle_show(wi_obj *wo, bool on);
void wi_handle_place(wi_obj *wo, const wi_rect &r);
