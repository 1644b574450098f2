// The defaults of the installer's window.
#pragma once

#include "xinstall_frm.h"

// Puts the default location into the location field.
void xinstall_def(const xinstall_parts &wo_a);
