#include "wi/wicmdline.h"

#include "dovsys/dovsys.h"
#include "wi/wistate.h"

#include <cstring>

namespace {

// Start and end of the current word.
int token_start;
int token_end;

} // namespace

int iswhitespace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\0';
}

int counttokens(const char *s)
{
    int count = 0;
    for (bool gap = true; *s; ++s) {
        const bool blank = iswhitespace(*s) != 0;
        count += gap && !blank;
        gap = blank;
    }
    return count;
}

char *getnexttoken(const char *s)
{
    token_start = token_end;
    while (s[token_start] && iswhitespace(s[token_start]))
        ++token_start;
    token_end = token_start;
    while (!iswhitespace(s[token_end]))
        ++token_end;
    const int size = token_end - token_start;
    char *token = c_mkstrn(size + 2);
    std::memcpy(token, s + token_start, static_cast<std::size_t>(size));
    if (s[token_end])
        ++token_end;
    return token;
}

void parsecommandline(const char *cmdline, int *argc, char ***argv)
{
    *argc = counttokens(cmdline);
    *argv = static_cast<char **>(jmalloc((*argc + 1) * static_cast<int>(sizeof(char *))));
    (*argv)[0] = c_mkstr(" ");
    for (int i = 1; i <= *argc; ++i)
        (*argv)[i] = getnexttoken(cmdline);
}

void wi_reset_command_line()
{
    token_start = token_end = 0;
}
