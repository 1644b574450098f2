#include "vgph/vgcurve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double far = 1e9; // inches; further out a line would lose its direction to rounding
constexpr double no_position = std::numeric_limits<double>::quiet_NaN();

// A line that is drawn within a rectangle, by the method of Liang and Barsky (ACM Transactions on Graphics 3, 1984).
class clipped_line {
public:
    clipped_line(vg_device &d, const vg_rect &r) : device(d), rect(r) {}

    void move(vg_point to)
    {
        at = to;
        is_down = false;
    }

    void draw(vg_point to)
    {
        double from = 0;
        double until = 1;
        const vg_point by = {to.x - at.x, to.y - at.y};
        if (cut(-by.x, at.x - rect.x0, from, until) && cut(by.x, rect.x1 - at.x, from, until) &&
            cut(-by.y, at.y - rect.y0, from, until) && cut(by.y, rect.y1 - at.y, from, until)) {
            if (!is_down || from > 0)
                device.move(between(by, from));
            device.draw(until < 1 ? between(by, until) : inside(to));
            is_down = until == 1;
        } else {
            is_down = false;
        }
        at = to;
    }

private:
    static bool cut(double by, double room, double &from, double &until)
    {
        if (by < 0)
            from = std::max(from, room / by);
        else if (by > 0)
            until = std::min(until, room / by);
        else
            return room >= 0;
        return from <= until;
    }

    vg_point between(vg_point by, double part) const { return inside({at.x + by.x * part, at.y + by.y * part}); }

    // Against rounding.
    vg_point inside(vg_point p) const { return {std::clamp(p.x, rect.x0, rect.x1), std::clamp(p.y, rect.y0, rect.y1)}; }

    vg_device &device;
    const vg_rect &rect;
    vg_point at = {0, 0};
    bool is_down = false;
};

// Collects the points of one column of dots. Whatever lies left of the graph is one column, and so is what lies right.
class column_merger {
public:
    column_merger(vg_device &d, const vg_rect &r) : rect(r), line(d, r), dots(d.dots_per_inch) {}

    void add(vg_point p)
    {
        const double in_column = column_of(p.x);
        if (count > 0 && in_column == column)
            return widen(p);
        flush();
        column = in_column;
        points.fill(p);
        count = 1;
        low = high = 0;
    }

    void gap()
    {
        const bool is_alone = count == 1 && !is_line;
        flush();
        if (is_alone)
            line.draw(points[first]);
        is_line = false;
    }

private:
    // The first, the lower and the higher extreme, the last; with the numbers at which the extremes came.
    enum { first, lowest, highest, last };

    double column_of(double x) const
    {
        constexpr double outside = std::numeric_limits<double>::infinity();
        return x < rect.x0 ? -outside : x > rect.x1 ? outside : std::floor(x * dots + 0.5);
    }

    void widen(vg_point p)
    {
        if (p.y < points[lowest].y) {
            points[lowest] = p;
            low = count;
        } else if (p.y > points[highest].y) {
            points[highest] = p;
            high = count;
        }
        points[last] = p;
        ++count;
    }

    void flush()
    {
        if (count == 0)
            return;
        if (is_line)
            line.draw(points[first]);
        else
            line.move(points[first]);
        is_line = true;
        const bool low_first = low < high;
        if (count > 2) {
            line.draw(points[low_first ? lowest : highest]);
            line.draw(points[low_first ? highest : lowest]);
        }
        if (count > 1)
            line.draw(points[last]);
        count = 0;
    }

    const vg_rect &rect;
    clipped_line line;
    double dots;
    double column = 0;
    std::array<vg_point, 4> points{};
    std::size_t count = 0, low = 0, high = 0;
    bool is_line = false;
};

// The dots of a rectangle, to mark each once.
class dot_map {
public:
    dot_map(const vg_rect &r, double dots)
        : rect(r), per_inch(dots), columns(cells(r.x1 - r.x0)), used(columns * cells(r.y1 - r.y0))
    {
    }

    // Whether the point lies in the rectangle and is the first of its dot.
    bool take(vg_point p)
    {
        if (!(p.x >= rect.x0 && p.x <= rect.x1 && p.y >= rect.y0 && p.y <= rect.y1))
            return false;
        const std::size_t cell = cell_of(p.y - rect.y0) * columns + cell_of(p.x - rect.x0);
        if (used[cell])
            return false;
        used[cell] = true;
        return true;
    }

private:
    std::size_t cell_of(double distance) const { return static_cast<std::size_t>(distance * per_inch); }
    std::size_t cells(double length) const { return cell_of(length) + 1; }

    const vg_rect &rect;
    double per_inch;
    std::size_t columns;
    std::vector<bool> used;
};

bool is_valid(const vg_points &points, std::size_t i)
{
    return i >= points.valid.size() || points.valid[i] != 0;
}

// Calls mark(position) for each point that is not left out, once for each dot.
template <class Mark>
void for_each_dot(const vg_device &device, const vg_graph &graph, const vg_points &points, Mark mark)
{
    dot_map dots(graph.rect, device.dots_per_inch);
    const std::size_t count = std::min(points.x.size(), points.y.size());
    for (std::size_t i = 0; i < count; ++i) {
        const vg_point p = {graph.x(points.x[i]), graph.y(points.y[i])};
        if (is_valid(points, i) && dots.take(p))
            mark(p);
    }
}

} // namespace

vg_scale::vg_scale(double v0, double v1, double p0, double p1)
    : from(v0), start(p0), factor((p1 - p0) / 2 / (v1 / 2 - v0 / 2)),
      usable(std::isfinite(v0) && std::isfinite(v1) && v0 != v1 && std::isfinite(factor))
{
}

double vg_scale::operator()(double value) const
{
    const double halves = (value / 2 - from / 2) * factor;
    return std::isfinite(value) ? start + std::clamp(halves, -far, far) * 2 : no_position;
}

double vg_scale::length(double span) const
{
    const double length = std::fabs(span * factor);
    return length <= far ? length : std::isnan(length) ? 0 : far;
}

void vg_draw_line(vg_device &device, const vg_graph &graph, const vg_points &points)
{
    column_merger merger(device, graph.rect);
    const std::size_t count = std::min(points.x.size(), points.y.size());
    for (std::size_t i = 0; i < count; ++i) {
        const vg_point p = {graph.x(points.x[i]), graph.y(points.y[i])};
        if (is_valid(points, i) && !std::isnan(p.x) && !std::isnan(p.y))
            merger.add(p);
        else
            merger.gap();
    }
    merger.gap();
}

void vg_draw_xmarks(vg_device &device, const vg_graph &graph, const vg_points &points, double length)
{
    const double half = graph.x.length(length) / 2;
    for_each_dot(device, graph, points, [&](vg_point p) {
        device.move({std::max(p.x - half, graph.rect.x0), p.y});
        device.draw({std::min(p.x + half, graph.rect.x1), p.y});
    });
}

void vg_draw_ymarks(vg_device &device, const vg_graph &graph, const vg_points &points, double length)
{
    const double half = graph.y.length(length) / 2;
    for_each_dot(device, graph, points, [&](vg_point p) {
        device.move({p.x, std::max(p.y - half, graph.rect.y0)});
        device.draw({p.x, std::min(p.y + half, graph.rect.y1)});
    });
}

void vg_draw_spots(vg_device &device, const vg_graph &graph, const vg_points &points)
{
    for_each_dot(device, graph, points, [&](vg_point p) {
        device.move(p);
        device.draw(p);
    });
}

void vg_draw_verticals(vg_device &device, const vg_graph &graph, const vg_points &points)
{
    const vg_rect &rect = graph.rect;
    const vg_rect foot = {rect.x0, rect.y0, rect.x1, rect.y0};
    dot_map dots(foot, device.dots_per_inch);
    for (std::size_t i = 0; i < points.x.size(); ++i) {
        const double x = graph.x(points.x[i]);
        if (!is_valid(points, i) || !dots.take({x, rect.y0}))
            continue;
        device.move({x, rect.y0});
        device.draw({x, rect.y1});
    }
}
