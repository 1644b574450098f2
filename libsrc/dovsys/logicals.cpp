#include "dovsys/logicals.h"
#include "dovsys/comutil.h"
#include "dovsys/internal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t name_size = 512;
constexpr std::size_t home_size = 60;

std::array<char, 256> value_buffer;

std::array<char, home_size> home;
bool home_known = false;

} // namespace

const char *get_logical(const char *lognam, const char *tabnam)
{
    if (lognam == nullptr)
        return nullptr;
    std::array<char, name_size> name;
    const char *table = tabnam != nullptr ? tabnam : "";
    const char *joint = tabnam != nullptr ? "_" : "";
    const int length = std::snprintf(name.data(), name.size(), "%s%s%s", table, joint, lognam);
    if (length < 0 || static_cast<std::size_t>(length) >= name.size())
        return nullptr;
    const char *value = std::getenv(name.data());
    if (value == nullptr)
        return nullptr;
    return c_strncpy(value_buffer.data(), value, static_cast<int>(value_buffer.size()));
}

void transl_(const char *logn, char *equn, int loglen, int equlen)
{
    if (equlen < 1)
        return;
    const std::string_view padded(logn, static_cast<std::size_t>(std::max(loglen, 0)));
    std::array<char, name_size> name{};
    const char *value = nullptr;
    if (padded.size() < name.size()) {
        padded.copy(name.data(), padded.size());
        value = get_logical(name.data(), nullptr);
    }
    const auto size = static_cast<std::size_t>(equlen);
    std::memset(equn, ' ', size);
    if (value != nullptr)
        std::memcpy(equn, value, std::min(size, std::strlen(value)));
    equn[size - 1] = '\0';
}

const char *dovsys_homedir()
{
    if (home_known)
        return home.data();
    home_known = true;
    const char *value = get_logical("HOME", nullptr);
    if (value == nullptr)
        return home.data();
    c_strncpy(home.data(), value, static_cast<int>(home.size()) - 1);
    const std::string_view path(home.data());
    if (path.size() < std::strlen(value)) {
        std::perror("Problem in homedir(), in dovsys library...");
        std::exit(1);
    }
    if (path.empty() || !is_dir_separator(path.back()))
        home[path.size()] = dir_separator_for(path);
    return home.data();
}

void logicals_reset()
{
    home = {};
    home_known = false;
}
