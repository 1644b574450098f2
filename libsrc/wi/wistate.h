// What tests replace and reset; applications have no use for it.
#pragma once

// Called by wi_exit instead of its message box; it must not return. Null restores the message box.
void wi_set_exit_handler(void (*handler)(const char *msg));

// As if the message loop ran (1) or not yet (0).
void wi_set_running(int now);

// Forget all registrations, the position in the command line, what help was told and its window, or the printing
// options, whose window is built anew.
void wi_reset_window_table();
void wi_reset_command_line();
void wi_reset_help();
void wi_reset_journal(); // off, as in a program that has not begun one
void wi_reset_hardcopy();
