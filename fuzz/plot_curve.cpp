// Points and axes of any numbers: what is drawn of curves lies within the graph, and what is drawn of axes is finite.
#include "fuzz.h"

#include "vgph/vgph.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr vg_rect rect = {1, 2, 4, 3.5};

class checker : public vg_device {
public:
    checker() : vg_device(30) {}
    void pen(const vg_pen &pen) override { require(std::isfinite(pen.width)); }
    void move(vg_point to) override { check(to); }
    void draw(vg_point to) override { check(to); }
    void fill(std::span<const vg_point> /*corners*/, int /*color*/) override {}
    void text(const vg_text &text) override
    {
        check(text.at);
        require(text.height > 0);
    }

    bool is_bounded = true;

private:
    void check(vg_point p) const
    {
        require(std::isfinite(p.x) && std::isfinite(p.y));
        require(!is_bounded || (p.x >= rect.x0 && p.x <= rect.x1 && p.y >= rect.y0 && p.y <= rect.y1));
    }
};

void draw_axis(checker &device, double lim0, double lim1, int options)
{
    _vgaxisparm a{};
    a.lim0 = lim0;
    a.lim1 = lim1;
    a.alen = 3;
    a.dolabs = options & 1;
    a.r90 = options >> 1 & 1;
    a.reverse = options >> 2 & 1;
    vg_cal_axis(a);
    vg_draw_axis(device, a, {true, true, a.dolabs != 0, true, "title", 1, 0.01, 0.5});
}

} // namespace

// Doubles: both limits of both axes, a length, then X, Y and flags in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::vector<double> numbers(size / sizeof(double));
    if (numbers.size() < 5)
        return 0;
    std::memcpy(numbers.data(), data, numbers.size() * sizeof(double));
    checker device;
    const vg_graph graph = {
        rect, {numbers[0], numbers[1], rect.x0, rect.x1}, {numbers[2], numbers[3], rect.y0, rect.y1}};
    const std::size_t n = (numbers.size() - 5) / 3;
    const std::span rest = std::span(numbers).subspan(5);
    const vg_points points = {rest.first(n), rest.subspan(n, n), rest.subspan(2 * n)};
    if (graph.x.is_usable() && graph.y.is_usable()) {
        vg_draw_line(device, graph, points);
        vg_draw_xmarks(device, graph, points, numbers[4]);
        vg_draw_ymarks(device, graph, points, numbers[4]);
        vg_draw_spots(device, graph, points);
        vg_draw_verticals(device, graph, points);
    }
    device.is_bounded = false;
    draw_axis(device, numbers[0], numbers[1], data[0]);
    return 0;
}
