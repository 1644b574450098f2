// What the program does besides formulas: plot configurations and their pictures, axis tics. Each prints what is wrong
// on standard error and returns the exit status.
#pragma once

#include <string>

// Runs a style script and prints the configuration that results, one field a line, or one JSON object of all fields and
// the error text. 1 when there is error text.
int print_config(const std::string &script, bool json);

// Runs a style script and writes its plot as SVG. 1 when there is error text, though the picture is written.
int write_plot(const std::string &script, const std::string &file);

// Reads lines of three numbers, the limits of an axis and how many labels are wanted, and prints increment and labels
// of each; as JSON, an object for each line. 1 when a line is something else.
int print_tics(bool json);
