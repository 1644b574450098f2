// Templates and abbreviations: the quick matcher agrees with the rules read literally, as far as those can be run.

#include "fuzz.h"

#include "dovsys/dovsys.h"

namespace {

int literally(const char *t, const char *s)
{
    if (*t == '\0' || *s == '\0')
        return *t == *s ? 1 : 0;
    if (*t != '*')
        return *t == '?' || *t == *s ? literally(t + 1, s + 1) : 0;
    if (t[1] == '\0')
        return 1;
    while (*s != '\0' && literally(t + 1, s) == 0)
        ++s;
    return *s != '\0' ? 1 : 0;
}

} // namespace

// The template ends at the first line feed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input = text_of(data, data + size);
    const std::size_t split = std::min(input.find('\n'), input.size());
    const std::string pattern = input.substr(0, split);
    const std::string text = input.substr(std::min(split + 1, input.size()));
    const int exact = c_iswild(pattern.c_str(), text.c_str());
    const int folded = c_iswildx(pattern.c_str(), text.c_str());
    require(exact <= folded);
    if (text.size() < 20 && std::count(pattern.begin(), pattern.end(), '*') < 5)
        require(exact == literally(pattern.c_str(), text.c_str()));
    require(c_isabbr(pattern.c_str(), text.c_str(), '*') <= c_isabbrx(pattern.c_str(), text.c_str(), '*'));
    return 0;
}
