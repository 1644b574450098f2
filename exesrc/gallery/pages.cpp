// The pages. Each builds its objects, whose callbacks say in the status line what they were given.

#include "dovsys/dovsys.h"
#include "gallery.h"

#include <array>
#include <vector>

namespace {

wi_obj *area(wi_obj *form, double x0, double y0, double x1, double y1)
{
    return wi_form_parent(form, x0, y0, x1, y1);
}

std::string text_of(char *text)
{
    const jmalloc_ptr<char> owner(text);
    return text ? text : "";
}

std::string label_of(wi_obj *wo)
{
    return text_of(wi_get_label(wo));
}

void say_pressed(wi_obj *wo, int tag)
{
    gallery_say(label_of(wo) + " was pressed, tag " + std::to_string(tag));
}

void say_state(wi_obj *wo, int /*tag*/)
{
    gallery_say(label_of(wo) + (wi_get_state(wo) ? " is on" : " is off"));
}

void say_text(wi_obj *wo, int /*tag*/)
{
    gallery_say(label_of(wo) + " " + text_of(wi_get_string(wo)));
}

// ---- the state at the start ----

struct start_state {
    wi_obj *wo; // a field or a toggle button
    std::string text;
    int on;
};
std::vector<start_state> start;

void keep(wi_obj *wo)
{
    if (wo->type == wi_type_button)
        start.push_back({wo, "", wi_get_state(wo)});
    else
        start.push_back({wo, text_of(wi_get_string(wo)), 0});
}

// ---- Controls ----

wi_obj *icon;

void say_step(wi_obj * /*wo*/, int tag)
{
    gallery_say(tag > 0 ? "The pair was stepped up" : "The pair was stepped down");
}

void next_icon(wi_obj * /*wo*/, int /*tag*/)
{
    const int now = icon->obj.icon->currenticon % 3 + 1;
    wi_icon(icon, now);
    wi_off(icon);
    wi_on(icon);
    gallery_say("Icon " + std::to_string(now));
}

void build_controls(wi_obj *form)
{
    constexpr std::array alignments = {"A label to the left", "in the middle", "and to the right"};
    for (int i = 0; i < 3; ++i)
        wi_mk_label(area(form, 2, 2 + 7 * i, 98, 9 + 7 * i), alignments[static_cast<std::size_t>(i)], i - 1);
    wi_obj *frame = wi_mk_form(wi_mk_frame(area(form, 2, 28, 60, 60)), 100, 100);
    wi_mk_button(area(frame, 5, 10, 45, 40), "Push button", 0, say_pressed, 1);
    keep(wi_mk_button(area(frame, 55, 10, 95, 40), "Toggle button", 1, say_state, 0));
    wi_mk_label(area(frame, 5, 62, 45, 85), "Up/down pair", -1);
    wi_mk_updownbut(area(frame, 55, 60, 95, 90), say_step, 1, say_step, -1);
    icon = wi_mk_icon(area(form, 66, 30, 78, 46), 1);
    wi_mk_button(area(form, 66, 50, 96, 58), "Next icon", 0, next_icon, 0);
}

// ---- Fields ----

void build_fields(wi_obj *form)
{
    wi_obj *string = wi_mk_strfld(area(form, 2, 4, 98, 12), "String field:", 0.3);
    wi_strfld_putstr(string, "press Enter here");
    wi_strfld_set_cb(string, say_text, 0);
    wi_obj *fixed = wi_mk_strfld(area(form, 2, 18, 98, 26), "Read-only:", 0.3);
    wi_strfld_putstr(fixed, "cannot be edited");
    wi_set_editable(fixed, 0);
    wi_obj *number = wi_mk_numfld(area(form, 2, 32, 98, 40), "Numeric field:", 0.3, 3);
    wi_numfld_putval(number, 3.14159);
    wi_numfld_set_cb(number, say_text, 0);
    wi_obj *stepped = wi_mk_incdecfld(area(form, 2, 46, 98, 54), "From 0 to 10:", 0.36, 0.5);
    wi_incdecfld_putval(stepped, 5);
    wi_incdecfld_botlim(stepped, 0);
    wi_incdecfld_toplim(stepped, 10);
    wi_incdecfld_set_cb(stepped, nullptr, 0, nullptr, 0, say_text, 0);
    for (wi_obj *field : {string, number, stepped})
        keep(field);
}

// ---- Choices ----

constexpr std::array<const char *, 5> planets = {"Mercury", "Venus", "Earth", "Mars", nullptr};

void say_cell(wi_obj * /*wo*/, int tag)
{
    gallery_say("Button array, tag " + std::to_string(tag));
}

void say_array(wi_obj *wo, int /*tag*/)
{
    gallery_say(wi_butary_getstate(wo, "Toggle") ? "Toggle of the array is on" : "Toggle of the array is off");
}

void build_choices(wi_obj *form)
{
    wi_obj *list = wi_mk_listsel(area(form, 2, 4, 70, 12), "List:", 0.3, planets.data());
    wi_listsel_selchng_cb(list, say_text, 0);
    wi_obj *open = wi_mk_listsel(area(form, 2, 18, 70, 26), "Editable list:", 0.3, planets.data());
    wi_listsel_editable(open, 1);
    wi_listsel_selchng_cb(open, say_text, 0);
    wi_obj *file = wi_mk_filesel(area(form, 2, 32, 98, 40), "File:", "C:\\*.*", 0.2);
    wi_filesel_chng_cb(file, say_text, 0);
    keep(file);
    wi_obj *array = wi_mk_butary(area(form, 2, 50, 98, 80), 2, 3);
    wi_butary_button(array, "One", 0, say_cell, 1);
    wi_butary_button(array, "Two", 0, say_cell, 2);
    wi_butary_blank(array);
    wi_butary_button(array, "Toggle", 1, say_array, 3);
    wi_butary_blank(array);
    wi_butary_button(array, "Six", 0, say_cell, 6);
}

// ---- Toggles ----

struct toggle_rule {
    wi_togary_mode mode;
    const char *name;
};
constexpr std::array<toggle_rule, 4> rules = {{{wi_togary_exactly_one, "Exactly one"},
                                               {wi_togary_at_most_one, "At most one"},
                                               {wi_togary_at_least_one, "At least one"},
                                               {wi_togary_any, "Any"}}};
std::array<wi_obj *, rules.size()> toggles;

void say_states(wi_obj * /*wo*/, int rule)
{
    wi_obj *array = toggles[static_cast<std::size_t>(rule)];
    std::array<int, planets.size() - 1> states;
    wi_togary_getary(array, states.data());
    std::string on;
    for (std::size_t i = 0; i < states.size(); ++i)
        on += states[i] ? std::string(" ") + planets[i] : "";
    gallery_say(std::string(rules[static_cast<std::size_t>(rule)].name) + " of them:" + (on.empty() ? " none" : on));
}

void build_toggles(wi_obj *form)
{
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const double x = i % 2 == 1 ? 50 : 0, y = i >= 2 ? 50 : 0;
        wi_mk_label(area(form, x + 2, y + 2, x + 48, y + 8), rules[i].name, -1);
        toggles[i] = wi_mk_togary(area(form, x + 2, y + 8, x + 48, y + 38), planets.data(), 0);
        wi_togary_setmode(toggles[i], rules[i].mode);
        wi_mk_button(area(form, x + 2, y + 40, x + 24, y + 48), "States", 0, say_states, static_cast<int>(i));
    }
}

// ---- Colours ----

constexpr std::array<const char *, wi_colorbut_colors + 1> colours = {
    "white", "black", "red", "blue", "green", "yellow", "purple", "brown", "salmon", "orange", nullptr};
wi_obj *colour;

void say_colour(wi_obj *wo, int /*tag*/)
{
    const int index = wi_colorbut_getcolor(wo);
    gallery_say(index < 0 ? "No colour" : std::string("Colour: ") + colours[static_cast<std::size_t>(index)]);
}

void set_colour(wi_obj *list, int /*tag*/)
{
    wi_colorbut_setcolor(colour, wi_listsel_getindex(list));
    say_colour(colour, 0);
}

void forbid_colour(wi_obj * /*wo*/, int /*tag*/)
{
    wi_colorbut_colorstate(colour, colour->obj.colorbut->currentcolor, 0);
    say_colour(colour, 0);
}

void allow_colours(wi_obj * /*wo*/, int /*tag*/)
{
    constexpr std::array<int, wi_colorbut_colors> all = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    wi_colorbut_setary(colour, all.data());
    say_colour(colour, 0);
}

void lock_colour(wi_obj *wo, int /*tag*/)
{
    wi_colorbut_editable(colour, !wi_get_state(wo));
    say_colour(colour, 0);
}

void build_colours(wi_obj *form)
{
    wi_hlp_set_srchstr("help:gallery:Colours"); // it has no label
    colour = wi_mk_colorbut(area(form, 2, 4, 40, 40));
    wi_colorbut_setcolor(colour, 3);
    wi_colorbut_chng_cb(colour, say_colour, 0);
    wi_obj *list = wi_mk_listsel(area(form, 46, 4, 98, 12), "Show:", 0.3, colours.data());
    wi_listsel_putstr(list, colours[3]);
    wi_listsel_selchng_cb(list, set_colour, 0);
    wi_mk_button(area(form, 46, 16, 98, 24), "Forbid this colour", 0, forbid_colour, 0);
    wi_mk_button(area(form, 46, 26, 98, 34), "Allow all colours", 0, allow_colours, 0);
    keep(wi_mk_button(area(form, 46, 36, 98, 44), "Lock the colour", 1, lock_colour, 0));
}

// ---- Boxes ----

struct boxes {
    wi_obj *message, *question, *file, *edit;
} box;

void say_answer(wi_obj * /*wo*/, int yes)
{
    gallery_say(yes ? "The answer is yes" : "The answer is no");
}

void say_file(wi_obj *wo, int /*tag*/)
{
    gallery_say("File: " + text_of(wi_get_string(wo)));
}

void say_done(wi_obj *wo, int /*tag*/)
{
    wi_off(wo);
    gallery_say(std::to_string(text_of(wi_editbox_getstr(wo)).size()) + " characters were edited");
}

void pop_up(wi_obj * /*wo*/, int which)
{
    wi_on(std::array{box.message, box.question, box.file, box.edit}[static_cast<std::size_t>(which)]);
}

void show_help_message(wi_obj * /*wo*/, int /*tag*/)
{
    wi_hlpmsg("Messages of the help library are wrapped and shown in a window of their own.");
}

void build_boxes(wi_obj *form)
{
    box.message = wi_mk_msgbox(form, "This is a message box.");
    box.question = wi_mk_ynbox(form, "Is this a question?", say_answer, 1, say_answer, 0);
    box.file = wi_mk_filebox(form, "Choose a file", "C:\\*.iq", say_file, nullptr);
    box.edit = wi_mk_editbox(form, "Edit this text", "A text of\nseveral lines.\n", say_done, 0);
    constexpr std::array names = {"Message box", "Yes/no box", "File box", "Edit box"};
    for (int i = 0; i < 4; ++i)
        wi_mk_button(area(form, 2, 4 + 12 * i, 40, 12 + 12 * i), names[static_cast<std::size_t>(i)], 0, pop_up, i);
    wi_mk_button(area(form, 2, 52, 40, 60), "Help message", 0, show_help_message, 0);
}

// ---- Text ----

wi_obj *page;

void lock_page(wi_obj *wo, int /*tag*/)
{
    wi_editpage_editable(page, !wi_get_state(wo));
    say_state(wo, 0);
}

void say_length(wi_obj * /*wo*/, int /*tag*/)
{
    gallery_say(std::to_string(text_of(wi_editpage_getstr(page)).size()) + " characters");
}

void build_text(wi_obj *form)
{
    page = wi_mk_editpage(area(form, 2, 2, 98, 84));
    wi_editpage_putstr(page, "An edit page holds text of many lines.\n\nIt scrolls both ways.\n");
    keep(wi_mk_button(area(form, 2, 88, 40, 97), "Read-only", 1, lock_page, 0));
    wi_mk_button(area(form, 60, 88, 98, 97), "Count characters", 0, say_length, 0);
}

// ---- Layout ----

void build_layout(wi_obj *form)
{
    wi_obj *split = wi_mk_drect(area(form, 2, 2, 98, 98), 0, 0.5);
    wi_obj *halves = wi_mk_drect(split, 1, 0.3);
    wi_mk_button(halves, "30 per cent", 0, say_pressed, 30);
    wi_mk_button(wi_mk_crop(wi_mk_frame(halves), 0.1, 0.3, 0.1, 0.2), "Cropped", 0, say_pressed, 70);
    wi_obj *grid = wi_mk_rectary(split, 3, 4, 0.05, 0.1);
    for (int i = 1; i <= 12; ++i) {
        wi_hlp_set_srchstr("help:gallery:Layout:Cell"); // one topic for all
        wi_mk_button(grid, ("Cell " + std::to_string(i)).c_str(), 0, say_pressed, i);
    }
}

// ---- Services ----

void say_hardcopy(wi_obj * /*wo*/, int /*tag*/)
{
    vghardcopy hardcopy{};
    wi_hc_getenv(&hardcopy);
    gallery_say("Printer type " + std::to_string(hardcopy.type) + ", queue " + hardcopy.queue);
}

void build_services(wi_obj *form)
{
    wi_hc_menu(area(form, 2, 4, 40, 12), "Hardcopy", say_hardcopy, 0);
    wi_mk_button(area(form, 2, 16, 40, 24), "Printing Options", 0, win_cb, 0);
    wi_journal_ignore_cb(wi_mk_button(area(form, 2, 28, 40, 36), "Journal Manager", 0, wi_journal_on, 0));
}

constexpr std::array<gallery_page, 10> pages = {{{"Controls", build_controls},
                                                 {"Fields", build_fields},
                                                 {"Choices", build_choices},
                                                 {"Toggles", build_toggles},
                                                 {"Colours", build_colours},
                                                 {"Boxes", build_boxes},
                                                 {"Text", build_text},
                                                 {"Layout", build_layout},
                                                 {"Drawing", gallery_build_drawing},
                                                 {"Services", build_services}}};

} // namespace

std::span<const gallery_page> gallery_pages()
{
    return pages;
}

void gallery_restart()
{
    for (const start_state &s : start) {
        if (s.wo->type == wi_type_button)
            wi_set_state(s.wo, s.on);
        else
            wi_set_string(s.wo, s.text.c_str());
    }
    gallery_clear_drawing();
}
