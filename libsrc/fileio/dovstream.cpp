#include "fileio/dovstream.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fcntl.h>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

// A pipe would be waited for, and a directory be opened.
template <typename opener>
int open_file(const char *name, opener open)
{
    return dovsys_is_file(name) != 0 ? open() : -1;
}

#ifdef _WIN32
static_assert(sizeof(__int64) == 8);
const dov_system system_calls = {
    [](const char *name, bool update) {
        return open_file(name, [&] { return _open(name, (update ? _O_RDWR : _O_RDONLY) | _O_BINARY); });
    },
    [](const char *name) { return _open(name, _O_CREAT | _O_TRUNC | _O_RDWR | _O_BINARY, 0600); },
    [](int handle, void *buf, std::int64_t n) -> std::int64_t { return _read(handle, buf, static_cast<unsigned>(n)); },
    [](int handle, const void *buf, std::int64_t n) -> std::int64_t {
        return _write(handle, buf, static_cast<unsigned>(n));
    },
    [](int handle, std::int64_t offset, int origin) -> std::int64_t { return _lseeki64(handle, offset, origin); },
    [](int handle) { return _close(handle); }};
#else
static_assert(sizeof(off_t) == 8);
const dov_system system_calls = {
    [](const char *name, bool update) {
        return open_file(name, [&] { return open(name, (update ? O_RDWR : O_RDONLY) | O_CLOEXEC); });
    },
    [](const char *name) { return open(name, O_CREAT | O_TRUNC | O_RDWR | O_CLOEXEC, 0600); },
    [](int handle, void *buf, std::int64_t n) -> std::int64_t {
        return read(handle, buf, static_cast<std::size_t>(n));
    },
    [](int handle, const void *buf, std::int64_t n) -> std::int64_t {
        return write(handle, buf, static_cast<std::size_t>(n));
    },
    [](int handle, std::int64_t offset, int origin) -> std::int64_t { return lseek(handle, offset, origin); },
    [](int handle) { return close(handle); }};
#endif

constexpr std::int64_t first_window = 4096;

void copy(void *target, const void *source, std::int64_t n)
{
    if (n > 0)
        std::memcpy(target, source, static_cast<std::size_t>(n));
}

bool move_device(dov_stream &s, std::int64_t offset)
{
    if (s.device != offset)
        s.device = dov_io.seek(s.handle, offset, SEEK_SET);
    return s.device == offset;
}

// Where the descriptor stands.
std::int64_t read_device(dov_stream &s, char *buf, std::int64_t n)
{
    std::int64_t done = 0;
    while (done < n) {
        const std::int64_t got = dov_io.read(s.handle, buf + done, std::min(n - done, dov_most));
        if (got <= 0)
            break;
        done += got;
    }
    s.device += done;
    return done;
}

bool write_device(dov_stream &s, std::int64_t offset, const char *buf, std::int64_t n)
{
    if (!move_device(s, offset))
        return false;
    while (s.device < offset + n) {
        const std::int64_t put =
            dov_io.write(s.handle, buf + (s.device - offset), std::min(offset + n - s.device, dov_most));
        if (put <= 0)
            return false;
        s.device += put;
        s.end = std::max(s.end, s.device);
    }
    return true;
}

void drop_buffer(dov_stream &s)
{
    s.start = s.at;
    s.length = 0;
    s.pending = false;
}

// Whether n more bytes fit, if need be after the buffer has grown.
bool has_room(dov_stream &s, std::int64_t n)
{
    const std::int64_t needed = s.length + n;
    if (needed <= s.capacity)
        return true;
    const std::int64_t least = std::max(needed, first_window);
    return needed < dov_buffer_size && dov_stream_reserve(s, std::clamp(4 * s.capacity, least, dov_buffer_size));
}

} // namespace

dov_system dov_io = system_calls;

bool dov_stream_seek(dov_stream &s, std::int64_t offset)
{
    if (offset >= s.start && offset <= s.start + s.length) {
        s.at = offset;
        return true;
    }
    if (!move_device(s, offset))
        return false;
    s.at = offset;
    s.window = first_window;
    drop_buffer(s);
    return true;
}

bool dov_stream_reserve(dov_stream &s, std::int64_t n)
{
    if (n <= s.capacity)
        return true;
    auto *larger = static_cast<char *>(jjmalloc(static_cast<int>(n)));
    if (larger == nullptr)
        return false;
    copy(larger, s.buffer, s.length);
    jfree(s.buffer);
    s.buffer = larger;
    s.capacity = n;
    return true;
}

std::int64_t dov_stream_read(dov_stream &s, void *buf, std::int64_t n)
{
    auto *out = static_cast<char *>(buf);
    std::int64_t done = std::min(n, s.start + s.length - s.at);
    copy(out, s.buffer + (s.at - s.start), done);
    s.at += done;
    if (done == n)
        return n;
    // The buffer is used up. What is large goes past it.
    drop_buffer(s);
    if (!move_device(s, s.at))
        return done;
    s.window = std::min(std::max(s.window, n - done), dov_buffer_size);
    if (n - done < dov_buffer_size && dov_stream_reserve(s, s.window)) {
        s.length = read_device(s, s.buffer, s.window);
        s.window = std::min(4 * s.window, dov_buffer_size);
        const std::int64_t more = std::min(n - done, s.length);
        copy(out + done, s.buffer, more);
        s.at += more;
        return done + more;
    }
    const std::int64_t more = read_device(s, out + done, n - done);
    s.at += more;
    drop_buffer(s);
    return done + more;
}

std::string_view dov_stream_take(dov_stream &s, std::int64_t n)
{
    const std::int64_t left = s.start + s.length - s.at;
    if (left < n) {
        if (left > 0)
            std::memmove(s.buffer, s.buffer + (s.at - s.start), static_cast<std::size_t>(left));
        s.start = s.at;
        s.length = left;
        s.window = std::max(s.window, n);
        if (!dov_stream_reserve(s, s.window))
            s.window = s.capacity;
        if (move_device(s, s.start + left))
            s.length += read_device(s, s.buffer + left, s.window - left);
        s.window = std::min(4 * s.window, dov_buffer_size);
    }
    const std::int64_t some = std::min(n, s.start + s.length - s.at);
    const char *bytes = s.buffer + (s.at - s.start);
    s.at += some;
    return {bytes, static_cast<std::size_t>(some)};
}

bool dov_stream_flush(dov_stream &s)
{
    if (!s.pending)
        return true;
    const bool written = write_device(s, s.start, s.buffer, s.length);
    if (!written)
        s.at = std::clamp(s.device, s.start, s.start + s.length);
    drop_buffer(s);
    return written;
}

bool dov_stream_write(dov_stream &s, const void *buf, std::int64_t n)
{
    if (!s.pending)
        drop_buffer(s); // what was read ahead
    if (!has_room(s, n)) {
        if (!dov_stream_flush(s))
            return false;
        if (!has_room(s, n)) {
            const bool written = write_device(s, s.at, static_cast<const char *>(buf), n);
            s.at = written ? s.at + n : std::clamp(s.device, s.at, s.at + n);
            drop_buffer(s);
            return written;
        }
    }
    copy(s.buffer + s.length, buf, n);
    s.length += n;
    s.at += n;
    s.pending = true;
    return true;
}
