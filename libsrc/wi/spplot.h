// The plot of a configuration.
//
// A slave axis has the limits of its master. A curve lies where its X axis and its Y axis are; one without both axes in
// use, or of an axis whose limits are equal or not finite, is not drawn, nor is an axis of a graph that is not in use.
// Limits and title stand on the side of an axis that has labels at its tics, else on that which has tics, the bottom or
// left one first. Further axes with texts on one side of a graph are moved outward.
//
//   line         lines between the points; a point without neighbours is a dot
//   xscat yscat  a line of the scatter length, centred on each point, parallel to the X axis or the Y axis
//   breakpoints  a line over the whole height of the graph at each X
//   spot         a dot at each point
//
// A point with flag 0 is left out, and so is one that is not finite. A number counts as an array of one element.
#pragma once

#include <string>

#include "vgph/vgdevice.h"
#include "wi/spcontext.h"

// Size of the page in inches: as configured, at most vg_largest_page; 8 and 6 in place of what is no size.
double sp_page_width(const sp_context *context);
double sp_page_height(const sp_context *context);

// Draws the page and fills the configuration's data limits of each graph, those of its first X axis and Y axis. After a
// curve is drawn, its hook usr_draw is called.
void sp_draw_plot(sp_context *context, vg_device &device);

// The same as a text of SVG.
std::string sp_plot_svg(sp_context *context);
