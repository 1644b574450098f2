// The frame: the process entry, the window classes, the message loop.
#pragma once

#include "wi/wiplatform.h"

// The window procedure of application windows.
LRESULT CALLBACK dovappwndproc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
