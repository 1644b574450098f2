// The menu bar: the toolkit's own windows, and the pen of the drawing.

#include "gallery.h"

#include <array>
#include <cstdlib>

namespace {

constexpr std::array widths = {1, 3, 7};
constexpr std::array<const char *, widths.size()> width_names = {"Thin", "Medium", "Thick"};
constexpr std::array<std::uint32_t, 3> colours = {0x000000, 0x0000ff, 0xff0000};
constexpr std::array<const char *, colours.size()> colour_names = {"Black", "Red", "Blue"};

void quit(wi_obj * /*wo*/, int /*tag*/)
{
    std::exit(0);
}

void set_width(wi_obj *bar, int which)
{
    wi_menubar_eset(bar);
    gallery_pen pen = gallery_get_pen();
    pen.width = widths[static_cast<std::size_t>(which)];
    gallery_set_pen(pen);
    gallery_say(std::string("Pen: ") + width_names[static_cast<std::size_t>(which)]);
}

void set_colour(wi_obj *bar, int which)
{
    wi_menubar_eset(bar);
    gallery_pen pen = gallery_get_pen();
    pen.colour = colours[static_cast<std::size_t>(which)];
    gallery_set_pen(pen);
    gallery_say(std::string("Pen: ") + colour_names[static_cast<std::size_t>(which)]);
}

void say_check(wi_obj *bar, int /*tag*/)
{
    gallery_say(wi_menubar_getstate(bar) ? "Check item is on" : "Check item is off");
}

// Items of which one is marked, the first to begin with.
void add_choices(wi_obj *bar, std::span<const char *const> names, wi_callback cb)
{
    int tag = 0;
    for (const char *name : names) {
        wi_menubar_button(bar, name, 1, cb, tag);
        wi_menubar_setstate(bar, tag++ == 0);
    }
}

} // namespace

void gallery_build_menu(wi_obj *area)
{
    wi_obj *bar = wi_mk_menubar(area);
    wi_menubar_pulldown(bar, "Program");
    wi_menubar_button(bar, "Journal Manager", 0, wi_journal_on, 0);
    wi_menubar_button(bar, "Check item", 1, say_check, 0);
    wi_menubar_submenu(bar, "Leave");
    wi_menubar_button(bar, "Quit", 0, quit, 0);
    wi_menubar_submenu_done(bar);
    wi_menubar_pulldown(bar, "Width");
    add_choices(bar, width_names, set_width);
    wi_menubar_pulldown(bar, "Colour");
    add_choices(bar, colour_names, set_colour);
}
