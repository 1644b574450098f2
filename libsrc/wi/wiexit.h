// The end of a program that used the toolkit wrongly.
#pragma once

// Shows `msg` in a message box captioned "Error message:" and ends the process with status -1.
[[noreturn]] void wi_exit(const char *msg);
