// Help libraries without their windows: look-up, editing, and the rules for texts. Libraries and their tables are read
// whatever they contain; what they cannot answer is "nothing".
//
// Null texts are empty. Case is ASCII.
#pragma once

#include "wi/wihlptofc.h"

#include <string>
#include <string_view>
#include <vector>

// ---- look-up ----

constexpr int wi_hlp_key_limit = 199;    // characters of a key; more is cut
constexpr int wi_hlp_match_limit = 40;   // topics that a search by keyword gives
constexpr int wi_hlp_match_length = 119; // characters of each; more is cut
constexpr int wi_hlp_text_limit = 9999;  // characters of a topic's text; more is cut

struct wi_hlp_answer {
    enum kind { topic, by_keyword, nothing, no_library, no_contents } what = topic;

    // topic: what is shown, the list of its subtopics included. no_library, no_contents: the message. nothing and
    // by_keyword: "No information available for <keyword>", for by_keyword due when the key was itself one of the
    // matches: not every one leads to its topic (a name may hold a colon, or be cut).
    std::string text;

    std::string saved; // topic: its text alone, for wi_hlp_replace; empty when the table is wrong even if made anew
    std::string key;   // as given, cut, or in upper case the one that was used in its place

    std::vector<std::string> matches; // keys, the one nearest to the key looked up first
    bool too_many = false;            // as many as there can be: reading stopped there, and the user is told
};

// Looks the key up in the library, and the last of its parts as a keyword when it names no topic. A missing or stale
// table of contents is made anew.
wi_hlp_answer wi_hlp_lookup(const char *library, const char *key);

// ---- editing ----

// The topic's text on a page that shows it: up to the list of subtopics and its line feed, or without blanks, tabs and
// line feeds at its end. It ends in two line feeds at least, which the next header needs.
std::string wi_hlp_edited_text(std::string_view page);

// Replaces the first place where the library shows `old_text`, a topic's text as looked up, and returns 1. Comment
// lines in between stay, below the first line. The library keeps its kind of line ends. After a failure it is as it
// was, `message` is what to tell the user, and the result is 0. The table of contents is the caller's to make anew.
int wi_hlp_replace(const char *library, std::string_view old_text, std::string_view new_text, std::string &message);

// ---- texts ----

// The key of an object with this label; false for a label that gets no help: null, one that begins with a colon, one
// with two colons in a row. A single colon at its end does not count. A null `prognm` is "default".
bool wi_hlp_label_key(const char *prognm, const char *label, std::string &key);

// A to Z in lower case.
std::string wi_hlp_lower(std::string_view text);

// A message in lines: behind 30 characters of a line the next blank or line feed becomes a line break. Earlier line
// feeds stay and are not counted.
struct wi_hlp_wrapped {
    std::string text;
    int breaks;
};
wi_hlp_wrapped wi_hlp_wrap(std::string_view message);
