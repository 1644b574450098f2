#include "wi/wicrop.h"

#include "wi/wilayout.h"
#include "wi/witype.h"

#include <cmath>

namespace {

void place(wi_obj *wo, const wi_rect &r)
{
    const wi_crop *crop = wo->obj.crop;
    const int left = wi_fraction(r.w, crop->cleft), top = wi_fraction(r.h, crop->ctop);
    onresize(wo->child, r.x + left, r.y + top, r.w - wi_fraction(r.w, crop->cright) - left,
             r.h - wi_fraction(r.h, crop->cbottom) - top);
}

} // namespace

const wi_type wi_crop_row = {
    .show = wi_one_child_show,
    .place = place,
    .add_child = wi_one_child_add,
    .focus_enter = wi_container_enter,
    .focus_leave = wi_container_leave,
};

wi_obj *wi_mk_crop(wi_obj *parent, double ctop, double cbottom, double cleft, double cright)
{
    wi_obj *wo = wi_new_obj(wi_type_crop);
    auto *crop = wi_new<wi_crop>();
    wo->obj.crop = crop;
    crop->ctop = std::fabs(ctop);
    crop->cbottom = std::fabs(cbottom);
    crop->cleft = std::fabs(cleft);
    crop->cright = std::fabs(cright);
    wi_attach(wo, wi_with_shell(wo, parent));
    return wo;
}
