// The hardcopy record: how a plot is printed. Who makes a hardcopy fills it, or has it filled from the user's choices.
//
//   offset  size  type       field
//        0     4  int32      type    a vghardcopy_type
//        4   256  text       queue   print queue
//      260   256  text       path    where the file is put; empty for the current directory
//      516     4  int32      dousr   1 when the user's command is to be run
//      520   256  text       usrcmd  that command
//
// Integers have the machine's byte order; texts end in a zero byte.
#pragma once

#include <cstddef>
#include <cstdint>

enum vghardcopy_type : std::int32_t {
    vghardcopy_ps = 1,
    vghardcopy_tek = 2,
    vghardcopy_hpgl = 3,
    vghardcopy_cps = 4, // PostScript in colours
};

constexpr int vghardcopy_text = 256; // bytes of each text, with its zero

struct vghardcopy {
    std::int32_t type;
    char queue[vghardcopy_text];
    char path[vghardcopy_text];
    std::int32_t dousr;
    char usrcmd[vghardcopy_text];
};

static_assert(offsetof(vghardcopy, queue) == 4);
static_assert(offsetof(vghardcopy, path) == 260);
static_assert(offsetof(vghardcopy, dousr) == 516);
static_assert(offsetof(vghardcopy, usrcmd) == 520);
static_assert(sizeof(vghardcopy) == 776);
