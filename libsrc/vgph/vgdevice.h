// Where pictures are drawn: a page in inches with the origin at its lower left corner, y upward. A window, a printer or
// a file becomes a device by the operations below; what is drawn is always the same.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

struct vg_point {
    double x, y;
};

constexpr double vg_largest_page = 50; // inches, of width and height

constexpr int vg_background = 0;
constexpr int vg_foreground = 1;

// Red, green and blue of the colour codes, 0xRRGGBB; the last is the code without a name.
constexpr std::array<std::uint32_t, 16> vg_colors = {
    0xffffff, // white, background
    0x000000, // black, foreground
    0xff0000, // red
    0x0000ff, // blue
    0x008000, // green
    0xffff00, // yellow
    0x800080, // purple
    0xa52a2a, // brown
    0xffc0cb, // pink
    0xffa500, // orange
    0x00ffff, // cyan
    0xff00ff, // magenta
    0x40e0d0, // turquoise
    0xfa8072, // salmon
    0x808080, // gray
    0xc0c0c0,
};

constexpr std::uint32_t vg_color(int code)
{
    return vg_colors[static_cast<std::size_t>(code >= 0 && code < 16 ? code : vg_foreground)];
}

// Strokes of the line types, a letter each: dot, dash, long dash; none for a solid line.
constexpr std::array<std::string_view, 10> vg_linetypes = {"", "-", "=", ".-", ".", "..-", "--.", "--..", "-=", ".-="};

struct vg_pen {
    int color = vg_foreground; // 0 to 15
    double width = 0.01;       // inches
    int linetype = 0;          // 0 to 9

    bool operator==(const vg_pen &) const = default;
};

// Width of thickness codes 0 (normal) to 9; codes beyond count as the nearest.
constexpr double vg_thickness(int code)
{
    return 0.01 + 0.005 * (code < 0 ? 0 : code > 9 ? 9 : code);
}

// What of a text lies at its point: -1 the left end or the baseline, 0 the middle, 1 the right end or the top of the
// capitals.
struct vg_text {
    vg_point at;
    double height; // of capitals, inches
    double rot;    // degrees, counterclockwise around the point
    int across, up;
    int color;
    double bold;           // inches by which strokes are wider than the font has them
    std::string_view text; // any bytes
};

class vg_device {
public:
    // How many points of an inch the device tells apart.
    explicit vg_device(double dots) : dots_per_inch(dots) {}
    virtual ~vg_device() = default;
    vg_device(const vg_device &) = delete;
    vg_device &operator=(const vg_device &) = delete;

    // All numbers are finite. The pen stays as it is set; move() puts it down and draw() goes on from where it is. A
    // line that ends where it begins is a dot as wide as the pen.
    virtual void pen(const vg_pen &pen) = 0;
    virtual void move(vg_point to) = 0;
    virtual void draw(vg_point to) = 0;

    // A polygon of one colour.
    virtual void fill(std::span<const vg_point> corners, int color) = 0;
    virtual void text(const vg_text &text) = 0;

    const double dots_per_inch;
};
