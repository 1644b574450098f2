// The parser's tokens as views of the text, for who has the whole formula in hand: nothing is copied, and parentheses
// are matched once.
#pragma once

#include <cstdint>
#include <string_view>

#include "wi/spparse.h"
#include "wi/spvar.h"

constexpr std::uint32_t sp_no_match = UINT32_MAX;

// For each "(" of the text the place of its ")" in `matches`, or sp_no_match; other places of it stay. A double quote
// behind a "(" hides what follows, up to the next one, so the match depends on where one starts, but only on whether an
// even or odd number of quotes stands before.
void sp_match_brackets(std::string_view text, std::uint32_t *matches);

class sp_lexer {
public:
    // Matches of the brackets, or null: they are looked for then.
    sp_lexer(sp_context *lexed_for, std::string_view lexed, const std::uint32_t *brackets)
        : context(lexed_for), text(lexed), matches(brackets), end(static_cast<std::uint32_t>(lexed.size()))
    {
    }

    sp_context *context;
    std::string_view text;
    const std::uint32_t *matches;
    std::uint32_t at = 0; // the cursor
    std::uint32_t end;    // where the part of the text that is read ends

    // What the last token tells; members that its type has no use for stay as they were.
    std::int32_t literal = sp_null;  // LITERAL: its sp_kind
    double number = 0;               // SCALER
    std::string_view word = {};      // name of a variable or function, STRING, ENAME
    std::string_view inner = {};     // what stands between the parentheses
    const sp_value *value = nullptr; // of a variable; null when there is none of the name that was read
    const char *fault = nullptr;     // message of an ERROR, whose place is where the cursor stands

    // Blanks, tabs and line feeds.
    void skip_blanks();

    // The type, an sp_token, of the token at the cursor, which stands on no blank; moves the cursor behind it.
    std::int32_t next(bool after_operand);

    // Place of the ")" that belongs to the "(" at a place, or sp_no_match.
    std::uint32_t match(std::uint32_t open) const;

    // The letters, digits and "_" at the cursor, of which sp_name_length count; moves the cursor behind them.
    std::string_view scan_name();

    // New value of a LITERAL.
    sp_value *literal_value() const;

private:
    std::uint32_t name_end = 0; // of the last name, "$" and "%" included, which may be taken in pieces

    bool is_at(char c) const { return at < end && text[at] == c; }
    std::string_view from(std::uint32_t start) const { return text.substr(start, at - start); }
    std::int32_t error(const char *message);
    bool pass_brackets();
    std::int32_t parse_num();
    std::int32_t parse_string();
    std::int32_t parse_brackets();
    std::int32_t parse_name();
    std::int32_t parse_var(std::string_view known, const sp_value *known_value);
    std::int32_t parse_func();
    std::int32_t parse_ename();
};
