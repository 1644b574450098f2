#include "wi/wiwindow.h"

#include "wi/widovapp.h"
#include "wi/windowtable.h"

#include <array>
#include <cstring>
#include <string>

namespace {

bool anything_moved;

struct dpi_font {
    UINT dpi;
    HFONT font;
};

// Controls are made for Unicode, or characters that the code page spells with several bytes could not be typed.
std::wstring wide(const char *s)
{
    std::wstring out(std::strlen(s) + 1, L'\0');
    out.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, s, -1, out.data(), static_cast<int>(out.size()))));
    return out;
}

HFONT make_font(UINT dpi)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi))
        return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

// Asking the platform for the DPI of each control would cost as much as a tenth of its making. The window is not in
// the window table when that is full.
HFONT font_of(HWND window)
{
    const wi_obj *app = getwiobject(window);
    return app && app->type == wi_type_dovapp ? app->obj.dovapp->font : wi_message_font(GetDpiForWindow(window));
}

// Edit pages, which are not in the window table, have a font of their own.
BOOL CALLBACK refont_child(HWND child, LPARAM font)
{
    if (getwiobject(child))
        SendMessageA(child, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
}

} // namespace

HWND wi_create_control(const wi_obj *parent, const wchar_t *control_class, const char *text, DWORD style, DWORD exstyle,
                       const wi_rect &provisional, int id)
{
    const auto menu_id = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id));
    return CreateWindowExW(exstyle, control_class, wide(text ? text : "").c_str(), WS_CHILD | WS_VISIBLE | style,
                           provisional.x, provisional.y, provisional.w, provisional.h, getparenthandle(parent), menu_id,
                           getinstance(), nullptr);
}

HWND wi_make_control(wi_obj *wo, const wi_obj *parent, const wchar_t *control_class, const char *text, DWORD style,
                     DWORD exstyle, const wi_rect &provisional, int id)
{
    const HWND window = wi_create_control(parent, control_class, text, style, exstyle, provisional, id);
    setwiobject(window, wo);
    SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_of(getparenthandle(parent))), FALSE);
    return window;
}

std::intptr_t wi_subclass(const wi_obj *wo, HWND window, WNDPROC proc)
{
    if (getwiobject(window) != wo)
        return 0;
    return SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
}

LRESULT wi_class_proc(std::intptr_t class_proc, HWND window, UINT msg, WPARAM wparam, LPARAM lparam)
{
    return CallWindowProcW(reinterpret_cast<WNDPROC>(class_proc), window, msg, wparam, lparam);
}

HFONT wi_message_font(UINT dpi)
{
    static std::array<dpi_font, 16> fonts; // a desktop has few monitors, and so few DPIs
    for (dpi_font &f : fonts) {
        if (!f.font)
            f = {dpi, make_font(dpi)};
        if (f.dpi == dpi)
            return f.font;
    }
    return fonts[0].font;
}

void wi_refont(wi_obj *dovapp)
{
    HFONT &font = dovapp->obj.dovapp->font;
    font = wi_message_font(GetDpiForWindow(dovapp->handle));
    EnumChildWindows(dovapp->handle, refont_child, reinterpret_cast<LPARAM>(font));
}

void wi_move(HWND window, const wi_rect &r)
{
    RECT now;
    GetWindowRect(window, &now);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT *>(&now), 2);
    const bool there = now.left == r.x && now.top == r.y && now.right - now.left == r.w && now.bottom - now.top == r.h;
    if (there)
        return;
    SetWindowPos(window, nullptr, r.x, r.y, r.w, r.h, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    anything_moved = true;
}

void wi_layout_window(wi_obj *dovapp, int w, int h)
{
    anything_moved = false;
    onresize(dovapp, 0, 0, w, h);
    if (anything_moved)
        RedrawWindow(dovapp->handle, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void wi_show_window(HWND window, bool on)
{
    ShowWindow(window, on ? SW_SHOW : SW_HIDE);
    if (on)
        UpdateWindow(window);
}

char *wi_window_text(HWND window)
{
    constexpr int size = 256;
    char *text = c_mkstrn(size);
    GetWindowTextA(window, text, size);
    return text;
}

void wi_handle_show(wi_obj *wo, bool on)
{
    wi_show_window(wo->handle, on);
}

void wi_handle_place(wi_obj *wo, const wi_rect &r)
{
    wi_move(wo->handle, r);
}
