#include "dovsys/dovsys.h"

#include <cstring>

int main()
{
    char *text = c_mkstr("0.25");
    const bool same = std::strcmp(text, c_sfmtd(0.25)) == 0;
    jfree(text);
    return same ? 0 : 1;
}
