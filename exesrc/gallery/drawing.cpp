// The page with a drawing area, in which one draws with the mouse.

#include "gallery.h"

#include <vector>
#include <windows.h>

namespace {

struct stroke {
    gallery_pen pen;
    std::vector<POINT> points;
};
wi_obj *area;
std::vector<stroke> strokes;
gallery_pen pen{1, 0};

void draw(std::span<const stroke> some)
{
    const HWND window = wi_drawarea_getwidget(area);
    const HDC hdc = GetDC(window);
    for (const stroke &s : some) {
        const HGDIOBJ pen_of_stroke = CreatePen(PS_SOLID, s.pen.width, s.pen.colour);
        const HGDIOBJ before = SelectObject(hdc, pen_of_stroke);
        Polyline(hdc, s.points.data(), static_cast<int>(s.points.size()));
        SelectObject(hdc, before);
        DeleteObject(pen_of_stroke);
    }
    ReleaseDC(window, hdc);
}

// The window has been cleared.
void draw_all(wi_obj * /*wo*/, int /*tag*/)
{
    draw(strokes);
}

// The action codes of drawing areas in a journal.
enum action : int { pressed = 1, released = 2, moved = 3 };

void record(wi_obj *wo, action what, int x, int y, const int *buttons)
{
    wi_journal_mouse(x, y, buttons);
    wi_journal_write(wo, what);
}

void add_point(int x, int y)
{
    strokes.back().points.push_back({x, y});
    if (!wi_journal_back_on()) // all is drawn when that is done
        draw(std::span(strokes).last(1));
}

void begin(wi_obj *wo, int /*tag*/, int x, int y, const int *buttons)
{
    record(wo, pressed, x, y, buttons);
    strokes.push_back({pen, {}});
    add_point(x, y);
}

void go_on(wi_obj *wo, int /*tag*/, int x, int y, const int *buttons)
{
    if (strokes.empty()) // the button was pressed elsewhere
        return;
    record(wo, moved, x, y, buttons);
    add_point(x, y);
}

void end(wi_obj *wo, int /*tag*/, int x, int y, const int *buttons)
{
    if (strokes.empty())
        return;
    record(wo, released, x, y, buttons);
    add_point(x, y);
    gallery_say("Stroke " + std::to_string(strokes.size()) + " has " + std::to_string(strokes.back().points.size()) +
                " points");
}

void clear(wi_obj * /*wo*/, int /*tag*/)
{
    gallery_clear_drawing();
    gallery_say("The drawing was cleared");
}

} // namespace

void gallery_build_drawing(wi_obj *form)
{
    area = wi_mk_drawarea(wi_form_parent(form, 2, 2, 98, 84), draw_all, 0, draw_all, 0);
    wi_drawarea_mouse_cb(area, 0, begin, 0);
    wi_drawarea_mouse_cb(area, 1, end, 0);
    wi_drawarea_mouse_cb(area, 2, go_on, 0);
    wi_journal_add_wo(area);
    wi_mk_button(wi_form_parent(form, 2, 88, 40, 97), "Clear", 0, clear, 0);
}

void gallery_clear_drawing()
{
    strokes.clear();
    InvalidateRect(wi_drawarea_getwidget(area), nullptr, TRUE);
}

void gallery_set_pen(const gallery_pen &next)
{
    pen = next;
}

gallery_pen gallery_get_pen()
{
    return pen;
}
