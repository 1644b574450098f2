#include "msgtext.h"

#include <cstddef>

namespace {

constexpr int margin = 50;

void put_char(msgtext &text, char c)
{
    const auto at = static_cast<std::size_t>(text.lastj);
    if (at + 1 < text.str.size()) {
        text.str[at] = c;
        text.str[at + 1] = '\0';
        text.lastj++;
    }
}

} // namespace

void msgtext_put(msgtext &text, std::string_view s, bool append)
{
    if (!append || s.size() + static_cast<std::size_t>(text.lastj) >= text.str.size()) {
        text.lastj = text.lastnl = 0;
        text.str[0] = '\0';
    } else if (!s.empty()) {
        put_char(text, '\n');
        put_char(text, '\n');
        text.lastnl += 2;
    }
    int column = 0;
    for (const char c : s.substr(0, text.str.size())) {
        const bool at_break = ++column >= margin && (c == ' ' || c == '\n');
        put_char(text, at_break ? '\n' : c);
        if (at_break) {
            column = 0;
            text.lastnl++;
        }
    }
}

int msgtext_height(const msgtext &text)
{
    return 5 * text.lastnl + 140;
}
