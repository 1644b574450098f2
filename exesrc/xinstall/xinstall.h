// The installer's window.
#pragma once

// Builds the window, fills it and shows it, ready for typing the location.
void xinstall_init();
