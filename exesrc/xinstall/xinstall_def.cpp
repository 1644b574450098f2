#include "xinstall_def.h"

#include "wi/wi.h"

void xinstall_def(const xinstall_parts &wo_a)
{
    wi_strfld_putstr(wo_a[xinstall_part_location], "c:\\program files\\");
}
