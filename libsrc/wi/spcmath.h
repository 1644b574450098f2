// Mathematical functions, the same ones wherever formulas meet them.
#pragma once

#include <cmath>

#ifdef _WIN32
// Windows' own functions: this compiler's library has others under these names, which use the x87 unit and are slower,
// and its sine and cosine lose digits with growing arguments until none is left.
extern "C" {
__declspec(dllimport) double sin(double);
__declspec(dllimport) double cos(double);
__declspec(dllimport) double exp(double);
__declspec(dllimport) double log(double);
__declspec(dllimport) double pow(double, double);
__declspec(dllimport) double atan2(double, double);
}
#endif
