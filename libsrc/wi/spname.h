// How names are found.
#pragma once

#include <string_view>

#include "wi/spvar.h"

// Index of the variable, or -1.
int sp_find_name(const sp_vlib *vlib, std::string_view name);
