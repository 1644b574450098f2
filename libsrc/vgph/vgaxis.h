// The drawing of an axis: its line, tics, labels at tics and limits, title.
//
// Tics point into the graph, labels and title lie outside, in this order: labels at the tics; then, at the ends, the
// limits and between them the title. Tics without a label divide the steps as far as there is room for them.
#pragma once

#include "vgph/vgdevice.h"
#include "vgph/vgtics.h"

struct vg_axis_side {
    bool line, tics, labels, limits;
    std::string_view title;
    int color;
    double width; // of strokes, inches
    double room;  // inches from the axis to where the drawing should end
};

// The tics of an axis of which lim0, lim1, alen, dolabs and r90 are set: as many as have room, with labels of dolabs.
void vg_cal_axis(_vgaxisparm &a);

// Draws one side of an axis after vg_cal_axis(). It begins at x0, y0, goes right or, with r90, up for alen inches; with
// `reverse` it is the top or right side. Returns how far the drawing reaches outward, inches.
double vg_draw_axis(vg_device &device, const _vgaxisparm &a, const vg_axis_side &side);
