#include "vgph/vgph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
const double nan = std::nan("");

std::string svg_of(const std::function<void(vg_device &)> &draw)
{
    vg_svg svg(1, 1);
    draw(svg);
    const std::string text = svg.finish();
    const std::size_t begin = text.find('\n') + 1;
    return text.substr(begin, text.rfind("</svg>") - begin);
}

TEST(Svg, HasOnePathOfShortStepsForEachPen)
{
    EXPECT_EQ(svg_of([](vg_device &d) {
                  d.pen({2, 0.01, 0});
                  d.move({0, 0});
                  d.draw({0.1, 0.1});
                  d.draw({0.2, 0.1001}); // less than a dot up
                  d.draw({0.2, 0.5});
                  d.draw({0.2, 0.4});
                  d.move({0.5, 0.5}); // not used
                  d.move({0.9, 0.2});
                  d.draw({0.9, 0.2}); // a dot
                  d.pen({3, 0.02, 5});
                  d.draw({0.8, 0.3}); // from where the pen was
                  d.draw({0.7, 0.4});
                  d.pen({3, 0.02, 5});
                  d.draw({1e300, -1e300});
                  const vg_point corners[] = {{0, 0}, {1, 0}, {0, 1}};
                  d.fill(corners, 99);
              }),
              "<path stroke=\"#ff0000\" stroke-width=\"3.0\" d=\"M0 300l30-30h30v-120 30m210 60h0\"/>\n"
              "<path stroke=\"#0000ff\" stroke-width=\"6.0\" stroke-linecap=\"butt\""
              " stroke-dasharray=\"9 15 9 15 27 15\" d=\"M270 240l-30-30-30-30 999790 999820\"/>\n"
              "<path fill=\"#000000\" d=\"M0 300L300 300L0 0z\"/>\n");
    EXPECT_NE(vg_svg(1e9, -3).finish().find("width=\"50.00in\" height=\"0.01in\" viewBox=\"0 0 15000 3\""),
              std::string::npos);
}

TEST(Svg, IsValidWhateverTheBytesOfALabel)
{
    using std::string_view_literals::operator""sv;
    constexpr auto text =
        "a<b>&\"c\"  d|\0\x1f\x7f\t|\xc3\xa9 \xe9|\xe2\x82\xac\xf0\x9f\x98\x80|\xe2\x82|\xc0\x80|\xed\xa0\x80|"
        "\xef\xbf\xbe|\xe0\x9f\xbf|\xf4\x90\x80\x80|\xff"sv;
    EXPECT_EQ(svg_of([=](vg_device &d) {
                  d.text({{0.5, 0.5}, 0.072, 90, 0, 1, 1, 0.01, text});
              }),
              "<text x=\"150\" y=\"172\" font-size=\"30.0\" fill=\"#000000\" stroke=\"#000000\" stroke-width=\"3.0\""
              " text-anchor=\"middle\" transform=\"rotate(-90.00 150 150)\">a&lt;b&gt;&amp;\"c\"  d|  \x7f |\xc3\xa9 "
              "\xc3\xa9|"
              "\xe2\x82\xac\xf0\x9f\x98\x80|\xc3\xa2\xc2\x82|\xc3\x80\xc2\x80|\xc3\xad\xc2\xa0\xc2\x80|"
              "\xc3\xaf\xc2\xbf\xc2\xbe|\xc3\xa0\xc2\x9f\xc2\xbf|\xc3\xb4\xc2\x90\xc2\x80\xc2\x80|\xc3\xbf</text>\n");
}

// Keeps what is drawn.
class recorder : public vg_device {
public:
    explicit recorder(double dots) : vg_device(dots) {}
    void pen(const vg_pen & /*pen*/) override {}
    void move(vg_point to) override { at = to; }
    void draw(vg_point to) override
    {
        lines.push_back({at, to});
        at = to;
    }
    void fill(std::span<const vg_point> /*corners*/, int /*color*/) override {}
    void text(const vg_text &text) override { texts.push_back({text, std::string(text.text)}); }

    std::vector<std::pair<vg_point, vg_point>> lines;
    std::vector<std::pair<vg_text, std::string>> texts;

private:
    vg_point at{};
};

constexpr vg_rect rect = {1, 2, 4, 4};
constexpr int dots = 20; // to the inch

// What each column of dots shows of the lines: lowest and highest.
std::map<int, std::pair<double, double>> shown(const recorder &device)
{
    std::map<int, std::pair<double, double>> columns;
    for (const auto &[a, b] : device.lines) {
        const auto &[left, right] = a.x <= b.x ? std::pair{a, b} : std::pair{b, a};
        const auto column = [](double x) { return static_cast<int>(std::floor(x * dots + 0.5)); };
        for (int i = column(left.x); i <= column(right.x); ++i) {
            auto &[low, high] = columns.try_emplace(i, 1e9, -1e9).first->second;
            for (const double edge : {(i - 0.5) / dots, (i + 0.5) / dots}) {
                const double x = std::clamp(edge, left.x, right.x);
                const double y =
                    left.x == right.x ? b.y : left.y + (right.y - left.y) * (x - left.x) / (right.x - left.x);
                low = std::min({low, y, left.x == right.x ? a.y : y});
                high = std::max({high, y, left.x == right.x ? a.y : y});
            }
        }
    }
    return columns;
}

// Walks to the right, around, and through gaps and points far outside or not finite.
TEST(Line, ShowsTheSameWhenPointsOfAColumnAreMerged)
{
    std::mt19937 random(2385);
    std::uniform_real_distribution<double> fraction(0, 1);
    const double odd[] = {nan, inf, -inf, 1e300, -1e300, 0};
    for (int kind = 0; kind < 60; ++kind) {
        std::vector<double> x(3000);
        std::vector<double> y(x.size());
        std::vector<double> valid(x.size(), 1);
        for (std::size_t i = 0; i < x.size(); ++i) {
            x[i] = kind % 3 == 2 ? fraction(random) * 14 - 2
                                 : static_cast<double>(i) / 300 + fraction(random) * (kind % 3) / 10;
            y[i] = std::pow(fraction(random), 3) * (kind % 4) + std::sin(static_cast<double>(i) / 200.0);
            if (kind % 5 == 4 && fraction(random) < 0.02)
                (random() % 2 == 0 ? x : y)[i] = odd[random() % 6];
            valid[i] = kind % 5 == 3 && fraction(random) < 0.1 ? 0 : 1;
        }
        const vg_graph graph = {
            rect, {kind % 2 == 0 ? 0.0 : 9.0, kind % 2 == 0 ? 10.0 : 1.0, rect.x0, rect.x1}, {-1, 2, rect.y0, rect.y1}};
        recorder merged(dots);
        recorder whole(1e9);
        vg_draw_line(merged, graph, {x, y, valid});
        vg_draw_line(whole, graph, {x, y, valid});
        const auto columns = shown(merged);
        const auto expected = shown(whole);
        ASSERT_EQ(columns.size(), expected.size()) << kind;
        for (const auto &[column, range] : expected) {
            const auto &[low, high] = columns.at(column);
            ASSERT_NEAR(low, range.first, 1e-6) << kind << " " << column;
            ASSERT_NEAR(high, range.second, 1e-6) << kind << " " << column;
            ASSERT_TRUE(low >= rect.y0 - 1e-9 && high <= rect.y1 + 1e-9 && column >= 20 && column <= 80) << kind;
        }
        if (kind % 15 == 0) {
            EXPECT_LE(merged.lines.size(), 4 * 63U) << kind;
        }
    }
}

using segment = std::array<double, 4>;

std::vector<segment> drawn(void (*draw)(vg_device &, const vg_graph &, const vg_points &), const vg_points &points,
                           const vg_scale &x = {0, 6, 1, 4})
{
    recorder device(dots);
    draw(device, {rect, x, {0, 4, 2, 4}}, points);
    std::vector<segment> segments;
    for (const auto &[a, b] : device.lines)
        segments.push_back({a.x, a.y, b.x, b.y});
    return segments;
}

TEST(Points, AreDrawnOnceForEachDotAndWithinTheGraph)
{
    const std::vector<double> x = {2, 2.001, 6, 6.1, nan, 0, 3, 4};
    const std::vector<double> y = {2, 2.001, 4, 1, 1, 0, inf, 3};
    const std::vector<double> valid = {1, 1, -1, 1, 1, nan, 1, 0};
    const auto xmarks = [](vg_device &d, const vg_graph &g, const vg_points &p) { vg_draw_xmarks(d, g, p, -2); };
    const auto ymarks = [](vg_device &d, const vg_graph &g, const vg_points &p) { vg_draw_ymarks(d, g, p, nan); };
    using segments = std::vector<segment>;
    EXPECT_EQ(drawn(xmarks, {x, y, valid}), (segments{{1.5, 3, 2.5, 3}, {3.5, 4, 4, 4}, {1, 2, 1.5, 2}}));
    EXPECT_EQ(drawn(ymarks, {x, y, valid}), (segments{{2, 3, 2, 3}, {4, 4, 4, 4}, {1, 2, 1, 2}}));
    EXPECT_EQ(drawn(vg_draw_spots, {x, std::span(y).first(1), {}}), (segments{{2, 3, 2, 3}}));
    EXPECT_EQ(drawn(vg_draw_verticals, {x, {}, valid}),
              (segments{{2, 2, 2, 4}, {4, 2, 4, 4}, {1, 2, 1, 4}, {2.5, 2, 2.5, 4}}));
    const double lone[] = {1, nan, 2};
    EXPECT_EQ(drawn(vg_draw_line, {lone, lone, {}}), (segments{{1.5, 2.5, 1.5, 2.5}, {2, 3, 2, 3}}));
    for (const auto &scale :
         {vg_scale(0, nan, 0, 6), vg_scale(-inf, 0, 0, 6), vg_scale(3, 3, 0, 6), vg_scale(0, 5e-324, 0, 6)})
        EXPECT_FALSE(scale.is_usable());
    EXPECT_EQ(vg_scale(-1.7e308, 1.7e308, 1, 7)(0), 4);
    EXPECT_EQ(vg_scale(0, 1e-300, 1, 7)(1e300), 1 + 2e9);
}

// Labels, limits and title of a side, each with its place rounded to hundredths.
std::string texts_of(double lim0, double lim1, bool vertical, bool top, double room, const char *title = "Title")
{
    _vgaxisparm a{};
    a.lim0 = lim0;
    a.lim1 = lim1;
    a.x0 = a.y0 = 1;
    a.alen = 3;
    a.dolabs = 1;
    a.r90 = vertical ? 1 : 0;
    a.reverse = top ? 1 : 0;
    vg_cal_axis(a);
    recorder device(300);
    const double depth = vg_draw_axis(device, a, {true, true, true, true, title, 1, 0.01, room});
    const auto rounded = [](double v) { return std::lround(v * 100); };
    std::string all = std::to_string(device.lines.size()) + " lines, " + std::to_string(rounded(depth));
    for (const auto &[text, words] : device.texts)
        all += "; " + words + " " + std::to_string(rounded(text.at.x)) + " " + std::to_string(rounded(text.at.y));
    return all;
}

TEST(AxisDrawing, PutsItsTextsOutside)
{
    EXPECT_EQ(
        texts_of(0, 10, false, false, 1),
        "22 lines, 32; 0 100 93; 2 160 93; 4 220 93; 6 280 93; 8 340 93; 10 400 93; 0 100 78; 10 400 78; Title 250 78");
    EXPECT_EQ(texts_of(-1, 1, true, false, 1), "22 lines, 46; -1.0 93 100; -0.5 93 175; 0.0 93 250; 0.5 93 325; 1.0 93 "
                                               "400; -1 64 100; 1 64 400; Title 64 250");
    EXPECT_EQ(texts_of(-1e9, 1e9, true, true, 0.4),
              "22 lines, 44; -1.0000000E+09 103 100; -5.0000000E+08 103 175; 0 103 250; 5.0000000E+08 103 325; "
              "1.0000000E+09 103 400; -1E+09 140 100; 1E+09 140 400; Title 140 250");
    EXPECT_EQ(texts_of(0, 3e9, false, false, 1, "A title that is longer than there is room for at this axis"),
              "32 lines, 45; 0 100 93; 1.0000000E+09 200 93; 2.0000000E+09 300 93; 3.0000000E+09 400 93; 0 100 78; "
              "3E+09 400 78; A title that is longer than there is room for at this axis 250 65");
    EXPECT_EQ(texts_of(7, nan, false, false, 1, ""), "2 lines, 28; 7 250 93; 7 100 78; NAN 400 78");
}

} // namespace
