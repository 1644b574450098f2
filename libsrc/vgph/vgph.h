// Vector graphics: devices, drawing of axes and curves, axis tics, what a hardcopy is made with.
#pragma once

#include "vgph/vgaxis.h"
#include "vgph/vgcurve.h"
#include "vgph/vgdevice.h"
#include "vgph/vghardcopy.h"
#include "vgph/vgsvg.h"
#include "vgph/vgtics.h"
