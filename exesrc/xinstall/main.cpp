// The installer: asks for a directory and installs the product there.

#include "misc.h"
#include "wi/wi.h"
#include "xinstall.h"
#include "xinstall_frm.h"

#include <string>

namespace {

constexpr const char *product = "TANSY_DEMO";

} // namespace

// The command line is the toolkit's; no word of it is the location.
int main(int argc, char **argv)
{
    wi_main_init(&argc, argv);
    wi_hlp_setprognm("xinstall");
    wi_hlp_setlib_of_program("wi.hlp");
    xinstall_init();
    const std::string prompt =
        std::string("Where would you like to place the files for ") + product + "?  Enter the full path name below.";
    wi_label(xinstall_prompt, prompt.c_str());
    set_progname(product);
    wi_run();
    return 0;
}
