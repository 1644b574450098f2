// Vector graphics: what a hardcopy is made with.
#pragma once

#include "vgph/vghardcopy.h"
