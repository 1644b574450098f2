// Lines of scripts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "wi/spcontext.h"

enum class sp_line {
    ignored, // a comment, a command, a line without "=" or without a formula
    assigned,
    failed, // messages were added to the context's error text
};

struct sp_line_result {
    sp_line what = sp_line::ignored;
    std::string name;      // of the variable
    std::string message;   // of the first failure
    std::size_t place = 0; // of the fault in the line, from 1; 0 when that is not known
};

// Does one line of a script, NAME = FORMULA. The line ends at its first line feed; a ";" outside quotes begins a
// comment; blanks at both ends do not count. A line that begins with "#" is ignored. A "-" before the name asks for a
// protected variable, which the library keeps as the user's.
//
// A formula that fails leaves the variable with an ERROR "Bad Value"; what fails is told as "Error (line N): message"
// in the context's error text.
sp_line_result sp_script_line(sp_context *context, std::string_view line, int number);
