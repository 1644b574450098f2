#include "wi/wirectary.h"

#include "wi/wilayout.h"
#include "wi/witype.h"

#include <algorithm>
#include <climits>
#include <span>

namespace {

std::span<wi_obj *> cells(const wi_obj *wo)
{
    const wi_rectary *array = wo->obj.rectary;
    return {array->children, static_cast<std::size_t>(array->maxchildren)};
}

void show(wi_obj *wo, bool on)
{
    for (wi_obj *child : cells(wo))
        on ? wi_onrecursive(child) : wi_offrecursive(child);
}

void place(wi_obj *wo, const wi_rect &r)
{
    const wi_rectary *array = wo->obj.rectary;
    if (array->maxchildren == 0)
        return;
    const int cw = r.w / array->ncols, ch = r.h / array->nrows;
    const int xo = wi_fraction(cw, array->xcrop), yo = wi_fraction(ch, array->ycrop);
    for (int i = 0; i < array->numchildren; ++i)
        onresize(array->children[i], r.x + i % array->ncols * cw + xo, r.y + i / array->ncols * ch + yo, cw - 2 * xo,
                 ch - 2 * yo);
}

void add_child(wi_obj *parent, wi_obj *child)
{
    wi_rectary *array = parent->obj.rectary;
    if (array->numchildren == array->maxchildren)
        wi_exit("You attempted to add a child to a rectangle array, but it already is filled.");
    array->children[array->numchildren++] = child;
}

wi_focus_step enter(wi_obj *wo)
{
    const wi_rectary *array = wo->obj.rectary;
    return array->numchildren > 0 ? wi_focus_into(array->children[0]) : wi_focus_past(wo);
}

wi_focus_step leave(wi_obj *wo, wi_obj *from)
{
    const auto filled = cells(wo).first(static_cast<std::size_t>(wo->obj.rectary->numchildren));
    const auto at = std::find(filled.begin(), filled.end(), from);
    const bool has_next = filled.end() - at > 1;
    return has_next ? wi_focus_into(at[1]) : wi_focus_past(wo);
}

} // namespace

const wi_type wi_rectary_row = {
    .show = show,
    .place = place,
    .add_child = add_child,
    .focus_enter = enter,
    .focus_leave = leave,
};

wi_obj *wi_mk_rectary(wi_obj *parent, int nrows, int ncols, double xcrop, double ycrop)
{
    if (!(xcrop >= 0 && xcrop < 1 && ycrop >= 0 && ycrop < 1))
        wi_exit("Bad argument to wi_mk_rectary.  Crop value is invalid.");
    const long long most = INT_MAX / static_cast<int>(sizeof(wi_obj *));
    const long long wanted = nrows > 0 && ncols > 0 ? static_cast<long long>(nrows) * ncols : 0;
    const int count = wanted <= most ? static_cast<int>(wanted) : 0;

    wi_obj *wo = wi_new_obj(wi_type_rectary);
    auto *array = wi_new<wi_rectary>();
    wo->obj.rectary = array;
    array->children = static_cast<wi_obj **>(jmalloc(count * static_cast<int>(sizeof(wi_obj *))));
    array->maxchildren = count;
    array->nrows = nrows;
    array->ncols = ncols;
    array->xcrop = xcrop;
    array->ycrop = ycrop;
    wi_attach(wo, wi_with_shell(wo, parent));
    return wo;
}
