// What tests replace and reset; applications have no use for it.
#pragma once

// Called by wi_exit instead of its message box; it must not return. Null restores the message box.
void wi_set_exit_handler(void (*handler)(const char *msg));

// Forget all registrations, the position in the command line, or what help was told and its window.
void wi_reset_window_table();
void wi_reset_command_line();
void wi_reset_help();
