// The text substitution over any file bytes, tokens and one failing operation, on a disk in memory.
#include "xinstall/fake_disk.h"
#include "xinstall/misc.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

std::string take(std::string_view &bytes, std::size_t n)
{
    const std::string taken(bytes.substr(0, n));
    bytes.remove_prefix(taken.size());
    return taken.c_str(); // NOLINT(readability-redundant-string-cstr): a C string ends at its first NUL
}

std::string as_read(std::string text)
{
    for (std::size_t i = 0; (i = text.find("\r\n", i)) != std::string::npos; i++)
        text.erase(i, 1);
    return text;
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

// Bytes: length of the first token, of the second, the operation that fails; the tokens; the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 3)
        return 0;
    std::string_view bytes(reinterpret_cast<const char *>(data) + 3, size - 3);
    fake_disk disk;
    disk.fail_at = data[2];
    const std::string from = take(bytes, data[0]);
    const std::string to = take(bytes, data[1]);
    std::string before(bytes);
    disk.files["f"] = before;
    for (int i = 0; i < 20; i++) {
        const int result = chstr("f", from.c_str(), to.c_str());
        std::string expected = as_read(before);
        const std::size_t at = expected.find(from);
        if (result)
            require(as_read(disk.files["f"]) == expected.replace(at, from.size(), to) && take_messages().empty());
        else if (const auto messages = take_messages(); messages.empty())
            require(at >= expected.size() && disk.files["f"] == before);
        else
            require(disk.files["f"] == before || messages.back().ends_with("incomplete!"));
        before = disk.files["f"];
        if (!result)
            break;
    }
    return 0;
}
