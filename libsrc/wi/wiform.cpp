#include "wi/wiform.h"

#include "wi/wilayout.h"
#include "wi/witype.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

char *pending_title;

void form_show(wi_obj *form, bool on)
{
    for (wi_obj *area = form->child; area; area = area->obj.null->next)
        on ? wi_onrecursive(area) : wi_offrecursive(area);
}

void form_place(wi_obj *form, const wi_rect &r)
{
    onresize(form->child, r.x, r.y, r.w, r.h);
}

wi_focus_step form_leave(wi_obj *form, wi_obj *from)
{
    const bool ours = from->type == wi_type_null && from->parent == form;
    wi_obj *next = ours ? from->obj.null->next : nullptr;
    return next ? wi_focus_into(next) : wi_focus_past(form);
}

// With a null parent in a window of its own with that title.
wi_obj *make_form(wi_obj *parent, const char *title, double xsize, double ysize)
{
    wi_obj *wo = wi_new_obj(wi_type_form);
    wo->obj.form = wi_new<wi_form>();
    wo->obj.form->xsize = xsize;
    wo->obj.form->ysize = ysize;
    wi_attach(wo, wi_with_shell(wo, parent, title));
    return wo;
}

// Every area is placed against the whole form, so an area hands its rectangle on to the next.
void area_place(wi_obj *area, const wi_rect &r)
{
    for (; area; area = area->obj.null->next) {
        const wi_null *rel = area->obj.null;
        const int x0 = static_cast<int>(r.x + r.w * rel->x0relative),
                  x1 = static_cast<int>(r.x + r.w * rel->x1relative);
        const int y0 = static_cast<int>(r.y + r.h * rel->y0relative),
                  y1 = static_cast<int>(r.y + r.h * rel->y1relative);
        onresize(area->child, x0, y0, std::abs(x1 - x0), std::abs(y1 - y0));
    }
}

} // namespace

const wi_type wi_form_row = {
    .show = form_show,
    .place = form_place,
    .focus_enter = wi_container_enter,
    .focus_leave = form_leave,
};

const wi_type wi_null_row = {
    .show = wi_one_child_show,
    .place = area_place,
    .add_child = wi_one_child_add,
    .focus_enter = wi_container_enter,
    .focus_leave = wi_container_leave,
};

void wi_set_window_name(const char *label)
{
    jfree(pending_title);
    pending_title = nullptr;
    if (!label)
        return;
    const int size = static_cast<int>(std::strlen(label)) + 10;
    pending_title = c_strncpy(c_mkstrn(size), label, size);
}

wi_obj *wi_mk_form(wi_obj *parent, double xsize, double ysize)
{
    if (!(xsize > 0 && ysize > 0))
        wi_exit("PE 1, wiform.c: Bad arg.");
    if (parent)
        return make_form(parent, nullptr, xsize, ysize);
    char *title = std::exchange(pending_title, nullptr);
    wi_obj *wo = make_form(nullptr, title ? title : " ", xsize, ysize);
    jfree(title);
    return wo;
}

wi_obj *wi_mk_own_form(const char *title)
{
    return make_form(nullptr, title, 100, 100);
}

wi_obj *wi_form_parent(wi_obj *wo, double x0, double y0, double x1, double y1)
{
    wi_check(wo, wi_type_form, "Bad parameter to wi_form_parent.",
             "Bad parameter to wi_form_parent. The object parameter must be a form object .");
    wi_form *form = wo->obj.form;
    if (!testcoordinates(x0, 0, form->xsize) || !testcoordinates(x1, 0, form->xsize) ||
        !testcoordinates(y0, 0, form->ysize) || !testcoordinates(y1, 0, form->ysize)) {
        std::array<char, 2200> msg; // a double may take 316 characters
        std::snprintf(msg.data(), msg.size(), "Bad coordinates in wi_form_parent: %lf %lf %lf %lf %lf %lf", x0, x1, y0,
                      y1, form->xsize, form->xsize);
        wi_exit(msg.data());
    }
    wi_obj *area = wi_new_obj(wi_type_null);
    auto *rel = wi_new<wi_null>();
    area->obj.null = rel;
    rel->x0relative = x0 / form->xsize;
    rel->x1relative = x1 / form->xsize;
    rel->y0relative = y0 / form->ysize;
    rel->y1relative = y1 / form->ysize;
    area->handle = wo->handle;
    area->parent = wo;
    (wo->child ? form->last->obj.null->next : wo->child) = area;
    form->last = area;
    return area;
}

int testcoordinates(double v, double lo, double hi)
{
    return lo <= v && v <= hi;
}
