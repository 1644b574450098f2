// The prompt with line editing, history and completion of function names.
#include "console.h"

#include "wi/sp.h"

#include "dovsys/dovsys.h"

#include <cstdlib>
#include <cstring>
#include <editline/readline.h>

namespace {

// The next function whose name begins so, in memory that the library frees; a state of 0 begins anew.
char *next_function(const char *begun, int state)
{
    static std::size_t next = 0;
    next = state == 0 ? 0 : next;
    const auto length = static_cast<int>(std::strlen(begun));
    for (const auto table = sp_function_table(); next < table.size();)
        if (const std::string_view name = table[next++].name; strncmpx(name.data(), begun, length) == 0) {
            auto *text = static_cast<char *>(std::calloc(name.size() + 1, 1));
            return text != nullptr ? static_cast<char *>(std::memcpy(text, name.data(), name.size())) : nullptr;
        }
    return nullptr;
}

} // namespace

bool ask_line(const char *prompt, std::string &line)
{
    rl_completion_entry_function = next_function;
    rl_completion_append_character = '(';
    rl_basic_word_break_characters = " \t+-*/(),=\"";
    char *text = readline(prompt);
    if (text == nullptr)
        return false;
    line = text;
    std::free(text);
    if (!line.empty())
        add_history(line.c_str());
    return true;
}
