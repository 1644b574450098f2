// JSON as the console tools print it: each function appends one value to the text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// 17 significant digits at most, with a point in every locale, so that the same double reads back; 0.1 is
// 0.10000000000000001 and 3 is 3. What JSON has no number for are the strings "nan", "inf" and "-inf".
void json_number(std::string &out, double value);
void json_integer(std::string &out, std::int64_t value);

// A quoted string in which each byte is one character: control characters and bytes above 127 are \u00XX, so the result
// is valid whatever the bytes are.
void json_string(std::string &out, std::string_view text);
