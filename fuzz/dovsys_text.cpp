// Editing in buffers of exactly the promised size, and numbers that read back as what they were written from.

#include "fuzz.h"

#include "dovsys/dovsys.h"

#include <cmath>
#include <cstring>

namespace {

void check_number(double value)
{
    const double fixed_step = 0.501e-12; // half a unit of the last decimal, and what reading loses
    const double read = std::strtod(c_sfmtd(value), nullptr);
    if (std::isfinite(value) && std::fabs(value) < 1e300)
        require(std::fabs(read - value) <= std::max(fixed_step, std::fabs(value) * 1e-13));
    require(std::strlen(c_sfmtf(value)) < 19);
}

jmalloc_ptr<char> in_buffer(const std::string &text, int size)
{
    return jmalloc_ptr<char>(c_strncpy(c_mkstrn(size), text.c_str(), size));
}

void check_editing(const std::string &text, int size)
{
    const auto expanded = in_buffer(text, size);
    c_ridtab(expanded.get(), size);
    require(std::strlen(expanded.get()) < static_cast<std::size_t>(size));
    require(std::strchr(expanded.get(), '\t') == nullptr);

    const auto padded = in_buffer(text, size);
    require(std::strlen(c_setstrlen(padded.get(), size - 1)) == static_cast<std::size_t>(size - 1));

    const auto trimmed = in_buffer(text, size);
    c_strncat(c_ridedgews(trimmed.get()), text.c_str(), size);
    require(std::strlen(trimmed.get()) < static_cast<std::size_t>(size));
}

} // namespace

// A double, a buffer size and a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    double value = 0;
    if (size < sizeof value + 1)
        return 0;
    std::memcpy(&value, data, sizeof value);
    check_number(value);
    check_editing(text_of(data + sizeof value + 1, data + size), data[sizeof value] + 1);
    return 0;
}
