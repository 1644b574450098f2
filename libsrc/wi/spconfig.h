// Plot configuration: page, graphs, axes, curves and labels of a plot window, set by variables with fixed names that a
// style script assigns. docs/plot.md lists them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "wi/sputil.h"

struct sp_context;

constexpr int sp_most_graphs = 10;
constexpr int sp_most_axes = 20; // of each direction
constexpr int sp_most_curves = 40;
constexpr int sp_most_labels = 60;

struct sp_pltaxis {
    double f0, f1; // lower and upper limit
    char label[200];
    std::int32_t icolor;           // colour code
    std::int32_t ithick;           // thickness code
    std::int32_t igraph;           // index of the graph
    std::int32_t islave;           // index of the master axis, or -1
    std::int32_t vis_bot, vis_top; // axis line on the bottom or left, and on the top or right side
    std::int32_t tic_top, tic_bot; // tics on each side
    std::int32_t limlabs;          // labels at the limits
    std::int32_t lab_top, lab_bot; // labels at the tics of each side
};

enum sp_curve_type : std::int32_t {
    sp_line_curve = 0,
    sp_xscat = 1, // a mark at each point, along the X axis
    sp_yscat = 2,
    sp_breakpoints = 3,
    sp_spot = 4,
};

struct sp_curve {
    std::int32_t type;                     // an sp_curve_type
    sp_value *xval, *yval, *zval, *vval;   // X, Y and Z data, flags of valid points; owned
    std::int32_t iyaxis, ixaxis;           // axis indices
    std::int32_t icolor, ithick, linetype; // codes
    double dscat;                          // length of scatter marks
    std::int32_t spl_intgr;
    char spl_type[40], spl_xunits[40], spl_yunits[40];
    double spl_xfact, spl_yfact;
    void (*usr_config)(sp_context *context, int curve); // hooks of the application, or null
    void (*usr_draw)(sp_context *context, int curve);
};

struct sp_label {
    sp_value *val; // the text, which belongs to a variable
    std::int32_t icolor, ithick;
    float xpos, ypos, rot, height;
};

// Lengths are in inches. Of each table, the first entries are in use, as the counts say.
struct sp_config {
    float xsize, ysize;                               // page
    float xorg[sp_most_graphs], yorg[sp_most_graphs]; // origin and size of each graph
    float xlen[sp_most_graphs], ylen[sp_most_graphs];
    double xg0[sp_most_graphs], xg1[sp_most_graphs]; // data limits of each graph, filled when drawing
    double yg0[sp_most_graphs], yg1[sp_most_graphs];
    std::int32_t nxaxes, nyaxes, ncurves, ngraphs;
    sp_pltaxis xaxes[sp_most_axes], yaxes[sp_most_axes];
    sp_curve curves[sp_most_curves];
    sp_label labels[sp_most_labels];
};

// Fills the configuration with defaults: one graph of 6 by 4 inches with one axis of each direction and one curve.
// The hooks of the curves stay; their data are freed.
void sp_config_default(sp_context *context);

// Frees the data of the curves.
void sp_config_free(sp_context *context);

// The preset for amplitude and phase: a small graph above a larger one, an axis of each direction and a curve for each;
// the lower X axis is a slave of the upper one.
void sp_c_ap(sp_context *context);

// Builds the configuration anew. All variables that are not the program's and the error text are removed, the current
// style script is run, and the variables are read over the defaults or the preset that GRAPH_TYPE names. A variable is
// named after its record, a number from 1, and the field's word: XAXIS_2_COLOR.
//
// What is wrong adds a line to the error text and stops nothing. Counts are kept between 0 and what there is room for.
// An axis reaches over the finite data of its curves, but a given limit wins for its end; without data it is 0 to 1,
// and ends that are not given are moved apart to round values when both would be the same.
void sp_configure(sp_context *context);

// Runs the current style script of the context's style manager; null when there is none.
extern void (*spsm_process)(sp_context *context);

// Runs a style script, line by line, see sp_script_line(). Of a line, the first 180 characters count; a carriage return
// at its end does not. Returns 0 when the file cannot be read.
int s_process(sp_context *context, const char *file);

// The same for a script in memory.
void s_process_text(sp_context *context, std::string_view script);

// A line of a script that begins with "#". There are no commands: nothing changes. Returns the number of its words, 0
// for a line of 199 characters or more.
int s_docommand(sp_context *context, const char *line);

// An index as it stands in the name of a variable.
std::string s_dv(int n);
