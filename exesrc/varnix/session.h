// A session: lines in, answers out. A line is a formula, a line of a script or, in text mode, a command.
#pragma once

#include "wi/sp.h"

#include <string>
#include <string_view>

// Whether a line goes through the rules of scripts: what stands before its first "=", without blanks around it and one
// leading "-", is a plain name: a letter, "$", "%" or "_", then those or digits. Any other line is a formula.
bool is_script_line(std::string_view line);

class session {
public:
    session() : context(sp_init_context(nullptr, "varnix", nullptr)) {}
    ~session() { sp_free_context(context); }
    session(const session &) = delete;
    session &operator=(const session &) = delete;

    // The answer for a program: one line of JSON, without its line feed. Nothing of the line is stripped.
    std::string json_answer(std::string_view line);

    // Does a line for a person: answers on standard output, faults on standard error under the name of where it comes
    // from and the line's number. One carriage return at the end does not count.
    void text_line(std::string_view line, const std::string &where, int number);

    bool failed() const { return any_failed; }
    bool ended() const { return quit; }

private:
    struct origin;
    void command(std::string_view line, const origin &from);
    void help(std::string_view name, const origin &from);
    void list_variables();
    void fault(std::string_view line, const origin &from, std::string_view message, std::size_t place);

    sp_context *context;
    bool any_failed = false;
    bool quit = false;
};
