#include "wi/wihlpfind.h"

#include "wi/wihlplib.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t levels = 10;
constexpr std::size_t part_length = 80;
constexpr std::size_t slot_length = 99;  // of a name in the key of a match
constexpr std::size_t shown_length = 46; // of a name in the list of subtopics
constexpr std::size_t tab_width = 8;
constexpr std::size_t column_width = 24;

using key_parts = std::vector<std::string>;

std::string upper(std::string_view text)
{
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), wi_hlp_upper);
    return out;
}

key_parts split(std::string_view key)
{
    key_parts parts;
    while (parts.size() < levels) {
        const std::size_t end = std::min(key.find(':'), key.size());
        parts.push_back(upper(key.substr(0, std::min(end, part_length))));
        if (end == key.size())
            break;
        key.remove_prefix(end + 1);
    }
    return parts;
}

std::string join(const key_parts &parts)
{
    std::string key = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i)
        key.append(":").append(parts[i]);
    return key;
}

// Appends the name without leading blanks and with runs of blanks collapsed; returns its length. A NUL would end the
// whole list where it is shown.
std::size_t append_shown(std::string &list, std::string_view name)
{
    const std::size_t start = list.size();
    bool blank = true; // in a run of blanks
    for (const char c : name.substr(0, name.find('\0'))) {
        if (c == ' ' && blank)
            continue;
        if (list.size() - start == shown_length)
            break;
        blank = c == ' ';
        list += c;
    }
    return list.size() - start;
}

std::string_view last_part(std::string_view key)
{
    return key.substr(key.rfind(':') + 1); // npos + 1 is 0
}

std::string_view without_last_part(std::string_view key)
{
    return key.substr(0, std::min(key.rfind(':'), key.size()));
}

// Searches run over blocks of places, in loops that compilers vectorise, and look closer only at blocks that may hold
// what is wanted.
constexpr std::size_t block = 64;

template <class Test>
bool any_in_block(const char *text, Test test)
{
    unsigned char any = 0;
    for (std::size_t i = 0; i < block; ++i)
        any = static_cast<unsigned char>(any | test(text + i));
    return any != 0;
}

// The first place from `from` on where `text` has what is wanted, upper case and not empty, in either case; else its
// size. A first look takes three characters without regard to the bit that is the case of letters: the last two, where
// names side by side tend to differ, and the first.
std::size_t find_folded(std::string_view text, std::string_view wanted, std::size_t from)
{
    const auto folded = [](char c) { return static_cast<char>(c | 0x20); };
    const std::size_t last = wanted.size() - 1;
    const std::size_t before = last - (last > 0);
    const char a = folded(wanted[0]);
    const char b = folded(wanted[before]);
    const char c = folded(wanted[last]);
    const auto may_be_at = [=](const char *p) {
        return ((folded(p[0]) ^ a) | (folded(p[before]) ^ b) | (folded(p[last]) ^ c)) == 0;
    };
    while (from + last < text.size()) {
        const std::size_t places = std::min(block, text.size() - last - from);
        if (places == block && !any_in_block(text.data() + from, may_be_at)) {
            from += block;
            continue;
        }
        for (const std::size_t end = from + places; from < end; ++from)
            if (may_be_at(text.data() + from) && wi_hlp_begins(text.substr(from), wanted))
                return from;
    }
    return text.size();
}

// The first line from the line start `from` on that begins so, or the table's size.
std::size_t find_line(std::string_view table, std::string_view beginning, std::size_t from)
{
    if (wi_hlp_begins(table.substr(from), beginning))
        return from;
    const std::string wanted = std::string("\n").append(beginning);
    return std::min(find_folded(table, wanted, from) + 1, table.size());
}

// The same for a line whose first character passes the test; `from` is not the table's first line.
template <class Test>
std::size_t find_line_where(std::string_view table, std::size_t from, Test test)
{
    const auto is_at = [=](const char *p) { return (static_cast<int>(p[-1] == '\n') & test(p[0])) != 0; };
    while (from < table.size() && !is_at(table.data() + from)) {
        std::size_t places = std::min(block, table.size() - from);
        if (places < block || any_in_block(table.data() + from, is_at))
            for (std::size_t i = 1; i < places; ++i)
                if (is_at(table.data() + from + i))
                    places = i;
        from += places;
    }
    return from;
}

// A line of level `deepest` or a higher one.
std::size_t find_shallow_line(std::string_view table, std::size_t deepest, std::size_t from)
{
    const char last = static_cast<char>('0' + deepest);
    return find_line_where(table, from,
                           [=](char c) { return static_cast<int>(c >= '0') & static_cast<int>(c <= last); });
}

// The lines up to the first that begins with no digit.
std::string_view sound_lines(std::string_view table)
{
    const auto is_foreign = [](char c) { return static_cast<int>(c < '0') | static_cast<int>(c > '9'); };
    if (table.empty() || is_foreign(table[0]))
        return {};
    return table.substr(0, find_line_where(table, 1, is_foreign));
}

std::size_t next_line(std::string_view table, std::size_t begin)
{
    return std::min(table.find('\n', begin), table.size() - 1) + 1;
}

std::optional<wi_hlp_line> line_at(std::string_view table, std::size_t begin)
{
    const std::size_t next = next_line(table, begin);
    const std::string_view line = table.substr(begin, next - begin - (table[next - 1] == '\n'));
    const std::size_t tab = line.rfind('\t');
    if (tab == std::string_view::npos || tab < 2 || !wi_hlp_is_digit(line[0]) || line[1] != ' ')
        return std::nullopt;
    return wi_hlp_line{next, static_cast<std::size_t>(line[0] - '0'), line.substr(2, tab - 2), line.substr(tab + 1)};
}

// The first topic of a level whose name begins with `part`, or is it, from the line start `begin` on, if there is no
// line one level above between it and the line start `from`; deeper jumps do not matter.
std::optional<wi_hlp_line> find_topic(std::string_view table, std::size_t from, std::size_t begin, std::size_t level,
                                      const std::string &part, bool whole)
{
    const auto digit = [](std::size_t of) { return std::string(1, static_cast<char>('0' + of)); };
    const std::string beginning = digit(level) + " " + part + (whole ? "\t" : "");
    while ((begin = find_line(table, beginning, begin)) < table.size()) {
        const std::optional<wi_hlp_line> line = line_at(table, begin);
        if (line && line->name.size() >= part.size() && (!whole || line->name.size() == part.size())) {
            const char above = static_cast<char>('0' + level - 1);
            const auto is_above = [above](char c) { return static_cast<int>(c == above); };
            const bool reached = level == 0 || find_line_where(table.substr(0, begin), from, is_above) == begin;
            return reached ? line : std::nullopt;
        }
        begin = next_line(table, begin);
    }
    return std::nullopt;
}

// Enters topic after topic; of the last one, which is in the line `first` or later, the whole name counts more than its
// beginning, unless that counts nothing. `entered` becomes the number of topics entered.
std::optional<wi_hlp_line> descend(std::string_view table, const key_parts &parts, std::size_t first, bool beginnings,
                                   std::size_t &entered)
{
    std::size_t from = 0;
    const std::size_t last = parts.size() - 1;
    for (entered = 0; entered < last; ++entered) {
        const auto line = find_topic(table, from, from, entered, parts[entered], false);
        if (!line)
            return std::nullopt;
        from = line->next;
    }
    const auto line = find_topic(table, from, std::max(from, first), last, parts[last], false);
    if (!line || line->name.size() == parts[last].size())
        return line;
    const auto whole = find_topic(table, from, line->next, last, parts[last], true);
    return whole || !beginnings ? whole : line;
}

// The name in the line at `begin`, as far as the key of a match holds it; empty for what is no line of a table.
std::string_view slot_name(std::string_view table, std::size_t begin)
{
    const std::optional<wi_hlp_line> line = line_at(table, begin);
    return line ? line->name.substr(0, slot_length) : std::string_view();
}

// The topics above a line of a table, for lines in increasing order. Of each level the lines are looked at once.
class topics_above {
public:
    explicit topics_above(std::string_view lines) : table(lines) {}

    // Names of the topics above the line at `begin` and of its own, joined with colons.
    std::string key_of(std::size_t begin)
    {
        const auto level = static_cast<std::size_t>(table[begin] - '0');
        if (level > 0)
            look_on(begin, level - 1);
        latest[level] = begin;
        std::string key;
        for (std::size_t i = 0; i <= level; ++i)
            key.append(i > 0 ? ":" : "").append(latest[i] ? slot_name(table, *latest[i]) : "");
        return key;
    }

private:
    // Notes the latest lines before `begin` of the levels down to `deepest`.
    void look_on(std::size_t begin, std::size_t deepest)
    {
        std::size_t from = looked_at[deepest];
        if (from == 0 && begin > 0)
            latest[static_cast<std::size_t>(table[0] - '0')] = 0;
        while ((from = find_shallow_line(table.substr(0, begin), deepest, from + 1)) < begin)
            latest[static_cast<std::size_t>(table[from] - '0')] = from;
        std::fill_n(looked_at.begin(), deepest + 1, begin);
    }

    std::string_view table;
    std::array<std::optional<std::size_t>, levels> latest; // line of each level
    std::array<std::size_t, levels> looked_at{};           // how far lines of each level are noted
};

void prefer(std::vector<std::string> &matches, std::string_view key)
{
    const std::string preferred =
        upper(std::string(without_last_part(without_last_part(key))).append(":").append(last_part(key)));
    const auto same = std::find_if(matches.begin(), matches.end(), [&](const std::string &m) {
        return m.size() == preferred.size() && wi_hlp_begins(m, preferred);
    });
    if (same != matches.end())
        std::swap(*same, matches.front());
}

} // namespace

bool wi_hlp_begins(std::string_view text, std::string_view upper)
{
    if (text.size() < upper.size())
        return false;
    // From the end: names side by side tend to differ there.
    for (std::size_t i = upper.size(); i > 0; --i)
        if (wi_hlp_upper(text[i - 1]) != upper[i - 1])
            return false;
    return true;
}

wi_hlp_place wi_hlp_find(std::string_view table, std::string_view key)
{
    key_parts parts = split(key);
    wi_hlp_place place{std::nullopt, parts.back(), "", 0};
    // Every way to a topic ends at the last part, and most keys without a topic have one that is nowhere.
    const std::size_t first = place.keyword.empty() ? 0 : find_folded(table, place.keyword, 0);
    if (wi_hlp_begins(last_part(key), place.keyword)) // not so when the key has more parts than count
        place.first = first;
    if (!place.keyword.empty() && first == table.size())
        return place;
    const std::size_t first_line = table.rfind('\n', first) + 1;
    std::size_t entered = levels; // by the try before, which this one follows in all but its last two parts
    for (std::size_t fallbacks = 0;; ++fallbacks) {
        const bool last_try = fallbacks > 1 || parts.size() == 1;
        if (fallbacks == 0 || entered >= parts.size() - 2)
            place.line = descend(table, parts, first_line, !last_try, entered);
        if (place.line && fallbacks > 0)
            place.fallback = join(parts);
        if (place.line || last_try)
            return place;
        parts.resize(2 - fallbacks);
        parts.insert(parts.end(), {"DEFAULT", place.keyword});
    }
}

std::string wi_hlp_subtopics(std::string_view table, const wi_hlp_line &topic)
{
    std::string list;
    std::size_t taken = 0; // of the last line of the list
    for (std::size_t begin = topic.next; (begin = find_shallow_line(table, topic.level + 1, begin)) < table.size();) {
        const std::optional<wi_hlp_line> line = line_at(table, begin++);
        if (!line)
            continue;
        if (line->level <= topic.level)
            break;
        const std::size_t length = append_shown(list, line->name);
        const std::size_t width = length < column_width - 1 ? column_width : 2 * column_width;
        list.append((width - length + tab_width - 1) / tab_width, '\t');
        taken += width;
        if (taken >= 3 * column_width) {
            list += '\n';
            taken = 0;
        }
        begin = line->next;
    }
    return list;
}

std::vector<std::string> wi_hlp_search(std::string_view table, std::string_view key, std::size_t first)
{
    std::vector<std::string> matches;
    const std::string keyword = upper(last_part(key));
    if (keyword.empty() || first == table.size())
        return matches;
    table = sound_lines(table);
    topics_above above(table);
    std::size_t place = find_folded(table, keyword, std::min(first, table.size()));
    while (place < table.size() && matches.size() < wi_hlp_match_limit) {
        const std::size_t begin = table.substr(0, place + 1).rfind('\n') + 1; // npos + 1 is 0
        std::size_t from = begin + 2;                                         // where the name begins
        if (place >= from) {
            if (place + keyword.size() <= from + slot_name(table, begin).size())
                matches.push_back(above.key_of(begin).substr(0, wi_hlp_match_length));
            from = next_line(table, begin);
        }
        place = find_folded(table, keyword, from);
    }
    if (matches.size() > 1)
        prefer(matches, key);
    return matches;
}
