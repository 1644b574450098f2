// Changing the text of a topic in its library.

#include "wi/wihlpfile.h"
#include "wi/wihlplib.h"

#include <algorithm>

namespace {

constexpr std::size_t edit_limit = 1000000; // libraries and results are below it

// A library as topics are shown from it: line feeds only, no comment lines.
struct shown_library {
    std::string text;
    std::vector<std::size_t> past{0};       // offset in the file behind so many characters of `text`
    std::vector<std::string_view> comments; // lines, of the file
};

shown_library show(std::string_view file)
{
    shown_library shown;
    for (std::size_t i = 0; i < file.size();) {
        if (file[i] == '!' && (shown.text.empty() || shown.text.back() == '\n')) {
            const std::size_t end = std::min(file.find('\n', i), file.size() - 1) + 1;
            shown.comments.push_back(file.substr(i, end - i));
            i = end;
            continue;
        }
        if (file.substr(i, 2) == "\r\n")
            ++i;
        shown.text += file[i];
        shown.past.push_back(++i);
    }
    return shown;
}

std::string with_line_ends(std::string_view text, bool crlf)
{
    std::string out;
    for (const char c : text)
        if (c == '\n' && crlf)
            out += "\r\n";
        else
            out += c;
    return out;
}

// `new_text` in place of the characters from `begin` to `end` of the file, with their comment lines below its first.
std::string replaced(std::string_view file, const shown_library &shown, std::size_t begin, std::size_t end,
                     std::string_view new_text)
{
    const bool crlf = wi_hlp_is_crlf(file);
    const std::size_t first_line = std::min(new_text.find('\n'), new_text.size() - 1) + 1;
    std::string out(file.substr(0, begin));
    out += with_line_ends(new_text.substr(0, first_line), crlf);
    for (const std::string_view comment : shown.comments)
        if (comment.data() >= file.data() + begin && comment.data() < file.data() + end)
            out += comment;
    out += with_line_ends(new_text.substr(first_line), crlf);
    return out.append(file.substr(end));
}

// The library after the replacement, or a message.
bool edit(const std::string &library, std::string_view old_text, std::string_view new_text, std::string &result)
{
    wi_hlp_bytes bytes;
    if (!wi_hlp_read_all(library.c_str(), bytes)) {
        result = "Unable to open file " + library + " for reading!";
        return false;
    }
    // A text of full length was cut where it is not known to end.
    if (bytes.size >= edit_limit || old_text.size() >= wi_hlp_text_limit) {
        result = "Not enough space in buffer to edit!";
        return false;
    }
    const shown_library shown = show(bytes.view());
    const std::size_t at = shown.text.find(old_text);
    if (old_text.empty() || at == std::string::npos) {
        result = "Unable to find the topic in file " + library + "!";
        return false;
    }
    result = replaced(bytes.view(), shown, shown.past[at], shown.past[at + old_text.size()], new_text);
    if (result.size() < edit_limit)
        return true;
    result = "Not enough space in buffer to edit!";
    return false;
}

} // namespace

std::string wi_hlp_edited_text(std::string_view page)
{
    const std::size_t list = page.find("Additional information available:");
    std::string text(page.substr(0, list));
    if (list == std::string_view::npos)
        text.resize(text.find_last_not_of("\t \n") + 1);
    else if (text.ends_with("\n\n\n"))
        text.pop_back(); // it came with the list
    while (!text.ends_with("\n\n"))
        text += '\n';
    return text;
}

int wi_hlp_replace(const char *library, std::string_view old_text, std::string_view new_text, std::string &message)
{
    const std::string name = library ? library : "";
    std::string result;
    const bool edited = edit(name, old_text, new_text, result);
    if (edited && wi_hlp_write(name, result))
        return 1;
    message = edited ? "Unable to open file " + name + " for writing!" : result;
    return 0;
}
