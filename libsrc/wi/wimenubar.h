// The menu bar's part in the handling of commands.
#pragma once

// Carries out the menu command of that id; there are no menus yet.
inline void menudispatcher(unsigned short) {}
