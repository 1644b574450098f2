#include "wi/wihlptofc.h"

#include "wi/wihlpfile.h"
#include "wi/wihlpfind.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

void append_line(std::string &table, char level, std::string_view name, std::size_t position)
{
    std::array<char, 20> digits;
    char *end = std::to_chars(digits.data(), digits.data() + digits.size(), position).ptr;
    *end++ = '\n';
    table.append({level, ' '})
        .append(name)
        .append(1, '\t')
        .append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

std::string table_of(std::string_view library)
{
    std::string table;
    std::size_t empty_line = 0; // the latest one ends here; at first nothing stands before the text
    for (std::size_t begin = 0; begin < library.size();) {
        const std::size_t end = std::min(library.find('\n', begin), library.size());
        if (end == begin)
            empty_line = end + 1;
        else if (begin > 0 && begin == empty_line && end >= begin + 2 && wi_hlp_is_digit(library[begin]) &&
                 library[begin + 1] == ' ')
            append_line(table, library[begin], library.substr(begin + 2, end - begin - 2), begin + 2);
        begin = end + 1;
    }
    return table;
}

} // namespace

int mktofc(const char *lib)
{
    const std::string library = lib ? lib : "";
    wi_hlp_bytes text;
    if (!wi_hlp_read_all(library.c_str(), text)) {
        std::printf("Unable to open file %s for reading!\n", library.c_str());
        return 0;
    }
    wi_hlp_text_mode(text);
    const std::string table = library + ".tofc";
    if (!wi_hlp_write(table, table_of(text.view()))) {
        std::printf("Unable to open file %s for writing!", table.c_str());
        return 0;
    }
    return 1;
}
