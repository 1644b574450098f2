// Curves in a graph: lines, marks and spots of many points. Nothing leaves the graph's rectangle.
//
// What lies within one dot of the device is drawn once: of the points of a line that follow each other in one column of
// dots, the first, the lowest, the highest and the last; of marks and spots, one for each dot. The picture is the same.
#pragma once

#include "vgph/vgdevice.h"

struct vg_rect {
    double x0, y0, x1, y1; // x0 < x1, y0 < y1
};

// Values v0 and v1 of an axis are at positions p0 and p1.
class vg_scale {
public:
    vg_scale(double v0, double v1, double p0, double p1);

    // Whether values have positions: v0 and v1 are finite and differ.
    bool is_usable() const { return usable; }

    // Not-a-number for a value that is not finite; positions far outside are brought nearer.
    double operator()(double value) const;

    // Length of a span of values, never negative.
    double length(double span) const;

private:
    double from, start, factor;
    bool usable;
};

struct vg_graph {
    vg_rect rect;
    vg_scale x, y; // usable
};

// Points as two arrays of equal length, and a flag for each: 0 leaves the point out, as does a coordinate that is not
// finite. No flags at all leave none out; points beyond the flags count as valid.
struct vg_points {
    std::span<const double> x, y;
    std::span<const double> valid;
};

// A line through the points, with a gap where one is left out; a point that has no neighbour is a spot.
void vg_draw_line(vg_device &device, const vg_graph &graph, const vg_points &points);

// Lines centred on the points, of a length in values of the axis they are parallel to; dots when that is 0.
void vg_draw_xmarks(vg_device &device, const vg_graph &graph, const vg_points &points, double length);
void vg_draw_ymarks(vg_device &device, const vg_graph &graph, const vg_points &points, double length);

// Dots as wide as the pen.
void vg_draw_spots(vg_device &device, const vg_graph &graph, const vg_points &points);

// Lines over the whole height of the graph at each x; y is not looked at.
void vg_draw_verticals(vg_device &device, const vg_graph &graph, const vg_points &points);
