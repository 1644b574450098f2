// The lists of the installer's window.
#pragma once

#include "xinstall_frm.h"

// Fills the lists at the start. The window has none, so this does nothing.
void xinstall_ls(const xinstall_parts &wo_a);
