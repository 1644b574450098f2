// What the installer's buttons do.
#pragma once

struct wi_obj;

enum xinstall_cb_tag : int { xinstall_cb_ok = 0, xinstall_cb_cancel = 1 };

// Callback of both buttons, and of the pop-up after a successful installation. "OK" installs into the location in the
// field; after a failure the window stays for another attempt. "Cancel" ends the process.
void xinstall_cb(wi_obj *wo, int tag);

// Ends the process with status 0.
[[noreturn]] void xinstall_quit(wi_obj *wo, int tag);
