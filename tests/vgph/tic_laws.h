// What holds for the labels of any axis.
#pragma once

#include "vgph/vgtics.h"

#include <algorithm>
#include <cmath>
#include <cstring>

// cal_tics() as a plain loop; how many, at most one more than there is room for.
inline int plain_tics(double x0, double x1, double inc, double *labels)
{
    int n = 0;
    for (double k = std::floor(x0 / inc) - 2; k <= std::floor(x1 / inc) + 2 && n < vg_mxlabs; ++k)
        if (k * inc >= std::min(x0, x1) && k * inc <= std::max(x0, x1))
            labels[n++] = k * inc;
    return n;
}

// Null, or the law that does not hold after cal_inc().
inline const char *broken_law(const _vgaxisparm &a)
{
    if (a.nlabs < 1 || a.nlabs > vg_mxlabs)
        return "1 to 50 labels";
    if (a.nospan != 0 || a.incval == 0)
        return a.nlabs == 1 ? nullptr : "one label without a span";
    double labels[vg_mxlabs];
    if (plain_tics(a.lim0j, a.lim1j, a.incval, labels) != a.nlabs || !std::equal(labels, labels + a.nlabs, a.labvals))
        return "multiples of the increment";
    for (int i = 0; i < a.nlabs; ++i) {
        if (i > 0 && !(a.incval < 0 ? labels[i] < labels[i - 1] : labels[i] > labels[i - 1]))
            return "labels in order";
        if (!(labels[i] >= std::min(a.lim0j, a.lim1j) && labels[i] <= std::max(a.lim0j, a.lim1j)))
            return "labels within the nudged limits";
        char text[vg_label_size];
        vg_label_text(&a, labels[i], text);
        if (*text == '\0' || std::strpbrk(text, " ,") != nullptr)
            return "a text";
    }
    return std::strchr("\1\2\5", a.inctype) != nullptr && (a.incsign != 0) == (a.lim0 > a.lim1) ? nullptr : "fields";
}
