// dovfile   Looks into, prints, makes and changes measurement files.

#include "dovfile/dovfile.h"

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char **argv)
{
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY); // the same bytes on every system
#endif
    return run_dovfile(arguments(argv + 1, argc > 0 ? static_cast<std::size_t>(argc - 1) : 0));
}
