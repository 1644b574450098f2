#include "console.h"

#include <sys/stat.h>
#include <unistd.h>

bool is_terminal(std::FILE *stream)
{
    return isatty(fileno(stream)) != 0;
}

bool is_regular_file(std::FILE *stream)
{
    struct stat status = {};
    return fstat(fileno(stream), &status) == 0 && S_ISREG(status.st_mode);
}

void make_binary(std::FILE * /*stream*/) {}
