// A device that writes Scalable Vector Graphics: a text of one <svg> element, 300 dots to the inch, coordinates without
// decimals. Consecutive strokes of one pen are one path of relative steps.
#pragma once

#include "vgph/vgdevice.h"

#include <string>

class vg_svg : public vg_device {
public:
    // Page in inches; each size is kept within 0.01 and vg_largest_page.
    vg_svg(double width, double height);

    void pen(const vg_pen &pen) override;
    void move(vg_point to) override;
    void draw(vg_point to) override;
    void fill(std::span<const vg_point> corners, int color) override;

    // Bytes that are no UTF-8 count as Latin-1, control characters as blanks.
    void text(const vg_text &text) override;

    // The whole text; nothing can be drawn afterwards.
    std::string finish();

private:
    struct dot {
        int x, y;
        bool operator==(const dot &) const = default;
    };
    dot dot_of(vg_point point) const;
    void start(dot to);
    void step(dot to);
    void end_path();

    double page_height;
    std::string out;
    std::string path; // of the current pen
    vg_pen current;
    dot at = {0, 0};     // where the path is
    dot origin = {0, 0}; // where the next stroke begins
    bool is_moved = false;
    char command = 0; // last letter of the path
};
