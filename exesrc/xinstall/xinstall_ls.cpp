#include "xinstall_ls.h"

void xinstall_ls(const xinstall_parts & /*wo_a*/) {}
