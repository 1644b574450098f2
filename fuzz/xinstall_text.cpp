// The pop-up's text and the splitting of arguments, over words and messages of any kind.
#include "xinstall/misc.h"
#include "xinstall/msgtext.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void put(msgtext &text, const std::string &s, bool append)
{
    msgtext_put(text, s, append);
    const std::string shown = text.str.data();
    require(shown.size() == static_cast<std::size_t>(text.lastj) && shown.size() < text.str.size());
    require(text.lastnl >= 0 && msgtext_height(text) >= 140);
    if (shown.size() + 1 == text.str.size())
        return; // cut
    // What is new stands at the end, but for its line breaks.
    for (std::size_t i = 0; i < s.size(); i++) {
        const char c = shown[shown.size() - s.size() + i];
        require(c == s[i] || (c == '\n' && s[i] == ' '));
    }
}

void split(std::vector<std::string> &args)
{
    std::vector<char *> argv;
    for (std::string &arg : args)
        argv.push_back(arg.data());
    std::array<std::array<char, 200>, 2> buffers;
    std::array<char *, 2> words = {buffers[0].data(), buffers[1].data()};
    const int n = parse_args(argv.data(), static_cast<int>(args.size()) - 1, words.data());
    require(n >= 0 && n <= 2);
    for (int i = 0; i < n; i++)
        require(std::strlen(words[static_cast<std::size_t>(i)]) < 200 &&
                !std::strchr(words[static_cast<std::size_t>(i)], '"'));
}

} // namespace

// The bytes between NULs are the messages, and the arguments.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::vector<std::string> parts(1);
    for (const char c : std::string(reinterpret_cast<const char *>(data), size))
        if (c)
            parts.back() += c;
        else
            parts.emplace_back();
    msgtext text{};
    for (const std::string &part : parts)
        put(text, part, part.size() % 3 != 0);
    split(parts);
    return 0;
}
