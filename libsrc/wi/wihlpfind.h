// Finding topics in a table of contents, whose lines end in line feeds. What is not a line of such a table names no
// topic.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

constexpr char wi_hlp_upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool wi_hlp_is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// `text` begins with `upper`, which is in upper case.
bool wi_hlp_begins(std::string_view text, std::string_view upper);

// A line of a table of contents: level digit, blank, name, tab, position. Names may hold tabs: the last one of the line
// ends the name.
struct wi_hlp_line {
    std::size_t next; // where the line after it begins
    std::size_t level;
    std::string_view name;
    std::string_view position;
};

struct wi_hlp_place {
    std::optional<wi_hlp_line> line;
    std::string keyword;  // the key's last part in upper case
    std::string fallback; // the key that was used in place of the one looked up, or empty
    std::size_t first;    // before this place of the table wi_hlp_search finds nothing
};

// Looks the topic up level by level. A part of the key other than the last matches every name that begins with it, and
// the first such topic is entered. The last one has to be the whole name, or failing that its beginning. A key without
// a topic is tried as <first part>:<second>:DEFAULT:<last>, then as <first part>:DEFAULT:<last>.
// Of a key ten parts count, of each 80 characters.
wi_hlp_place wi_hlp_find(std::string_view table, std::string_view key);

// The names of the topics one level below, in three columns of 24 characters. A name of 23 characters or more takes two
// columns, and so makes the line longer when two are taken. Empty without subtopics.
std::string wi_hlp_subtopics(std::string_view table, const wi_hlp_line &line);

// The keys of the topics whose names contain the last part of the key, at most wi_hlp_match_limit. The one that is
// nearest to the key comes first: <key without its last two parts>:<last>. An empty part is contained nowhere. The
// search ends at a line that begins with no digit. `first` is what wi_hlp_find has told, or 0.
std::vector<std::string> wi_hlp_search(std::string_view table, std::string_view key, std::size_t first);
