#include "vgph/vgaxis.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double label_height = 0.08;
constexpr double limit_height = 0.06;
constexpr double title_height = 0.1;
constexpr double gap = 0.07; // between rows, and between axis and labels
constexpr double least_scale = 0.4;
constexpr double major_tic = 0.09;
constexpr double minor_tic = 0.045;
constexpr double label_beyond = 0.01; // of the length, beyond the end of the axis
constexpr double least_minor = 0.05;  // inches between tics

// About the width of a text in heights of its capitals.
double width_of(std::string_view text, double height)
{
    double width = 0;
    for (const char c : text) {
        const bool narrow = std::string_view(".,:;'|!ijlIt ").find(c) != std::string_view::npos;
        const bool wide = (c >= 'A' && c <= 'Z') || c == 'm' || c == 'w';
        const bool continues = (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
        width += continues ? 0 : narrow ? 0.4 : wide ? 1.0 : 0.78;
    }
    return width * height;
}

struct label_text {
    char text[vg_label_size];
};

label_text text_of_label(const _vgaxisparm &a, int i)
{
    label_text label;
    if (a.nospan == 0) {
        vg_label_text(&a, a.labvals[i], label.text);
        return label;
    }
    vg_nospan_label_text(a.labvals[i], label.text);
    c_ridedgews(label.text);
    return label;
}

label_text text_of_limit(double value)
{
    label_text label;
    vg_end_label_text(value, label.text);
    c_ridedgews(label.text);
    return label;
}

double widest_label(const _vgaxisparm &a)
{
    double widest = 0;
    for (int i = 0; i < a.nlabs; ++i)
        widest = std::max(widest, width_of(text_of_label(a, i).text, label_height));
    return widest;
}

// Into how many parts a step between labels may be divided, by its multiplier.
int parts_of_step(const _vgaxisparm &a, double step)
{
    constexpr std::array<std::array<int, 3>, 3> by_type = {{{10, 5, 2}, {4, 2, 1}, {5, 1, 1}}};
    for (const int parts : by_type[a.inctype == 1 ? 0 : a.inctype == 2 ? 1 : 2])
        if (step / parts >= a.min_minor)
            return parts;
    return 1;
}

class side_drawer {
public:
    side_drawer(vg_device &d, const _vgaxisparm &axis, const vg_axis_side &s)
        : device(d), a(axis), side(s), vertical(a.r90 != 0), length(static_cast<double>(a.alen)),
          outward(a.reverse != 0 ? 1 : -1)
    {
    }

    double draw()
    {
        device.pen({side.color, side.width, 0});
        if (side.line)
            stroke(0, 0, length, 0);
        if (side.tics)
            draw_tics();
        fit();
        if (side.labels)
            draw_labels();
        draw_ends();
        return depth;
    }

private:
    // A place by its distance along the axis and away from the graph.
    vg_point place(double along, double out) const
    {
        const double x = static_cast<double>(a.x0);
        const double y = static_cast<double>(a.y0);
        return vertical ? vg_point{x + out * outward, y + along} : vg_point{x + along, y + out * outward};
    }

    void stroke(double along0, double out0, double along1, double out1)
    {
        device.move(place(along0, out0));
        device.draw(place(along1, out1));
    }

    // The label of an axis without a span is at its middle.
    double position(double value) const { return a.nospan != 0 ? length / 2 : (value - a.lim0) * a.scale; }

    // Labels are chosen within limits that were moved outward; one that came in by that is at the end.
    bool is_on_axis(double &along, double beyond) const
    {
        const bool is_on = along >= -beyond && along <= length + beyond;
        along = std::clamp(along, 0.0, length);
        return is_on;
    }

    void draw_tics()
    {
        for (int i = 0; i < a.nlabs; ++i)
            draw_tic(position(a.labvals[i]), major_tic, length * label_beyond);
        const double step = std::fabs(a.incval * a.scale);
        const int parts = a.nospan != 0 ? 1 : parts_of_step(a, step);
        const double first = position(a.labvals[0]);
        for (int i = -parts; i < parts * a.nlabs; ++i)
            if (i % parts != 0)
                draw_tic(first + step * i / parts, minor_tic, 0);
    }

    void draw_tic(double along, double size_of_tic, double beyond)
    {
        if (is_on_axis(along, beyond))
            stroke(along, 0, along, -size_of_tic);
    }

    // Texts become smaller when there is little room.
    void fit()
    {
        const double needed = (side.labels ? gap + (vertical ? widest_label(a) : label_height) : 0) +
                              (side.limits || !side.title.empty() ? gap + title_height : 0);
        size = needed > side.room ? std::max(side.room / needed, least_scale) : 1;
    }

    // A text across the axis is centred on its place in the direction of the axis, or at one of its ends.
    void draw_text(std::string_view text, double along, double height, int across)
    {
        const int up = vertical == (a.reverse != 0) ? 1 : -1;
        device.text({place(along, depth), height, vertical ? 90.0 : 0.0, across, up, side.color, 0, text});
    }

    void draw_labels()
    {
        depth += gap * size;
        double widest = 0;
        for (int i = 0; i < a.nlabs; ++i) {
            const label_text label = text_of_label(a, i);
            double along = position(a.labvals[i]);
            if (!is_on_axis(along, length * label_beyond))
                continue;
            const double height = label_height * size;
            widest = std::max(widest, width_of(label.text, height));
            if (vertical)
                device.text({place(along, depth), height, 0, static_cast<int>(-outward), 0, side.color, 0, label.text});
            else
                draw_text(label.text, along, height, 0);
        }
        depth += vertical ? widest : label_height * size;
    }

    void draw_ends()
    {
        const double title_width = width_of(side.title, title_height * size);
        if (side.limits || !side.title.empty())
            depth += gap * size;
        const double limits_depth = side.limits ? draw_limits() : 0;
        const double between = length - 2 * (limits_width + (side.limits ? gap : 0));
        if (side.title.empty() || title_width > between)
            depth += limits_depth;
        if (side.title.empty())
            return;
        if (side.limits && title_width > between)
            depth += gap * size;
        const double fitting = std::clamp(length / std::max(title_width, length), least_scale, 1.0);
        draw_text(side.title, length / 2, title_height * size * fitting, 0);
        depth += title_height * size;
    }

    // Returns the height of the texts.
    double draw_limits()
    {
        const label_text low = text_of_limit(a.lim0);
        const label_text high = text_of_limit(a.lim1);
        const double widest = std::max(width_of(low.text, limit_height), width_of(high.text, limit_height));
        const double fitting = std::max(std::min(size, (length - gap) / 2 / widest), least_scale);
        const double height = limit_height * fitting;
        draw_text(low.text, 0, height, -1);
        draw_text(high.text, length, height, 1);
        limits_width = widest * fitting;
        return height;
    }

    vg_device &device;
    const _vgaxisparm &a;
    const vg_axis_side &side;
    bool vertical;
    double length;
    double outward; // 1 or -1, direction away from the graph
    double size = 1;
    double depth = 0; // how far the drawing reaches
    double limits_width = 0;
};

} // namespace

void vg_cal_axis(_vgaxisparm &a)
{
    const auto length = static_cast<double>(a.alen);
    const double limits[] = {a.lim0, a.lim1};
    a.min_minor = static_cast<float>(least_minor);
    for (int wanted = static_cast<int>(std::min(length / (a.r90 != 0 ? 0.4 : 0.6), 45.0));; --wanted) {
        a.lim0 = limits[0];
        a.lim1 = limits[1];
        cal_inc(&a, wanted);
        const double needed = a.r90 != 0 || a.dolabs == 0 ? label_height * 1.5 : widest_label(a) + gap;
        if (wanted <= 2 || a.nlabs < 2 || needed * (a.nlabs - 1) <= length)
            break;
    }
    a.scale = length / (limits[1] - limits[0]);
    if (!std::isfinite(a.scale)) { // nothing that could be told apart
        a.nospan = a.nlabs = 1;
        a.labvals[0] = limits[0];
    }
    a.lim1 = limits[1];
}

double vg_draw_axis(vg_device &device, const _vgaxisparm &a, const vg_axis_side &side)
{
    return side_drawer(device, a, side).draw();
}
