#include "wi/witogary.h"

#include "wi/wibutary.h"
#include "wi/wibutton.h"
#include "wi/witype.h"

#include <algorithm>
#include <span>

namespace {

void show(wi_obj *wo, bool on)
{
    wi_obj *inner = wo->obj.togary->butary;
    on ? wi_onrecursive(inner) : wi_offrecursive(inner);
}

wi_focus_step leave(wi_obj *wo, wi_obj *from)
{
    return {wi_focus_step::past, wo->obj.togary->butary, from};
}

bool is_on(const wi_togary *array, int index)
{
    return wi_butary_getstate(array->butary, array->ary[index].name) != 0;
}

// Nothing at an index that has no toggle.
void turn(const wi_togary *array, int index, bool on)
{
    if (index >= 0 && index < array->nslots && is_on(array, index) != on)
        wi_butary_setstate(array->butary, array->ary[index].name, on);
}

void turn_all_off(const wi_togary *array)
{
    for (int i = 0; i < array->nslots; ++i)
        turn(array, i, false);
}

// The first toggle from `index` on that is on, or -1.
int first_on(const wi_togary *array, int index = 0)
{
    while (index < array->nslots && !is_on(array, index))
        ++index;
    return index < array->nslots ? index : -1;
}

bool allows_one(const wi_togary *array)
{
    return array->mode == wi_togary_exactly_one || array->mode == wi_togary_at_most_one;
}

// The modes that allow one toggle: the first element equal to 1.
void set_one(const wi_togary *array, std::span<const int> states)
{
    const auto first = std::find(states.begin(), states.end(), 1);
    if (first != states.end() || array->mode == wi_togary_at_most_one) {
        turn_all_off(array);
        turn(array, static_cast<int>(first - states.begin()), true);
        return;
    }
    turn(array, 0, true);
    if (first_on(array, 1) > 0)
        turn(array, 0, false); // the one just switched on gives way, not the others
}

// The frame has flipped the check mark.
void togarycallback(wi_obj *wo, int index)
{
    const wi_togary *array = wo->obj.togary;
    wi_obj *button = array->butary->obj.butary->ary[index].button;
    const int state = wi_button_getstate(button);
    if (array->editable)
        wi_togary_setstate(wo, index, state);
    else
        wi_button_setstate(button, !state);
}

} // namespace

const wi_type wi_togary_row = {
    .show = show,
    .focus_leave = leave,
    .set_split = wi_togary_split,
    .set_editable = wi_togary_editable,
};

wi_obj *wi_mk_togary(wi_obj *parent, const char *const *list, double)
{
    const int count = c_listlen(list);
    if (count == 0)
        wi_exit("PE 3, witogary.c: bad arguments.");
    wi_obj *wo = wi_new_obj(wi_type_togary);
    auto *array = wi_new<wi_togary>();
    wo->obj.togary = array;
    array->editable = 1;
    array->nslots = count;
    array->ary = static_cast<wi_togslot *>(jmalloc(count * static_cast<int>(sizeof(wi_togslot))));
    parent = wi_with_shell(wo, parent);
    wo->handle = getparenthandle(parent);
    array->butary = wi_mk_butary(parent, count, 1);
    array->butary->obj.butary->callbacktarget = wo;
    for (int i = 0; i < count; ++i) {
        array->ary[i].name = c_mkstr(list[i]);
        wi_butary_button(array->butary, list[i], 1, togarycallback, i);
    }
    wi_togary_setmode(wo, wi_togary_exactly_one);
    return wo;
}

int wi_togary_getstate(wi_obj *wo, int indx)
{
    wi_check(wo, wi_type_togary, "PE 19, witogary.c: bad arg.", "PE 20, witogary.c: bad arg.");
    if (indx < 0 || indx >= wo->obj.togary->nslots)
        wi_exit("Bad index passed to wi_togary_getstate.");
    return is_on(wo->obj.togary, indx);
}

int wi_togary_getindex(wi_obj *wo)
{
    wi_check(wo, wi_type_togary, "PE 17, witogary.c: bad arg.", "PE 18, witogary.c: bad arg.");
    return first_on(wo->obj.togary);
}

void wi_togary_setstate(wi_obj *wo, int index, int state)
{
    wi_check(wo, wi_type_togary, "PE 21, witogary.c: bad arg.", "PE 22, witogary.c: bad arg.");
    const wi_togary *array = wo->obj.togary;
    if (index < 0 || index > array->nslots)
        wi_exit("Bad index passed to wi_togary_setstate.");
    if (state == 1) {
        if (allows_one(array))
            turn_all_off(array);
        turn(array, index, true);
    } else if (state == 0) {
        turn(array, index, false);
        const bool none_left = array->mode == wi_togary_at_least_one && first_on(array) < 0;
        if (array->mode == wi_togary_exactly_one || none_left)
            turn(array, 0, true);
    }
}

void wi_togary_getary(wi_obj *wo, int *ary)
{
    wi_check(wo, ary, wi_type_togary, "PE 23, witogary.c: bad arg.", "PE 24, witogary.c: bad arg.");
    for (int i = 0; i < wo->obj.togary->nslots; ++i)
        ary[i] = is_on(wo->obj.togary, i);
}

void wi_togary_setary(wi_obj *wo, const int *ary)
{
    wi_check(wo, ary, wi_type_togary, "PE 25, witogary.c: bad arg.", "PE 26, witogary.c: bad arg.");
    const wi_togary *array = wo->obj.togary;
    if (allows_one(array)) {
        set_one(array, {ary, static_cast<std::size_t>(array->nslots)});
        return;
    }
    for (int i = 0; i < array->nslots; ++i)
        turn(array, i, ary[i] != 0);
    if (array->mode == wi_togary_at_least_one && first_on(array) < 0)
        turn(array, 0, true);
}

void wi_togary_setmode(wi_obj *wo, int newmode)
{
    constexpr const char *message = "Bad argument to wi_togary_setmode.";
    wi_check(wo, wi_type_togary, message, message);
    if (newmode < wi_togary_exactly_one || newmode > wi_togary_any)
        wi_exit("Bad mode passed to wi_togary_setmode.");
    wo->obj.togary->mode = newmode;
    const jmalloc_ptr<int> states(c_mkiary(wo->obj.togary->nslots));
    wi_togary_getary(wo, states.get());
    wi_togary_setary(wo, states.get());
}

void wi_togary_editable(wi_obj *wo, int editable)
{
    wi_check(wo, wi_type_togary, "PE 29, witogary.c: bad arg.", "PE 30, witogary.c: bad arg.");
    wo->obj.togary->editable = editable;
}

void wi_togary_chng_cb(wi_obj *wo, wi_callback cb, int tag)
{
    wi_check(wo, wi_type_togary, "PE 31, witogary.c: bad arg.", "PE 32, witogary.c: bad arg.");
    wo->obj.togary->chgcb = cb;
    wo->obj.togary->tag = tag;
}

void wi_togary_split(wi_obj *, double) {}
