#include "wi/wifocus.h"

#include "wi/witype.h"

namespace {

wi_focus_step enter(wi_obj *wo)
{
    if (!wo)
        wi_exit("Bad parameter to wi_activate_first");
    const auto focus_enter = wi_row(wo).focus_enter;
    if (!focus_enter)
        wi_exit("Bad parameter to wi_activate_first: bad window type ");
    return focus_enter(wo);
}

wi_focus_step leave(wi_obj *container, wi_obj *from)
{
    if (!container || !from)
        wi_exit("Bad parameter to wi_activate_findnext");
    const auto focus_leave = wi_row(container).focus_leave;
    if (!focus_leave)
        wi_exit("Could not activate this window type in wi_activate_findnext");
    return focus_leave(container, from);
}

// A loop, not a recursion: a form may hold thousands of labels in a row. The walk wraps round at the window; the
// second time round shows that nothing takes the focus.
void walk(wi_focus_step step)
{
    int rounds = 0;
    while (step.what != wi_focus_step::taken) {
        if (step.what == wi_focus_step::into) {
            step = enter(step.wo);
            continue;
        }
        if (step.container && step.container->type == wi_type_dovapp && ++rounds == 2)
            return;
        step = leave(step.container, step.wo);
    }
}

} // namespace

void wi_activate_first(wi_obj *wo)
{
    walk(wi_focus_into(wo));
}

void wi_activate_findnext(wi_obj *container, wi_obj *from)
{
    walk({wi_focus_step::past, container, from});
}

void wi_activate_next(wi_obj *wo)
{
    if (!wo)
        wi_exit("bad wi object passed to wi_activate_next");
    walk(wi_focus_past(wo));
}
