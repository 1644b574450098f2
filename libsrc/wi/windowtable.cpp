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

std::array<_windowtableentry, table_size> wintable;
int lastposition;
wi_instance instance;
std::array<wi_menubutton_info *, menu_size> menutable;
int lastmenuposition;

// Index of the table: open addressing with linear probing; a slot holds a position of wintable + 1, or 0. It holds
// the first registration of each window only, and is at most 61 % full.
constexpr std::size_t index_size = 32768;
static_assert((index_size & (index_size - 1)) == 0 && index_size > table_size * 3 / 2);
std::array<std::uint16_t, index_size> window_index;
static_assert(table_size < UINT16_MAX);

// The slot of the window, or the free slot where it belongs.
std::uint16_t &index_slot(wi_window window)
{
    auto at = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(window) * 0x9E3779B97F4A7C15u >> 49);
    static_assert(index_size == std::size_t{1} << (64 - 49));
    while (window_index[at] && wintable[window_index[at] - 1u].windowhandle != window)
        at = (at + 1) % index_size;
    return window_index[at];
}

} // namespace

void setwiobject(wi_window window, wi_obj *wo)
{
    if (lastposition == table_size)
        return;
    wintable[static_cast<std::size_t>(lastposition++)] = {window, wo};
    std::uint16_t &slot = index_slot(window);
    if (!slot)
        slot = static_cast<std::uint16_t>(lastposition);
}

wi_obj *getwiobject(wi_window window)
{
    const std::uint16_t slot = index_slot(window);
    return slot ? wintable[slot - 1u].wiptr : nullptr;
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
    window_index.fill(0);
}
