#include "wi/windowtable.h"

#include "wi/wistate.h"

#include <array>
#include <cstdint>

namespace {

struct _windowtableentry {
    wi_window windowhandle;
    wi_obj *wiptr;
};

constexpr int table_size = 20000;
constexpr int menu_size = 400;

// Open addressing with linear probing, at most 61 % full. Only the first registration of a window has an entry.
constexpr unsigned hash_bits = 15;
constexpr std::size_t hash_size = std::size_t{1} << hash_bits;
static_assert(hash_size > table_size * 3 / 2);

std::array<_windowtableentry, hash_size> wintable;
int lastposition; // registrations so far
wi_instance instance;
std::array<wi_menubutton_info *, menu_size> menutable;
int lastmenuposition;

// The entry of the window, or the free one where it belongs.
_windowtableentry &entry_of(wi_window window)
{
    auto at =
        static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(window) * 0x9E3779B97F4A7C15u >> (64 - hash_bits));
    while (wintable[at].windowhandle != window && (wintable[at].windowhandle || wintable[at].wiptr))
        at = (at + 1) % hash_size;
    return wintable[at];
}

} // namespace

void setwiobject(wi_window window, wi_obj *wo)
{
    if (lastposition == table_size)
        return;
    ++lastposition;
    _windowtableentry &entry = entry_of(window);
    if (!entry.windowhandle && !entry.wiptr)
        entry = {window, wo};
}

wi_obj *getwiobject(wi_window window)
{
    return entry_of(window).wiptr;
}

void setinstance(wi_instance h)
{
    instance = h;
}

wi_instance getinstance()
{
    return instance;
}

void setmenuinfo(wi_menubutton_info *info)
{
    if (lastmenuposition < menu_size)
        menutable[static_cast<std::size_t>(lastmenuposition++)] = info;
}

int getmenuid()
{
    return lastmenuposition - 1;
}

wi_menubutton_info *getmenuinfo(unsigned short id)
{
    return id < lastmenuposition ? menutable[id] : nullptr;
}

void wi_reset_window_table()
{
    lastposition = 0;
    lastmenuposition = 0;
    wintable = {};
}
