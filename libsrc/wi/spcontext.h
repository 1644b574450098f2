// The context of one user of the language, a plot window or a tool: its variables, its error text, its plot.
#pragma once

#include <cstdint>

#include "wi/spconfig.h"

struct sp_vlib;
struct vg_display; // of vector graphics, as vg_object
struct vg_object;
struct wi_obj;

// The objects of a plot that are drawn.
struct sp_vobjs {
    std::int32_t nobjs;
    std::int32_t mxobjs;
    vg_object **objs;
};

struct sp_limits {
    double x0, x1, y0, y1;
};

constexpr int sp_most_zooms = 40;

struct sp_zoom {
    sp_limits frame; // of the data
    std::int32_t active;
    sp_limits lims[sp_most_zooms]; // a stack
    vg_object *xline, *yline;      // the crosshair
    std::int32_t mxstack;          // room of the stack
    std::int32_t stackptr;         // its top, -1 when it is empty
};

struct sp_context {
    char name[80];
    char typename_[80]; // class or style name, set by the style manager
    sp_vlib *vlib;      // variable library, made on first use
    void *ww;           // the owning application's data
    sp_config config;
    std::int32_t gotplot; // nonzero once there is a display
    vg_display *vdisp;
    sp_vobjs xaxes, yaxes, curves, labels, vects;
    sp_zoom zz;
    std::int32_t mxerrstr;                   // room of errstr
    char *errstr;                            // collected error text, owned
    void *wspl;                              // data of the spline tool
    void *spsm;                              // data of the style manager
    wi_obj *wo_main;                         // the owning object of the toolkit
    void (*usr_render)(sp_context *context); // hooks of the application, or null
    void (*usr_del_vobjs)(sp_context *context);
    void (*usr_hc)(sp_context *context);
    void (*usr_draw)(sp_context *context);
    void (*usr_rescale)(sp_context *context);
};

// New context without variables, hooks and error text; the name is cut to 79 characters, null counts as empty. The
// caller frees it with sp_free_context().
sp_context *sp_init_context(wi_obj *woptr, const char *name, void *ww);

// Frees the context with its variables and its error text; what hooks have attached is theirs. Null is ignored.
void sp_free_context(sp_context *context);

// What attaches a style manager's data to a new context; null when there is none.
extern void (*spsm_init)(sp_context *context);

// Appends a line to the error text.
void sp_err_add(sp_context *context, const char *err);

// The text, a single blank when there is none. Belongs to the context, until the next line is added.
const char *sp_err_get(const sp_context *context);

void sp_err_flush(sp_context *context);
