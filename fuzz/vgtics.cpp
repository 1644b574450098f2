// Axis tics of any limits: the laws that hold for all axes, and the parts called with anything.

#include "fuzz.h"

#include "vgph/tic_laws.h"

#include <array>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::array<double, 3> numbers{};
    std::memcpy(numbers.data(), data, std::min(size, sizeof numbers));
    _vgaxisparm axis{};
    axis.lim0 = numbers[0];
    axis.lim1 = numbers[1];
    cal_inc(&axis, size > 24 ? data[24] : 5);
    require(broken_law(axis) == nullptr);
    std::array<char, vg_label_size> text;
    vg_label_text(&axis, numbers[2], text.data());
    vg_end_label_text(numbers[2], text.data());
    vg_nospan_label_text(numbers[2], text.data());
    require(cal_tics(numbers[0], numbers[1], numbers[2], axis.labvals) <= vg_mxlabs);
    adj_precision(numbers[0], static_cast<int>(size), size % 2 == 0 ? 1 : -1);
    return 0;
}
