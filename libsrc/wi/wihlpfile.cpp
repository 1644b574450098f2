#include "wi/wihlpfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstring>
#include <new>

#ifdef _WIN32
#include "wi/wiplatform.h"
#endif

namespace {

#ifdef _WIN32
// The standard rename takes no existing name here, and the standard library's paths no name in the user's code page.
int replace(const char *from, const char *to)
{
    return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) ? 0 : -1;
}
#else
constexpr auto replace = std::rename;
#endif

} // namespace

wi_hlp_files wi_hlp_io = {std::fopen, std::fread, std::fwrite, std::fclose, replace};

wi_hlp_file wi_hlp_open(const char *name)
{
    // Other systems open directories, and wait for a writer at the end of a pipe.
    wi_hlp_file file(dovsys_is_file(name) ? wi_hlp_io.open(name, "rb") : nullptr);
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0); // read in large parts only
    return file;
}

bool wi_hlp_read_part(std::FILE *file, std::size_t from, std::size_t most, wi_hlp_bytes &bytes)
{
    bytes.size = 0;
    bytes.data.reset(new (std::nothrow) char[most + 1]);
    if (!bytes.data || std::fseek(file, static_cast<long>(from), SEEK_SET) != 0)
        return false;
    bytes.size = wi_hlp_io.read(bytes.data.get(), 1, most, file);
    return !std::ferror(file);
}

bool wi_hlp_read_all(std::FILE *file, wi_hlp_bytes &bytes)
{
    if (std::fseek(file, 0, SEEK_END) != 0)
        return false;
    const long size = std::ftell(file);
    if (size < 0 || static_cast<unsigned long>(size) > wi_hlp_file_limit)
        return false;
    return wi_hlp_read_part(file, 0, static_cast<std::size_t>(size), bytes);
}

bool wi_hlp_read_all(const char *name, wi_hlp_bytes &bytes)
{
    const wi_hlp_file file = wi_hlp_open(name);
    return file && wi_hlp_read_all(file.get(), bytes);
}

void wi_hlp_text_mode(wi_hlp_bytes &bytes)
{
    const std::string_view all = bytes.view();
    std::size_t size = std::min(all.find("\r\n"), all.size());
    for (std::size_t from = size + 1; from < all.size();) {
        const std::size_t end = std::min(all.find("\r\n", from), all.size());
        std::memmove(bytes.data.get() + size, bytes.data.get() + from, end - from);
        size += end - from;
        from = end + 1;
    }
    bytes.size = size;
}

bool wi_hlp_is_crlf(std::string_view text)
{
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r';
}

bool wi_hlp_write(const std::string &name, std::string_view text)
{
    if (dovsys_is_file(name.c_str()) && !wi_hlp_file(wi_hlp_io.open(name.c_str(), "r+b")))
        return false;
    const std::string beside = name + ".new";
    std::FILE *file = wi_hlp_io.open(beside.c_str(), "wb");
    if (!file)
        return false;
    const bool written = wi_hlp_io.write(text.data(), 1, text.size(), file) == text.size();
    const bool closed = wi_hlp_io.close(file) == 0;
    if (written && closed && wi_hlp_io.replace(beside.c_str(), name.c_str()) == 0)
        return true;
    std::remove(beside.c_str());
    return false;
}
