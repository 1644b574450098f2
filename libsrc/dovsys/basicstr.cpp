#include "dovsys/basicstr.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view whitespace = " \t\n";

int folded(char c)
{
    return static_cast<unsigned char>(toupperx(c));
}

} // namespace

int strcmpx(const char *s, const char *t)
{
    while (*s != '\0' && folded(*s) == folded(*t)) {
        ++s;
        ++t;
    }
    return folded(*s) - folded(*t);
}

int strncmpx(const char *s, const char *t, int n)
{
    for (; n > 0; --n, ++s, ++t) {
        if (folded(*s) != folded(*t) || *s == '\0')
            return folded(*s) - folded(*t);
    }
    return 0;
}

int strindx(const char *s1, const char *s2)
{
    const std::string_view text(s1);
    const std::string_view part(s2);
    if (text.empty() != part.empty())
        return -1;
    const std::size_t at = text.find(part);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

char toupperx(char cc)
{
    return cc >= 'a' && cc <= 'z' ? static_cast<char>(cc - 'a' + 'A') : cc;
}

char tolowerx(char cc)
{
    return cc >= 'A' && cc <= 'Z' ? static_cast<char>(cc - 'A' + 'a') : cc;
}

char *struprx(char *s)
{
    std::transform(s, s + std::strlen(s), s, toupperx);
    return s;
}

char *strlwrx(char *s)
{
    for (char *c = s; *c != '\0'; ++c)
        *c = static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
    return s;
}

char *strlimcpy(char *s, const char *t, int n)
{
    if (n < 1)
        return s;
    const auto most = static_cast<std::size_t>(n) - 1;
    const auto *end = static_cast<const char *>(std::memchr(t, '\0', most));
    const std::size_t length = end != nullptr ? static_cast<std::size_t>(end - t) : most;
    std::memmove(s, t, length);
    s[length] = '\0';
    return s;
}

char *extendstr(char *s, int n)
{
    const std::size_t length = std::strlen(s);
    if (n < 1 || length >= static_cast<std::size_t>(n))
        return s;
    std::memset(s + length, ' ', static_cast<std::size_t>(n) - length);
    s[n] = '\0';
    return s;
}

char *ridstartws(char *s)
{
    const char *rest = s + std::strspn(s, whitespace.data());
    std::memmove(s, rest, std::strlen(rest) + 1);
    return s;
}

char *ridendws(char *s)
{
    const std::size_t last = std::string_view(s).find_last_not_of(whitespace);
    s[last + 1] = '\0'; // npos + 1 is 0
    return s;
}

void *xmove(void *target, const void *source, int n)
{
    if (n > 0)
        std::memmove(target, source, static_cast<std::size_t>(n));
    return target;
}
