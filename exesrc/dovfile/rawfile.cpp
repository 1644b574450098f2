#include "dovfile/rawfile.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

raw_file::raw_file(const char *name) : stream(std::make_unique<dov_stream>())
{
    stream->handle = dov_io.open(name, false);
    if (!is_open())
        return;
    size = std::max<std::int64_t>(dov_io.seek(stream->handle, 0, SEEK_END), 0);
    stream->device = size;
    std::string header = bytes(0, sizeof kw);
    has_header = header.size() == sizeof kw;
    if (!has_header)
        return;
    known_machine = setmcvt(static_cast<unsigned char>(header[0]), mcvt_pc) == 1;
    if (known_machine)
        dov_convert_fields(dov_keyword_header(), header.data());
    std::memcpy(&kw, header.data(), sizeof kw);
}

raw_file::~raw_file()
{
    if (is_open())
        dov_io.close(stream->handle);
    jfree(stream->buffer);
}

std::string raw_file::bytes(std::int64_t offset, std::int64_t n)
{
    std::string found(
        static_cast<std::size_t>(std::clamp<std::int64_t>(n, 0, std::max<std::int64_t>(size - offset, 0))), '\0');
    if (offset < 0 || !dov_stream_seek(*stream, offset))
        return {};
    const std::int64_t got = dov_stream_read(*stream, found.data(), static_cast<std::int64_t>(found.size()));
    found.resize(static_cast<std::size_t>(got));
    return found;
}

std::string native_record(const raw_file &file, std::span<const dov_field> fields, std::string record)
{
    setmcvt(file.kw.machine, mcvt_pc);
    dov_convert_fields(fields, record.data());
    return record;
}
