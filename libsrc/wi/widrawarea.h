// The drawing area's part in start-up.
#pragma once

// Registers the window class of drawing areas; there are none yet.
inline void registerdrawwindow() {}
