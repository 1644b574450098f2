#include "wi/widrect.h"

#include "wi/wilayout.h"
#include "wi/witype.h"

namespace {

void show(wi_obj *wo, bool on)
{
    for (wi_obj *child : {wo->obj.drect->child2, wo->child})
        on ? wi_onrecursive(child) : wi_offrecursive(child);
}

void place(wi_obj *wo, const wi_rect &r)
{
    const wi_drect *drect = wo->obj.drect;
    if (drect->direction == 1) {
        const int w = wi_fraction(r.w, drect->sizefrac);
        onresize(drect->child2, r.x + w, r.y, r.w - w, r.h);
        onresize(wo->child, r.x, r.y, w, r.h);
    } else {
        const int h = wi_fraction(r.h, drect->sizefrac);
        onresize(drect->child2, r.x, r.y + h, r.w, r.h - h);
        onresize(wo->child, r.x, r.y, r.w, h);
    }
}

void add_child(wi_obj *parent, wi_obj *child)
{
    wi_drect *drect = parent->obj.drect;
    if (drect->nchild == 2)
        wi_exit("You attempted to add a child to a double rectangle, but it already has 2 children.  "
                "The object only support 2 children.");
    (drect->nchild == 1 ? drect->child2 : parent->child) = child;
    ++drect->nchild;
}

wi_focus_step leave(wi_obj *wo, wi_obj *from)
{
    wi_obj *second = wo->obj.drect->child2;
    return from == wo->child && second ? wi_focus_into(second) : wi_focus_past(wo);
}

} // namespace

const wi_type wi_drect_row = {
    .show = show,
    .place = place,
    .add_child = add_child,
    .focus_enter = wi_container_enter,
    .focus_leave = leave,
    .set_split = wi_drect_split,
};

wi_obj *wi_mk_drect(wi_obj *parent, int dir, double split)
{
    if (!(split > 0 && split < 1))
        wi_exit("PE 1, widrect.c: bad arg.");
    if (dir != 0 && dir != 1)
        wi_exit("PE 2, widrect.c bad arg.");
    wi_obj *wo = wi_new_obj(wi_type_drect);
    wo->obj.drect = wi_new<wi_drect>();
    wo->obj.drect->direction = dir;
    wo->obj.drect->sizefrac = static_cast<float>(split);
    wi_attach(wo, wi_with_shell(wo, parent));
    return wo;
}

void wi_drect_split(wi_obj *wo, double split)
{
    wi_check(wo, wi_type_drect, "PE 9, widrect.c: bad arg.", "PE 10, widrect.c: bad arg.");
    wo->obj.drect->sizefrac = static_cast<float>(split);
}
