// The gallery: every object of the toolkit, grouped on pages.
#pragma once

#include "wi/wi.h"

#include <cstdint>
#include <span>
#include <string>

// A page's name, which is that of its button, and what puts its objects into its form of 100 by 100.
struct gallery_page {
    const char *name;
    void (*build)(wi_obj *form);
};

// All pages, in the order of their buttons.
std::span<const gallery_page> gallery_pages();

// Reports what an object has done in the status line.
void gallery_say(const std::string &what);

// The menu bar, in an area of the window.
void gallery_build_menu(wi_obj *area);

// ---- the drawing ----

struct gallery_pen {
    int width;            // pixels
    std::uint32_t colour; // 0x00BBGGRR
};

void gallery_build_drawing(wi_obj *form); // its page
void gallery_clear_drawing();
void gallery_set_pen(const gallery_pen &next); // of the strokes drawn from now on
gallery_pen gallery_get_pen();

// ---- the journal ----

// Puts fields, toggles and the drawing into the state that they start in.
void gallery_restart();
