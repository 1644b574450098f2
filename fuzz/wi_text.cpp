// The command line and the numbers of display fields: the words are the text's without its white space, and what is
// shown is short, trimmed and the number again.
#include "fuzz.h"

#include "dovsys/dovsys.h"
#include "wi/wicmdline.h"
#include "wi/wistate.h"
#include "wi/wiutil.h"

#include <cmath>
#include <cstring>

namespace {

void split(const std::string &line)
{
    wi_reset_command_line();
    int argc = 0;
    char **argv = nullptr;
    parsecommandline(line.c_str(), &argc, &argv);
    std::string joined, kept;
    for (int i = 0; i <= argc; ++i) {
        require(i == 0 || *argv[i]);
        joined += i == 0 ? "" : argv[i];
        jfree(argv[i]);
    }
    jfree(argv);
    std::copy_if(line.begin(), line.end(), std::back_inserter(kept), [](char c) { return !iswhitespace(c); });
    require(joined == kept);
}

void format(double value, int decimals)
{
    char text[40];
    wi_format(text, value, decimals);
    const std::size_t length = std::strlen(text);
    require(length > 0 && length < 32 && text[0] != ' ' && text[length - 1] != ' ');
    const double shown = std::strtod(text, nullptr);
    if (std::isfinite(value) && std::isfinite(shown)) // one digit may round beyond the range
        require(std::fabs(shown - value) <= std::fmax(0.51, std::fabs(value) * 0.51));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    split(text_of(data, data + size));
    double value = 0;
    if (size > sizeof value) {
        std::memcpy(&value, data, sizeof value);
        format(value, static_cast<std::int8_t>(data[sizeof value]));
    }
    return 0;
}
