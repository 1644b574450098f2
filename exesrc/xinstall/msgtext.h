// The text of the message pop-up: messages one below the other, broken into lines, in a buffer of fixed size.
#pragma once

#include <array>
#include <string_view>

struct msgtext {
    std::array<char, 2000> str; // the text, always terminated, so 1999 characters at most
    int lastj;                  // characters in use
    int lastnl;                 // lines that were broken at the margin, and the blank lines between messages
};

// Puts `s` into the text: below what is there, after a blank line, when `append` is set and there is room, else in
// place of it. A blank or line feed from the 50th character of a line on becomes a line break; earlier line feeds stay
// and are not counted. What does not fit is cut. An empty `s` appends nothing.
void msgtext_put(msgtext &text, std::string_view s, bool append);

// The height that the pop-up takes for the text, in the units of wi_size.
int msgtext_height(const msgtext &text);
