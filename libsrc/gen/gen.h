// General numerics: systems of linear equations with a band, polynomials about another point.
#pragma once

#include "gen/banded.h"
#include "gen/tranpp.h"
