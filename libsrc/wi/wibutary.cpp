#include "wi/wibutary.h"

#include "wi/wibutton.h"
#include "wi/wicrop.h"
#include "wi/wihlp.h"
#include "wi/wirectary.h"
#include "wi/witype.h"

#include <algorithm>
#include <climits>
#include <span>

namespace {

void show(wi_obj *wo, bool on)
{
    wi_obj *grid = wo->obj.butary->rectanglearray;
    on ? wi_onrecursive(grid) : wi_offrecursive(grid);
}

wi_focus_step leave(wi_obj *wo, wi_obj *from)
{
    return {wi_focus_step::past, wo->obj.butary->rectanglearray, from};
}

// The next free cell, which is used from now on.
wi_butelm &next_cell(wi_butary *array)
{
    if (array->numbuttons == array->maxbuttons)
        wi_exit("PE 7, wibutary.c: button array full.");
    return array->ary[array->numbuttons++];
}

bool is_named(const wi_butelm &cell, const char *name)
{
    return cell.button && c_iseq(cell.label, name);
}

std::span<const wi_butelm> used_cells(const wi_obj *wo)
{
    return {wo->obj.butary->ary, static_cast<std::size_t>(wo->obj.butary->numbuttons)};
}

} // namespace

const wi_type wi_butary_row = {
    .show = show,
    .focus_leave = leave,
};

wi_obj *wi_mk_butary(wi_obj *parent, int nrows, int ncols)
{
    constexpr double crop = 1e-6;
    constexpr int size = sizeof(wi_butelm);
    wi_obj *wo = wi_new_obj(wi_type_butary);
    auto *array = wi_new<wi_butary>();
    wo->obj.butary = array;
    parent = wi_with_shell(wo, parent);
    wo->handle = getparenthandle(parent);
    array->nrows = nrows;
    array->ncols = ncols;
    array->rectanglearray = wi_mk_rectary(parent, nrows, ncols, crop, crop);
    array->maxbuttons = std::min(array->rectanglearray->obj.rectary->maxchildren, INT_MAX / size);
    array->ary = static_cast<wi_butelm *>(jmalloc(array->maxbuttons * size));
    return wo;
}

void wi_butary_button(wi_obj *wo, const char *name, int type, wi_callback cbfunc, int tag)
{
    wi_check(wo, wi_type_butary, "PE 9, wibutary.c: bad arg.", "PE 6, wibutary.c: bad arg.");
    wi_butary *array = wo->obj.butary;
    wi_butelm &cell = next_cell(array);
    cell.label = c_mkstr(name ? name : "");
    cell.type = type == 1;
    cell.button = wi_mk_button(array->rectanglearray, cell.label, cell.type, cbfunc, tag);
    cell.button->obj.button->callbacktarget = wo;
    wi_hlp_setstr(wo, cell.label);
}

void wi_butary_blank(wi_obj *wo)
{
    wi_check(wo, wi_type_butary, "PE 9, wibutary.c: bad arg.", "PE 10, wibutary.c: bad arg.");
    next_cell(wo->obj.butary);
    wi_mk_crop(wo->obj.butary->rectanglearray, 0, 0, 0, 0); // an empty container keeps the place
}

void wi_butary_setstate(wi_obj *wo, const char *name, int state)
{
    wi_check(wo, wi_type_butary, "PE 9, wibutary.c: bad arg.", "PE 9, wibutary.c: bad arg.");
    bool found = false;
    for (const wi_butelm &cell : used_cells(wo)) {
        if (!is_named(cell, name))
            continue;
        wi_button_setstate(cell.button, state);
        found = true;
    }
    if (!found)
        wi_exit("Invalid parameter to wi_butary_setstate: Bad button name.");
}

int wi_butary_getstate(wi_obj *wo, const char *name)
{
    wi_check(wo, wi_type_butary, "PE 12, wibutary.c: bad arg.", "PE 12, wibutary.c: bad arg.");
    const auto cells = used_cells(wo);
    const auto cell = std::find_if(cells.begin(), cells.end(), [=](const auto &c) { return is_named(c, name); });
    if (cell == cells.end())
        wi_exit("PE 14, wibutary.c: Unknown button name.");
    return wi_button_getstate(cell->button);
}
