#include "wi/wihlplib.h"

#include "wi/wihlpfile.h"
#include "wi/wihlpfind.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::size_t first_part = 16384; // of a library that is read for a topic; holds nearly every topic

// Copies a topic's text, which `source` begins with, up to the next header and without comment lines; false when it may
// go on behind `source`. A NUL ends it as well, since nothing behind one could be shown or edited.
bool take_topic(std::string_view source, std::string &text)
{
    text.clear();
    int feeds = 0;
    for (std::size_t i = 0; i < source.size() && text.size() < wi_hlp_text_limit; ++i) {
        const char c = source[i];
        if (c == '\0' || (feeds >= 2 && wi_hlp_is_digit(c)))
            return true;
        if (feeds > 0 && c == '!') {
            i = std::min(source.find('\n', i), source.size());
            feeds = 1;
            continue;
        }
        feeds = c == '\n' ? feeds + 1 : 0;
        text += c;
    }
    return text.size() == wi_hlp_text_limit;
}

// Positions are offsets in the file unless lines end in CR LF.
bool is_seekable(std::FILE *library)
{
    wi_hlp_bytes start;
    if (!wi_hlp_read_part(library, 0, 4096, start))
        return false;
    return start.view().find('\n') != std::string_view::npos && !wi_hlp_is_crlf(start.view());
}

std::string read_by_seeking(std::FILE *library, std::size_t position)
{
    std::string text;
    wi_hlp_bytes part;
    for (std::size_t most = first_part; wi_hlp_read_part(library, position, most, part); most *= 8) {
        const bool at_end = part.size < most;
        wi_hlp_text_mode(part);
        if (take_topic(part.view(), text) || at_end)
            break;
    }
    return text;
}

std::string read_from_start(std::FILE *library, std::size_t position)
{
    std::string text;
    wi_hlp_bytes all;
    if (!wi_hlp_read_all(library, all))
        return text;
    wi_hlp_text_mode(all);
    if (position <= all.size)
        take_topic(all.view().substr(position), text);
    return text;
}

// A library without a table gets one.
bool read_contents(const std::string &library, wi_hlp_bytes &table)
{
    const std::string name = library + ".tofc";
    if (!wi_hlp_read_all(name.c_str(), table) && !(mktofc(library.c_str()) && wi_hlp_read_all(name.c_str(), table)))
        return false;
    wi_hlp_text_mode(table);
    return true;
}

std::optional<std::size_t> position_of(const wi_hlp_line &line)
{
    const char *end = line.position.data() + line.position.size();
    std::size_t position = 0;
    const auto [past, error] = std::from_chars(line.position.data(), end, position);
    if (error != std::errc() || past != end || position > wi_hlp_file_limit)
        return std::nullopt;
    return position;
}

// The answer for a topic; false when the library has another text there. The second time the library is read from its
// start, which finds the place even where only some lines end in CR LF.
bool answer_topic(std::FILE *library, std::string_view table, const wi_hlp_place &place, bool second_time,
                  wi_hlp_answer &answer)
{
    const std::optional<std::size_t> position = position_of(*place.line);
    if (!position)
        return false;
    const bool seek = !second_time && is_seekable(library);
    answer.text = seek ? read_by_seeking(library, *position) : read_from_start(library, *position);
    if (!wi_hlp_begins(answer.text, place.keyword))
        return false;
    answer.saved = answer.text;
    const std::string subtopics = wi_hlp_subtopics(table, *place.line);
    if (!subtopics.empty())
        answer.text.append("\nAdditional information available:\n\n").append(subtopics);
    return true;
}

void answer_search(std::string_view table, const wi_hlp_place &place, wi_hlp_answer &answer)
{
    answer.matches = wi_hlp_search(table, answer.key, place.first);
    answer.what = answer.matches.empty() ? wi_hlp_answer::nothing : wi_hlp_answer::by_keyword;
    answer.too_many = answer.matches.size() == wi_hlp_match_limit;
    answer.text = "No information available for " + place.keyword;
}

// False when the table is stale.
bool look_up(const std::string &library, std::string_view key, bool second_time, wi_hlp_answer &answer)
{
    answer.key = key;
    const wi_hlp_file file = wi_hlp_open(library.c_str());
    if (!file) {
        answer.what = wi_hlp_answer::no_library;
        answer.text = "Unable to open file " + library + " for reading!";
        return true;
    }
    wi_hlp_bytes table;
    if (!read_contents(library, table)) {
        answer.what = wi_hlp_answer::no_contents;
        answer.text = "Unable to read the help lib table of contents, wihlp.c";
        return true;
    }
    const wi_hlp_place place = wi_hlp_find(table.view(), key);
    if (!place.line) {
        answer_search(table.view(), place, answer);
        return true;
    }
    if (!place.fallback.empty())
        answer.key = place.fallback.substr(0, wi_hlp_key_limit);
    return answer_topic(file.get(), table.view(), place, second_time, answer);
}

} // namespace

wi_hlp_answer wi_hlp_lookup(const char *library, const char *key)
{
    const std::string name = library ? library : "";
    const std::string_view shown_key = std::string_view(key ? key : "").substr(0, wi_hlp_key_limit);
    wi_hlp_answer answer;
    bool sound = look_up(name, shown_key, false, answer);
    if (!sound) {
        mktofc(name.c_str());
        sound = look_up(name, shown_key, true, answer);
    }
    if (!sound)
        answer.text = "ERROR(wihlp.c): Make new table of contents with mktofc!";
    return answer;
}

bool wi_hlp_label_key(const char *prognm, const char *label, std::string &key)
{
    std::string_view name = label ? label : ":";
    if (name.substr(0, 1) == ":" || name.find("::") != std::string_view::npos)
        return false;
    if (!name.empty() && name.back() == ':')
        name.remove_suffix(1);
    key = std::string(prognm ? prognm : "default").append(":").append(name);
    return true;
}

std::string wi_hlp_lower(std::string_view text)
{
    std::string out(text);
    for (char &c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

wi_hlp_wrapped wi_hlp_wrap(std::string_view message)
{
    wi_hlp_wrapped wrapped{std::string(message), 0};
    int placed = 0;
    for (char &c : wrapped.text) {
        if (placed++ < 30 || (c != ' ' && c != '\n'))
            continue;
        c = '\n';
        placed = 0;
        ++wrapped.breaks;
    }
    return wrapped;
}
