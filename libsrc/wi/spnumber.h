// Numbers as texts, with points in every locale.
#pragma once

#include <array>
#include <string_view>

// The number that a text begins with, after white space, as strtod() reads it: 0 when there is none.
double sp_read_number(std::string_view text);

// A number as "%.10g" prints it; what is no number is "nan", "inf" or "-inf". The result lies in the buffer and ends
// in a NUL.
using sp_number_text = std::array<char, 32>;
std::string_view sp_print_number(double number, sp_number_text &buffer);
