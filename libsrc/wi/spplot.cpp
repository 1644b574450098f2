#include "wi/spplot.h"

#include "vgph/vgph.h"
#include "wi/spconvert.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double farthest = 50; // inches, of an origin
constexpr double largest_text = 20;
constexpr double margin = 0.05; // between texts and the edge of the page
constexpr double between_axes = 0.1;

double page_size(float size, double otherwise)
{
    const auto inches = static_cast<double>(size);
    return inches > 0 && std::isfinite(inches) ? std::min(inches, vg_largest_page) : otherwise;
}

bool is_place(double x, double y)
{
    return std::fabs(x) <= farthest && std::fabs(y) <= farthest;
}

std::span<const double> elements(const sp_value *val)
{
    if (val != nullptr && val->type == sp_array && val->npts > 0)
        return {val->ary, static_cast<std::size_t>(val->npts)};
    if (val != nullptr && val->type == sp_scaler)
        return {&val->scaler, 1};
    return {};
}

class plot_drawer {
public:
    plot_drawer(sp_context *owner, vg_device &d) : context(owner), config(owner->config), device(d) {}

    void draw()
    {
        const double width = sp_page_width(context);
        const double height = sp_page_height(context);
        const vg_point corners[] = {{0, 0}, {width, 0}, {width, height}, {0, height}};
        device.fill(corners, vg_background);
        for (int i = 0; i < config.ncurves; ++i)
            draw_curve(i);
        for (int i = 0; i < config.nxaxes; ++i)
            draw_axis(config.xaxes[i], false);
        for (int i = 0; i < config.nyaxes; ++i)
            draw_axis(config.yaxes[i], true);
        for (const sp_label &label : config.labels)
            draw_label(label);
    }

private:
    const sp_pltaxis &master_of(const sp_pltaxis &axis, bool is_y) const
    {
        const int count = is_y ? config.nyaxes : config.nxaxes;
        if (axis.islave < 0 || axis.islave >= count)
            return axis;
        return (is_y ? config.yaxes : config.xaxes)[axis.islave];
    }

    // Whether an axis belongs to a graph that can be drawn.
    bool has_graph(const sp_pltaxis &axis) const
    {
        const int g = axis.igraph;
        if (g < 0 || g >= config.ngraphs)
            return false;
        const auto width = static_cast<double>(config.xlen[g]);
        const auto height = static_cast<double>(config.ylen[g]);
        return is_place(static_cast<double>(config.xorg[g]), static_cast<double>(config.yorg[g])) && width > 0 &&
               width <= vg_largest_page && height > 0 && height <= vg_largest_page;
    }

    vg_rect rect_of(int graph) const
    {
        const auto x = static_cast<double>(config.xorg[graph]);
        const auto y = static_cast<double>(config.yorg[graph]);
        return {x, y, x + static_cast<double>(config.xlen[graph]), y + static_cast<double>(config.ylen[graph])};
    }

    void draw_curve(int index)
    {
        const sp_curve &curve = config.curves[index];
        if (curve.ixaxis < 0 || curve.ixaxis >= config.nxaxes || curve.iyaxis < 0 || curve.iyaxis >= config.nyaxes)
            return;
        const sp_pltaxis &xaxis = config.xaxes[curve.ixaxis];
        const sp_pltaxis &yaxis = config.yaxes[curve.iyaxis];
        if (!has_graph(xaxis) || !has_graph(yaxis))
            return;
        const vg_rect across = rect_of(xaxis.igraph);
        const vg_rect up = rect_of(yaxis.igraph);
        const sp_pltaxis &x = master_of(xaxis, false);
        const sp_pltaxis &y = master_of(yaxis, true);
        const vg_graph graph = {
            {across.x0, up.y0, across.x1, up.y1}, {x.f0, x.f1, across.x0, across.x1}, {y.f0, y.f1, up.y0, up.y1}};
        if (graph.x.is_usable() && graph.y.is_usable())
            draw_points(curve, graph);
        if (curve.usr_draw != nullptr)
            curve.usr_draw(context, index);
    }

    void draw_points(const sp_curve &curve, const vg_graph &graph)
    {
        constexpr double least_spot = 0.03;
        const vg_points points = {elements(curve.xval), elements(curve.yval), elements(curve.vval)};
        const double width = vg_thickness(curve.ithick);
        const bool is_lines = curve.type == sp_line_curve || curve.type == sp_breakpoints;
        device.pen(
            {curve.icolor, curve.type == sp_spot ? least_spot + 2 * width : width, is_lines ? curve.linetype : 0});
        if (curve.type == sp_xscat)
            vg_draw_xmarks(device, graph, points, curve.dscat);
        else if (curve.type == sp_yscat)
            vg_draw_ymarks(device, graph, points, curve.dscat);
        else if (curve.type == sp_breakpoints)
            vg_draw_verticals(device, graph, points);
        else if (curve.type == sp_spot)
            vg_draw_spots(device, graph, points);
        else
            vg_draw_line(device, graph, points);
    }

    void draw_axis(const sp_pltaxis &axis, bool is_y)
    {
        if (!has_graph(axis))
            return;
        const sp_pltaxis &master = master_of(axis, is_y);
        const vg_rect rect = rect_of(axis.igraph);
        fill_limits(axis.igraph, is_y, master);
        _vgaxisparm parameters{};
        parameters.lim0 = master.f0;
        parameters.lim1 = master.f1;
        parameters.r90 = is_y ? 1 : 0;
        parameters.alen = static_cast<float>(is_y ? rect.y1 - rect.y0 : rect.x1 - rect.x0);
        parameters.dolabs = axis.lab_bot != 0 || axis.lab_top != 0 ? 1 : 0;
        vg_cal_axis(parameters);
        const bool texts_at_top = axis.lab_bot == 0 && (axis.lab_top != 0 || (axis.tic_bot == 0 && axis.tic_top != 0));
        for (const bool is_top : {false, true}) {
            parameters.reverse = is_top ? 1 : 0;
            draw_side(axis, parameters, is_top == texts_at_top, rect);
        }
    }

    void draw_side(const sp_pltaxis &axis, _vgaxisparm &parameters, bool has_texts, const vg_rect &rect)
    {
        const bool is_y = parameters.r90 != 0;
        const bool is_top = parameters.reverse != 0;
        vg_axis_side side{};
        side.line = (is_top ? axis.vis_top : axis.vis_bot) != 0;
        side.tics = (is_top ? axis.tic_top : axis.tic_bot) != 0;
        side.labels = (is_top ? axis.lab_top : axis.lab_bot) != 0;
        side.limits = has_texts && axis.limlabs != 0;
        side.title = has_texts ? axis.label : "";
        side.color = axis.icolor;
        side.width = vg_thickness(axis.ithick);
        double &used = depths[axis.igraph][(is_y ? 2 : 0) + (is_top ? 1 : 0)];
        const bool moves = used > 0 && (side.labels || side.limits || !side.title.empty());
        const double out = moves ? used + between_axes : 0;
        const double edge = is_y ? (is_top ? rect.x1 : rect.x0) : (is_top ? rect.y1 : rect.y0);
        const double place = edge + (is_top ? out : -out);
        const double page = is_y ? sp_page_width(context) : sp_page_height(context);
        side.room = (is_top ? page - place : place) - margin;
        parameters.x0 = static_cast<float>(is_y ? place : rect.x0);
        parameters.y0 = static_cast<float>(is_y ? rect.y0 : place);
        used = std::max(used, out + vg_draw_axis(device, parameters, side));
    }

    void fill_limits(int graph, bool is_y, const sp_pltaxis &axis)
    {
        bool &is_filled = filled[graph][is_y ? 1 : 0];
        if (is_filled)
            return;
        is_filled = true;
        (is_y ? config.yg0 : config.xg0)[graph] = axis.f0;
        (is_y ? config.yg1 : config.xg1)[graph] = axis.f1;
    }

    void draw_label(const sp_label &label)
    {
        const vg_point at = {static_cast<double>(label.xpos), static_cast<double>(label.ypos)};
        const auto height = static_cast<double>(label.height);
        if (label.val == nullptr || !is_place(at.x, at.y) || !(height > 0 && height <= largest_text))
            return;
        const double turned = std::fmod(static_cast<double>(label.rot), 360.0);
        const double rot = std::isfinite(turned) ? turned : 0;
        const double bold = (vg_thickness(label.ithick) - vg_thickness(0)) / 2;
        sp_value *text = sp_convert(context, label.val, sp_string);
        if (text->type == sp_string)
            device.text({at, height, rot, -1, -1, label.icolor, bold, text->string});
        sp_free_value(text);
    }

    sp_context *context;
    sp_config &config;
    vg_device &device;
    double depths[sp_most_graphs][4] = {}; // how far the axes reach outward: bottom, top, left, right
    bool filled[sp_most_graphs][2] = {};   // the data limits
};

} // namespace

double sp_page_width(const sp_context *context)
{
    return page_size(context->config.xsize, 8);
}

double sp_page_height(const sp_context *context)
{
    return page_size(context->config.ysize, 6);
}

void sp_draw_plot(sp_context *context, vg_device &device)
{
    plot_drawer(context, device).draw();
}

std::string sp_plot_svg(sp_context *context)
{
    vg_svg svg(sp_page_width(context), sp_page_height(context));
    sp_draw_plot(context, svg);
    return svg.finish();
}
