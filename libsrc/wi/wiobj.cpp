#include "wi/wiobj.h"

#include "wi/wiwindow.h"

namespace {

constexpr const char *cannot_turn_on = "You cannot turn on that object with wi_on";
constexpr const char *cannot_turn_off = "You cannot turn off that object with wi_off";

void show_shell(wi_obj *shell, bool on)
{
    if (!on) {
        wi_show_window(shell->handle, false);
        return;
    }
    if (!IsWindowVisible(shell->handle)) { // what was made since the last layout appears in its place
        RECT client;
        GetClientRect(shell->handle, &client);
        wi_layout_window(shell, client.right, client.bottom);
    }
    if (IsIconic(shell->handle))
        ShowWindow(shell->handle, SW_RESTORE);
    wi_show_window(shell->handle, true);
    SetForegroundWindow(shell->handle);
}

void show_tree(wi_obj *wo, bool on, const char *type_message)
{
    const wi_type &row = wi_row(wo);
    if (wo->shell && !(on && row.pops_up)) {
        show_shell(wo->shell, on);
        return;
    }
    if (!row.show)
        wi_exit(type_message);
    row.show(wo, on);
}

void check_alone(const wi_obj *wo, const char *message)
{
    if (wi_row(wo).is_part && !wo->shell)
        wi_exit(message);
}

// The shell's window and its present place on the screen; without a shell the program ends.
HWND shell_window(const wi_obj *wo, RECT &place)
{
    if (!wo || !wo->shell)
        wi_exit("Bad parameter to wi_size");
    GetWindowRect(wo->shell->handle, &place);
    return wo->shell->handle;
}

} // namespace

void addchild(wi_obj *child, wi_obj *parent)
{
    if (!parent)
        wi_exit("Bad parameter to addchild");
    child->parent = parent;
    const wi_type &row = wi_row(parent);
    if (!row.add_child)
        wi_exit("Error: cannot add a child to that object.");
    row.add_child(parent, child);
}

wi_window getparenthandle(const wi_obj *parent)
{
    while (parent->type == wi_type_frame)
        parent = parent->parent;
    return parent->handle;
}

void wi_onrecursive(wi_obj *wo)
{
    if (wo && wo->ison)
        show_tree(wo, true, cannot_turn_on);
}

void wi_offrecursive(wi_obj *wo)
{
    if (wo)
        show_tree(wo, false, cannot_turn_off);
}

void wi_on(wi_obj *wo)
{
    if (!wo)
        return;
    check_alone(wo, cannot_turn_on);
    wo->ison = 1;
    wi_onrecursive(wo);
}

void wi_off(wi_obj *wo)
{
    if (!wo)
        return;
    check_alone(wo, cannot_turn_off);
    wo->ison = 0;
    wi_offrecursive(wo);
}

void wi_settitle(wi_obj *wo, const char *title)
{
    if (wo && wo->shell)
        SetWindowTextA(wo->shell->handle, title);
}

void wi_size(wi_obj *wo, int x, int y)
{
    if (!wo)
        wi_exit("Bad Wi object passed to wi_size.");
    RECT place;
    const HWND window = shell_window(wo, place);
    const long long width = GetSystemMetrics(SM_CXFULLSCREEN), height = GetSystemMetrics(SM_CYFULLSCREEN);
    MoveWindow(window, place.left, place.top, static_cast<int>(static_cast<double>(x * width) * 1.25 / 1024),
               static_cast<int>(static_cast<double>(y * height) * 1.25 / 768), TRUE);
}

void wi_position(wi_obj *wo, int x, int y)
{
    RECT place;
    const HWND window = shell_window(wo, place);
    const long long width = GetSystemMetrics(SM_CXFULLSCREEN), height = GetSystemMetrics(SM_CYFULLSCREEN);
    MoveWindow(window, static_cast<int>(x * width / 1024), static_cast<int>(y * height / 768), place.right - place.left,
               place.bottom - place.top, TRUE);
}

void onresize(wi_obj *wo, int x, int y, int w, int h)
{
    if (!wo)
        return;
    if (const auto place = wi_row(wo).place)
        place(wo, {x, y, w, h});
}

wi_obj *wi_store(wi_obj *wo, void *p)
{
    wo->point = p;
    return wo;
}

void *wi_recall(const wi_obj *wo)
{
    return wo->point;
}
