#include "console.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

bool is_terminal(std::FILE *stream)
{
    return _isatty(_fileno(stream)) != 0;
}

bool is_regular_file(std::FILE *stream)
{
    struct _stat64 status = {};
    return _fstat64(_fileno(stream), &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG;
}

void make_binary(std::FILE *stream)
{
    _setmode(_fileno(stream), _O_BINARY);
}
