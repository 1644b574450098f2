#include "wi/wifield.h"

#include "wi/wilayout.h"

void wi_make_field(wi_obj *wo, const wi_obj *parent, const char *label, wi_window &labelarea, wi_window &editarea)
{
    // One line beside one line of text: centred in height, with "&" as it is.
    labelarea = wi_make_control(wo, parent, L"static", label, SS_CENTERIMAGE | SS_NOPREFIX, 0, {5, 5, 5, 5}, 5);
    editarea = wi_make_control(wo, parent, L"edit", "", WS_BORDER | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, {0, 0, 0, 0}, 1);
}

void wi_place_field(wi_window labelarea, wi_window editarea, double split, const wi_rect &r)
{
    const int w = wi_fraction(r.w, split);
    wi_move(labelarea, {r.x, r.y, w, r.h});
    wi_move(editarea, {r.x + w, r.y, r.w - w, r.h});
}

void wi_show_field(wi_window labelarea, wi_window editarea, bool on)
{
    wi_show_window(editarea, on);
    wi_show_window(labelarea, on);
}

wi_focus_step wi_focus_window(wi_window window)
{
    SetFocus(window);
    return {wi_focus_step::taken, nullptr, nullptr};
}
