// The prompt without line editing, or with that of the console itself.
#include "console.h"

bool ask_line(const char *prompt, std::string &line)
{
    std::fputs(prompt, stdout);
    std::fflush(stdout);
    return read_line(stdin, line);
}
