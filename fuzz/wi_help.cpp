// Help libraries and their tables of contents: the quick ways to find a topic, to search and to make a table agree with
// the rules read literally, and no answer is beyond its limits.
#include "fuzz.h"

#include "wi/wihlpfile.h"
#include "wi/wihlpfind.h"
#include "wi/wihlplib.h"

#include <array>
#include <filesystem>
#include <vector>

namespace {

std::string upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), wi_hlp_upper);
    return text;
}

std::vector<std::string> split(const std::string &text, char at)
{
    std::vector<std::string> parts(1);
    for (const char c : text)
        if (c == at)
            parts.emplace_back();
        else
            parts.back() += c;
    return parts;
}

struct line {
    bool named;
    char digit;
    std::string name;
};

std::vector<line> lines_of(const std::string &table)
{
    std::vector<line> lines;
    for (const std::string &text : split(table, '\n')) {
        const std::size_t tab = text.rfind('\t');
        const bool named = tab != std::string::npos && tab >= 2 && wi_hlp_is_digit(text[0]) && text[1] == ' ';
        lines.push_back({named, text.empty() ? '\n' : text[0], named ? text.substr(2, tab - 2) : ""});
    }
    return lines;
}

// The name that one reading of the table finds.
std::optional<std::string> pass(const std::vector<line> &lines, const std::vector<std::string> &parts, bool beginning)
{
    std::size_t level = 0;
    for (const line &l : lines) {
        const auto digit = static_cast<std::size_t>(l.digit - '0');
        if (level > 0 && digit == level - 1)
            return std::nullopt;
        if (!l.named || digit != level || upper(l.name).substr(0, parts[level].size()) != parts[level])
            continue;
        if (level + 1 < parts.size())
            ++level;
        else if (beginning || l.name.size() == parts[level].size())
            return l.name;
    }
    return std::nullopt;
}

std::optional<std::string> find(const std::vector<line> &lines, const std::string &key)
{
    std::vector<std::string> parts = split(upper(key), ':');
    parts.resize(std::min<std::size_t>(parts.size(), 10));
    for (std::string &part : parts)
        part.resize(std::min<std::size_t>(part.size(), 80));
    const std::string keyword = parts.back();
    for (std::size_t tried = 0;; ++tried) {
        if (const auto name = pass(lines, parts, false))
            return name;
        if (tried > 1 || parts.size() == 1)
            return std::nullopt;
        if (const auto name = pass(lines, parts, true))
            return name;
        parts.resize(2 - tried);
        parts.insert(parts.end(), {"DEFAULT", keyword});
    }
}

std::vector<std::string> search(const std::vector<line> &lines, const std::string &keyword)
{
    std::vector<std::string> found;
    std::array<std::string, 10> slots;
    for (const line &l : lines) {
        if (!wi_hlp_is_digit(l.digit) || found.size() == 40 || keyword.empty())
            break;
        const auto level = static_cast<std::size_t>(l.digit - '0');
        slots[level] = l.name.substr(0, 99);
        if (upper(slots[level]).find(keyword) == std::string::npos)
            continue;
        std::string key = slots[0];
        for (std::size_t i = 1; i <= level; ++i)
            key += ":" + slots[i];
        found.push_back(key.substr(0, 119));
    }
    return found;
}

void look_for(const std::string &table, const std::string &key)
{
    const std::vector<line> lines = lines_of(table);
    const wi_hlp_place place = wi_hlp_find(table, key);
    const auto name = find(lines, key);
    require(place.line.has_value() == name.has_value() && (!name || place.line->name == *name));
    if (place.line)
        require(wi_hlp_subtopics(table, *place.line).size() <= 7 * table.size());
    std::vector<std::string> expected = search(lines, split(upper(key), ':').back());
    std::vector<std::string> found = wi_hlp_search(table, key, place.first); // the nearest one first
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    require(found == expected);
}

std::string contents_of(const std::string &text)
{
    std::string table;
    for (std::size_t i = 3; i < text.size(); ++i) {
        if (text[i] != ' ' || text[i - 3] != '\n' || text[i - 2] != '\n' || !wi_hlp_is_digit(text[i - 1]))
            continue;
        const std::string name = text.substr(i + 1, text.find('\n', i) - i - 1);
        table += text[i - 1] + (" " + name) + "\t" + std::to_string(i) + "\n"; // without the line feed before the text
    }
    return table;
}

wi_hlp_bytes read(const std::string &name)
{
    wi_hlp_bytes bytes;
    require(wi_hlp_read_all(name.c_str(), bytes));
    return bytes;
}

wi_hlp_answer answer(const std::string &library, const std::string &key)
{
    wi_hlp_answer a = wi_hlp_lookup(library.c_str(), key.c_str());
    require(a.key.size() <= 199 && a.saved.size() <= 9999 && a.matches.size() <= 40);
    require(a.matches.empty() == (a.what != wi_hlp_answer::by_keyword) && a.text.starts_with(a.saved));
    return a;
}

} // namespace

// A key, a table and a library, each ended by the first byte of value 1.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(data, data + size);
    const std::size_t key_end = std::min(input.find('\1'), size);
    const std::size_t table_end = std::min(input.find('\1', std::min(key_end + 1, size)), size);
    const std::string key = input.substr(0, std::min<std::size_t>(key_end, 199));
    const std::string table = input.substr(std::min(key_end + 1, size), table_end - std::min(key_end + 1, table_end));
    look_for(table, key);

    static const std::string library = (std::filesystem::temp_directory_path() / "wi_help_fuzz.hlp").string();
    require(wi_hlp_write(library, input.substr(std::min(table_end + 1, size))));
    require(wi_hlp_write(library + ".tofc", table));
    answer(library, key);
    require(mktofc(library.c_str()));
    wi_hlp_bytes text = read(library);
    wi_hlp_text_mode(text);
    const wi_hlp_bytes made = read(library + ".tofc");
    require(made.view() == contents_of("\n" + std::string(text.view())));
    look_for(std::string(made.view()), key);
    const wi_hlp_answer a = answer(library, key);
    std::string message;
    if (a.what == wi_hlp_answer::topic && !a.saved.empty() && a.saved.size() < 9999)
        require(wi_hlp_replace(library.c_str(), a.saved, wi_hlp_edited_text(key + a.text), message));
    answer(library, key);
    return 0;
}
