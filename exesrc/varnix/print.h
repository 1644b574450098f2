// Values as the program prints them.
#pragma once

#include "wi/sp.h"

#include <string>

// For people: a SCALER in the shortest form that reads back the same; an ARRAY on one line, or in columns behind the
// numbers of the first and the last element of each row; an ENAME with a leading "#"; without a line feed at the end.
std::string text_of(const sp_value &value);

// For programs: one JSON object.
std::string json_of(const sp_value &value);
std::string json_error(std::string_view message);
