// Journal files without their objects; wijournal.h has the layout. Files are outside data: whatever they contain, they
// are read within their bounds.
#pragma once

#include "wi/wihlpfile.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What the bytes of a record depend on in its objects.
enum class wi_journal_kind : unsigned char { plain, with_value, with_mouse };

struct wi_journal_mouse_state {
    std::int32_t x = 0, y = 0;
    std::array<std::int32_t, 3> buttons{};
};

struct wi_journal_value {
    std::int32_t object;
    std::string_view text;
};

struct wi_journal_record {
    std::vector<wi_journal_value> values;
    std::int32_t object = 0, action = 0;
    std::optional<wi_journal_mouse_state> mouse; // of a drawing area
    std::string_view own_value;
    std::int32_t number = 0; // counted from 1
};

// ---- writing ----

// The bytes of a record, behind those in `out`; and those of the stamp before the first one.
void wi_journal_put_stamp(std::string &out, std::string_view stamp);
void wi_journal_put_record(std::string &out, const wi_journal_record &record);

// The bytes as text mode stores them: a carriage return before each line feed.
std::string wi_journal_text_mode(std::string_view bytes);

// Stores `bytes`, which are in text mode, at the end of the file or (`anew`) as all of it. When that fails, a file that
// could be opened is as long as before, or empty when anew.
bool wi_journal_append(const char *name, bool anew, std::string_view bytes);

// The record as the debugging mirror shows it.
std::string wi_journal_mirror_text(const wi_journal_record &record);

// ---- reading ----

// A file that is read into memory, so that what is written to it meanwhile does no harm.
struct wi_journal_file {
    wi_hlp_bytes bytes;
    std::size_t at = 0;    // the next byte
    std::int32_t read = 0; // records so far
    bool at_end() const { return at == bytes.size; }
};

// The file, read up to the first record, and its stamp, which lies in `file`. Not the same: no stamp is a damaged file.
bool wi_journal_open(const char *name, wi_journal_file &file);
bool wi_journal_read_stamp(wi_journal_file &file, std::string_view &stamp);

// The next record; false, and nothing read, at the end and when it is damaged. `kinds` are those of the objects in
// their order. An index from there on up to `most` is that of an object which is not there, plain as far as is known;
// its value is passed over. Texts lie in `file` and are cut to wi_journal_value_limit.
bool wi_journal_next(wi_journal_file &file, std::span<const wi_journal_kind> kinds, std::int32_t most,
                     wi_journal_record &record);

// ---- texts ----

// The list of a journal's records ends with the last line that fits the page it is shown on. Records behind it count
// and are replayed as all others.
constexpr std::size_t wi_journal_list_limit = 850'000; // characters; with two for each line feed, below a page's size
constexpr std::string_view wi_journal_list_head = "Entry\tDescription\n-------------------------\n";

// Adds the line of the record with so many before it, if it fits; the line, or empty.
std::string_view wi_journal_list_add(std::string &list, std::int32_t before, std::string_view label);

// Reads all records that are left. `labels` are those of the objects; one without has no line. `sound` is false when
// the file goes on behind the last record that could be read.
struct wi_journal_listing {
    std::string text;
    bool sound;
};
wi_journal_listing wi_journal_list(wi_journal_file &file, std::span<const wi_journal_kind> kinds,
                                   std::span<const std::optional<std::string>> labels);

// The message below the text that is shown, which may be empty; alone when both would take 2000 characters.
std::string wi_journal_add_message(std::string_view shown, std::string_view message);

// Breaks each line at the first blank behind 49 characters; `lines` counts all of them.
struct wi_journal_wrapped {
    std::string text;
    int lines;
};
wi_journal_wrapped wi_journal_wrap(std::string_view text);

// The command that copies a file, for the system's interpreter.
std::string wi_journal_copy_command(std::string_view from, std::string_view to);
