// Lines of any bytes to the console tool: each has one answer of printable characters, whose braces and quotes close.
#include "varnix.h"

#include "varnix/session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    session work;
    for (const std::uint8_t *begin = data; begin != data + size;) {
        const std::uint8_t *end = std::find(begin, data + size, std::uint8_t{'\n'});
        const std::string line(begin, end);
        if (!is_tame(line))
            return 0;
        const std::string answer = work.json_answer(line);
        require(answer.front() == '{' && answer.back() == '}');
        bool quoted = false;
        for (std::size_t i = 0; i < answer.size(); ++i) {
            require(answer[i] >= ' ');
            quoted ^= answer[i] == '"';
            i += quoted && answer[i] == '\\';
        }
        require(!quoted);
        require(answer.starts_with("{\"kind\"") || is_script_line(line));
        begin = end == data + size ? end : end + 1;
    }
    return 0;
}
