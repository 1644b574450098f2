#include "wi/spfields.h"

namespace {

using kind = sp_field_kind;

constexpr int graphs = sp_most_graphs;

constexpr sp_field page_fields[] = {
    {"xsize", kind::length, 1, offsetof(sp_config, xsize), "XWINDOW_SIZE"},
    {"ysize", kind::length, 1, offsetof(sp_config, ysize), "YWINDOW_SIZE"},
    {"xorg", kind::length, graphs, offsetof(sp_config, xorg), "XORIGIN", "XORIGIN"},
    {"yorg", kind::length, graphs, offsetof(sp_config, yorg), "YORIGIN", "YORIGIN"},
    {"xlen", kind::length, graphs, offsetof(sp_config, xlen), "XAXIS_LENGTH", "XLENGTH"},
    {"ylen", kind::length, graphs, offsetof(sp_config, ylen), "YAXIS_LENGTH", "YLENGTH"},
    {"xg0", kind::real, graphs, offsetof(sp_config, xg0)},
    {"xg1", kind::real, graphs, offsetof(sp_config, xg1)},
    {"yg0", kind::real, graphs, offsetof(sp_config, yg0)},
    {"yg1", kind::real, graphs, offsetof(sp_config, yg1)},
    {"nxaxes", kind::integer, 1, offsetof(sp_config, nxaxes)},
    {"nyaxes", kind::integer, 1, offsetof(sp_config, nyaxes)},
    {"ncurves", kind::integer, 1, offsetof(sp_config, ncurves)},
    {"ngraphs", kind::integer, 1, offsetof(sp_config, ngraphs)},
};

constexpr sp_field axis_fields[] = {
    {"f0", kind::real, 1, offsetof(sp_pltaxis, f0), "LIMIT0"},
    {"f1", kind::real, 1, offsetof(sp_pltaxis, f1), "LIMIT1"},
    {"label", kind::text, 199, offsetof(sp_pltaxis, label), "LABEL"},
    {"icolor", kind::color, 1, offsetof(sp_pltaxis, icolor), "COLOR"},
    {"ithick", kind::thick, 1, offsetof(sp_pltaxis, ithick), "LINETHICKNESS"},
    {"igraph", kind::index, 1, offsetof(sp_pltaxis, igraph), "GRAPH"},
    {"islave", kind::index, 1, offsetof(sp_pltaxis, islave), "SLAVE"},
    {"vis_bot", kind::yesno, 1, offsetof(sp_pltaxis, vis_bot), "BOTTOM_VISIBLE", "LEFT_VISIBLE"},
    {"vis_top", kind::yesno, 1, offsetof(sp_pltaxis, vis_top), "TOP_VISIBLE", "RIGHT_VISIBLE"},
    {"tic_top", kind::yesno, 1, offsetof(sp_pltaxis, tic_top), "TOP_TICS", "RIGHT_TICS"},
    {"tic_bot", kind::yesno, 1, offsetof(sp_pltaxis, tic_bot), "BOTTOM_TICS", "LEFT_TICS"},
    {"limlabs", kind::yesno, 1, offsetof(sp_pltaxis, limlabs), "LIMIT_LABELS", "RIGHT_LIMIT_LABELS"},
    {"lab_top", kind::yesno, 1, offsetof(sp_pltaxis, lab_top), "TOP_TIC_LABELS", "RIGHT_TIC_LABELS"},
    {"lab_bot", kind::yesno, 1, offsetof(sp_pltaxis, lab_bot), "BOTTOM_TIC_LABELS", "LEFT_TIC_LABELS"},
};

constexpr sp_field curve_fields[] = {
    {"type", kind::curvetype, 1, offsetof(sp_curve, type), "TYPE"},
    {"xval", kind::value, 1, offsetof(sp_curve, xval), "XDATA"},
    {"yval", kind::value, 1, offsetof(sp_curve, yval), "YDATA"},
    {"zval", kind::value, 1, offsetof(sp_curve, zval), "ZDATA"},
    {"vval", kind::value, 1, offsetof(sp_curve, vval), "VALIDDATA"},
    {"iyaxis", kind::index, 1, offsetof(sp_curve, iyaxis), "YAXIS"},
    {"ixaxis", kind::index, 1, offsetof(sp_curve, ixaxis), "XAXIS"},
    {"icolor", kind::color, 1, offsetof(sp_curve, icolor), "COLOR"},
    {"ithick", kind::thick, 1, offsetof(sp_curve, ithick), "LINETHICKNESS"},
    {"linetype", kind::linetype, 1, offsetof(sp_curve, linetype), "LINETYPE"},
    {"dscat", kind::real, 1, offsetof(sp_curve, dscat)},
    {"spl_intgr", kind::integer, 1, offsetof(sp_curve, spl_intgr), "SPLINTGR"},
    {"spl_type", kind::text, 38, offsetof(sp_curve, spl_type), "SPLTYPE"},
    {"spl_xunits", kind::text, 38, offsetof(sp_curve, spl_xunits), "SPLXUNITS"},
    {"spl_yunits", kind::text, 38, offsetof(sp_curve, spl_yunits), "SPLYUNITS"},
    {"spl_xfact", kind::real, 1, offsetof(sp_curve, spl_xfact), "SPLXFACT"},
    {"spl_yfact", kind::real, 1, offsetof(sp_curve, spl_yfact), "SPLYFACT"},
    {"usr_config", kind::hook, 1, offsetof(sp_curve, usr_config)},
    {"usr_draw", kind::hook, 1, offsetof(sp_curve, usr_draw)},
};

constexpr sp_field label_fields[] = {
    {"val", kind::label, 1, offsetof(sp_label, val), "STRING"},
    {"icolor", kind::color, 1, offsetof(sp_label, icolor), "COLOR"},
    {"ithick", kind::thick, 1, offsetof(sp_label, ithick), "LINETHICKNESS"},
    {"xpos", kind::length, 1, offsetof(sp_label, xpos), "XPOS"},
    {"ypos", kind::length, 1, offsetof(sp_label, ypos), "YPOS"},
    {"rot", kind::length, 1, offsetof(sp_label, rot), "ROTATION"},
    {"height", kind::length, 1, offsetof(sp_label, height), "HEIGHT"},
};

} // namespace

std::span<const sp_field> sp_page_fields()
{
    return page_fields;
}

std::span<const sp_field> sp_axis_fields()
{
    return axis_fields;
}

std::span<const sp_field> sp_curve_fields()
{
    return curve_fields;
}

std::span<const sp_field> sp_label_fields()
{
    return label_fields;
}
