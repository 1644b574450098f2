#include "wi/winmain.h"

#include "wi/wi.h"
#include "wi/wicmdline.h"
#include "wi/wicrsh.h"
#include "wi/widrawarea.h"
#include "wi/wimenubar.h"
#include "wi/wistate.h"
#include "wi/wiwindow.h"

namespace {

int running;

void register_app_class(HINSTANCE instance)
{
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_BYTEALIGNCLIENT | CS_BYTEALIGNWINDOW;
    wc.lpfnWndProc = dovappwndproc;
    wc.hInstance = instance;
    wc.hIcon = wc.hIconSm = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    wc.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    wc.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<std::intptr_t>(COLOR_BTNFACE + 1));
    wc.lpszClassName = "dovapp";
    RegisterClassExA(&wc);
}

bool is_window(const wi_obj *wo)
{
    return wo && wo->type == wi_type_dovapp;
}

void close(wi_obj *wo)
{
    if (!is_window(wo) || !wo->obj.dovapp->quit_enabled)
        return;
    if (const auto quit = wo->obj.dovapp->quit_cb)
        quit(wo, wo->obj.dovapp->quit_tag);
    else if (crsh_safe(wo, wo, 0))
        DestroyWindow(wo->handle);
}

void help(const HELPINFO *info)
{
    if (info && info->iContextType == HELPINFO_WINDOW)
        wi_hlp_srch(getwiobject(static_cast<HWND>(info->hItemHandle)));
}

void command(WPARAM wparam, HWND control)
{
    if (!control) {
        menudispatcher(LOWORD(wparam));
        return;
    }
    wi_obj *wo = getwiobject(control);
    if (!wo)
        return;
    if (HIWORD(wparam) == EN_CHANGE)
        wi_journal_text_changed(control);
    const wi_type &row = wi_row(wo);
    if (HIWORD(wparam) == BN_CLICKED && row.clicked)
        row.clicked(wo, LOWORD(wparam));
    else if (HIWORD(wparam) == CBN_SELCHANGE && row.selected)
        row.selected(wo);
}

void draw(const DRAWITEMSTRUCT &item)
{
    wi_obj *wo = getwiobject(item.hwndItem);
    const RECT &r = item.rcItem;
    if (wo && wi_row(wo).draw)
        wi_row(wo).draw(wo, item.hDC, {r.left, r.top, r.right - r.left, r.bottom - r.top});
}

// The controls keep the font's size in step with the monitor that the window is on.
void dpi_changed(wi_obj *wo, const RECT &suggested)
{
    wi_refont(wo);
    SetWindowPos(wo->handle, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// A window that comes back gives the keyboard to the control that had it.
void keep_focus(const wi_obj *wo, bool leaving)
{
    wi_window &kept = wo->obj.dovapp->focus;
    const HWND now = GetFocus();
    if (leaving && IsChild(wo->handle, now))
        kept = now;
    else if (!leaving && kept)
        SetFocus(kept);
}

} // namespace

int isrunning()
{
    return running;
}

void wi_set_running(int now)
{
    running = now;
}

// One case per message that the frame takes part in; the order is that of their frequency.
LRESULT CALLBACK dovappwndproc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam)
{
    wi_obj *wo = getwiobject(hwnd);
    switch (msg) {
    case WM_SIZE:
        if (is_window(wo))
            wi_layout_window(wo, LOWORD(lparam), HIWORD(lparam));
        return 0;
    case WM_COMMAND:
        command(wparam, reinterpret_cast<HWND>(lparam));
        return 0;
    case WM_CLOSE:
        close(wo);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    case WM_HELP:
        help(reinterpret_cast<const HELPINFO *>(lparam));
        return 0;
    case WM_DRAWITEM:
        draw(*reinterpret_cast<const DRAWITEMSTRUCT *>(lparam));
        return 0;
    case WM_DPICHANGED:
        if (is_window(wo))
            dpi_changed(wo, *reinterpret_cast<const RECT *>(lparam));
        return 0;
    case WM_ACTIVATE:
        if (is_window(wo) && LOWORD(wparam) == WA_INACTIVE)
            keep_focus(wo, true);
        break;
    case WM_SETFOCUS:
        if (is_window(wo))
            keep_focus(wo, false);
        break;
    default:
        break;
    }
    return DefWindowProcA(hwnd, msg, wparam, lparam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR cmdline, int)
{
    running = 0;
    setinstance(instance);
    register_app_class(instance);
    registerdrawwindow();
    int argc = 0;
    char **argv = nullptr;
    parsecommandline(cmdline, &argc, &argv);
    get_logical("ZOLT", nullptr);
    wi_application_main(argc, argv);
    running = 1;
    exposedrawwindows();
    MSG msg;
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    return static_cast<int>(msg.wParam);
}
