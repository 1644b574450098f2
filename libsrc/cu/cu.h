// Curve fitting: least-squares splines, and what is done with a spline once it is there.
#pragma once

#include "cu/bspl.h"
#include "cu/espl.h"
