#include "console.h"

bool read_line(std::FILE *stream, std::string &line)
{
    line.clear();
    int c = std::getc(stream);
    if (c == EOF)
        return false;
    for (; c != EOF && c != '\n'; c = std::getc(stream))
        line += static_cast<char>(c);
    return true;
}
