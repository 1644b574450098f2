#include "wi/wiframe.h"

#include "wi/wiwindow.h"

namespace {

void show(wi_obj *frame, bool on)
{
    wi_show_window(frame->handle, on);
    wi_one_child_show(frame, on);
}

// The box reaches two edge widths above its area, so that the line of the group box lies above the content.
void place(wi_obj *frame, const wi_rect &r)
{
    const int cx = GetSystemMetrics(SM_CXEDGE), cy = GetSystemMetrics(SM_CYEDGE);
    wi_move(frame->handle, {r.x, r.y - 2 * cy, r.w, r.h + 2 * cy});
    onresize(frame->child, r.x + cx, r.y + 3 * cy, r.w - 2 * cx, r.h - 4 * cy);
}

} // namespace

const wi_type wi_frame_row = {
    .show = show,
    .place = place,
    .add_child = wi_one_child_add,
    .focus_enter = wi_container_enter,
    .focus_leave = wi_container_leave,
};

wi_obj *wi_mk_frame(wi_obj *parent)
{
    wi_obj *wo = wi_new_obj(wi_type_frame);
    parent = wi_with_shell(wo, parent);
    wo->obj.frame = wi_new<wi_frame>();
    wo->obj.frame->parent = parent;
    addchild(wo, parent);
    // The content lies beside the box, not in it: transparent, the box neither hides the content nor keeps the
    // window from erasing what is inside.
    wo->handle = wi_make_control(wo, parent, L"button", "", BS_GROUPBOX, WS_EX_TRANSPARENT, {0, 0, 50, 50}, 0);
    return wo;
}
