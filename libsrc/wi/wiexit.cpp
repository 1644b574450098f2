#include "wi/wiexit.h"

#include "wi/wiplatform.h"
#include "wi/wistate.h"

#include <cstdlib>

namespace {

void (*exit_handler)(const char *);

}

void wi_set_exit_handler(void (*handler)(const char *msg))
{
    exit_handler = handler;
}

void wi_exit(const char *msg)
{
    if (exit_handler)
        exit_handler(msg);
    MessageBoxA(nullptr, msg, "Error message:", MB_OK | MB_ICONSTOP);
    std::exit(-1);
}
