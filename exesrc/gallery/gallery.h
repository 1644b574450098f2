// The gallery: every object of the toolkit, grouped on pages.
#pragma once

#include "wi/wi.h"

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
