// What the installer's window contains.
#pragma once

#include <array>

struct wi_obj;

enum xinstall_part { xinstall_part_location, xinstall_part_prompt, xinstall_part_ok, xinstall_part_cancel };
using xinstall_parts = std::array<wi_obj *, 4>; // indexed by xinstall_part

extern wi_obj *xinstall_location; // the string field with the directory to install into
extern wi_obj *xinstall_prompt;   // the label above it

// Lays out the contents in the form `wo` and returns the objects in `wo_a`.
void xinstall_frm(wi_obj *wo, xinstall_parts &wo_a);
