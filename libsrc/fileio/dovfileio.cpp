#include "fileio/dovfileio.h"
#include "fileio/dovfiletype.h"
#include "fileio/dovkwdef.h"
#include "fileio/dovreserve.h"
#include "fileio/dovstream.h"
#include "fileio/mcvt.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstring>

namespace {

constexpr int header_size = static_cast<int>(sizeof(_keywords));

int dovioerror = dov_ok;

int done(int code)
{
    return dovioerror = code;
}

_dovfiletype *refused(int code)
{
    dovioerror = code;
    return nullptr;
}

// Null for what an int cannot count, as for what there is no memory for.
void *allocate(std::int64_t n)
{
    return n <= INT_MAX ? jjmalloc(static_cast<int>(n)) : nullptr;
}

// Closes what a record has open and frees it with all that it owns.
struct release {
    void operator()(_dovfiletype *p) const
    {
        _dovfile &f = p->commonstuff;
        if (f.handle >= 0)
            dov_io.close(f.handle);
        jfree(f.rspace);
        if (f.stream != nullptr)
            jfree(f.stream->buffer);
        jfree(f.stream);
        jfree(f.owned);
        jfree(p);
    }
};
using owner = std::unique_ptr<_dovfiletype, release>;

owner new_record(const char *filename)
{
    owner p(static_cast<_dovfiletype *>(jjmalloc(sizeof(_dovfiletype))));
    if (p == nullptr)
        return p;
    _dovfile &f = p->commonstuff;
    f.handle = -1;
    f.ukwcall = dovkwdef;
    f.stream = static_cast<dov_stream *>(jjmalloc(sizeof(dov_stream)));
    c_strncpy(f.fname, filename, 254);
    if (f.stream == nullptr)
        p.reset();
    return p;
}

std::int64_t offset_of(const _dovfile &f, std::int64_t element)
{
    return f.byte0 + element * f.kw.elementsize;
}

std::int64_t header_offset(const _dovfile &f)
{
    return header_size + static_cast<std::int64_t>(std::max(f.kw.reservesize, 0));
}

void convert_sizes(_keywords &kw)
{
    mcvt_i4(&kw.reservesize);
    mcvt_i4(&kw.headsize);
    mcvt_i4(&kw.elementsize);
    mcvt_i4(&kw.nelements);
}

// Elements that did not reach the file are not counted, and the next one is the first of them.
int elements_lost(_dovfile &f)
{
    const auto on_disk = [&](std::int64_t offset) {
        return static_cast<std::int32_t>(std::max<std::int64_t>(offset - f.byte0, 0) / f.kw.elementsize);
    };
    f.nextelem = std::min(f.nextelem, on_disk(f.stream->at));
    f.nelements = std::min(f.nelements, on_disk(f.stream->end));
    f.curpos = -1;
    return dov_write_failed;
}

int flush(_dovfile &f)
{
    return dov_stream_flush(*f.stream) ? dov_ok : elements_lost(f);
}

int seek_bytes(_dovfile &f, std::int64_t offset)
{
    const int written = flush(f);
    if (written != dov_ok)
        return written;
    return dov_stream_seek(*f.stream, offset) ? dov_ok : dov_seek_failed;
}

int seek_element(_dovfile &f, std::int64_t element)
{
    if (element < 0 || element > f.nelements)
        return dov_seek_failed;
    const auto index = static_cast<std::int32_t>(element);
    if (element != f.curpos) {
        f.curpos = -1;
        f.lastoper = 0;
        const int code = seek_bytes(f, offset_of(f, element));
        if (code != dov_ok)
            return code;
        f.curpos = index;
    }
    f.nextelem = index;
    return dov_ok;
}

// Before elements are read or written; an operation of the other kind has stood in between when it was the last.
int go_to_next(_dovfile &f, int other_oper)
{
    if (f.lastoper != other_oper && f.curpos == f.nextelem)
        return dov_ok;
    f.curpos = -1;
    return seek_element(f, f.nextelem);
}

// Moves elements of the file's size apart, from the last to the first, so that each has its size in memory.
void widen(char *elements, int n, std::size_t from, std::size_t to)
{
    for (auto i = static_cast<std::size_t>(n); from != to && i-- > 1;)
        std::memmove(elements + i * to, elements + i * from, from);
}

// Elements of one size in file and memory.
bool converts_blocks(const _dovfile &f)
{
    return f.blockcvt != nullptr && f.elemsize == f.kw.elementsize;
}

void convert_each(_dovfiletype *p, char *elements, int n, int direction)
{
    const _dovfile &f = p->commonstuff;
    for (int i = 0; i < n; ++i)
        f.elemcvt(p, elements + static_cast<std::size_t>(i) * static_cast<std::size_t>(f.elemsize), direction);
}

// Both read n elements and convert them, and return the number of bytes read.

std::int64_t read_blocks(_dovfiletype *p, char *buf, int n)
{
    const _dovfile &f = p->commonstuff;
    const std::int64_t size = f.elemsize;
    const std::int64_t block = dov_buffer_size / size;
    std::int64_t got = 0;
    for (std::int64_t from = 0; from < n; from += block) {
        const auto some = static_cast<int>(std::min(block, n - from));
        const std::string_view bytes = dov_stream_take(*f.stream, some * size);
        got += static_cast<std::int64_t>(bytes.size());
        if (got != (from + some) * size)
            break;
        f.blockcvt(p, buf + from * size, bytes.data(), some, dov_from_file);
    }
    return got;
}

std::int64_t read_elements(_dovfiletype *p, char *buf, int n)
{
    const _dovfile &f = p->commonstuff;
    const std::int64_t size = f.kw.elementsize;
    const std::int64_t got = dov_stream_read(*f.stream, buf, n * size);
    if (got == n * size) {
        widen(buf, n, static_cast<std::size_t>(size), static_cast<std::size_t>(f.elemsize));
        convert_each(p, buf, n, dov_from_file);
    }
    return got;
}

std::int64_t read_converted(_dovfiletype *p, char *buf, int n)
{
    const _dovfile &f = p->commonstuff;
    const std::int64_t size = f.elemsize;
    const bool fits = size <= dov_buffer_size && dov_stream_reserve(*f.stream, std::min(n * size, dov_buffer_size));
    return converts_blocks(f) && fits ? read_blocks(p, buf, n) : read_elements(p, buf, n);
}

bool can_convert(const _dovfile &f, bool has_converter, int from, int to)
{
    return !f.convert || (has_converter && setmcvt(from, to) == 1);
}

// Writes converted copies of elements, as many at a time as fit the scratch space, which is at least one.
int write_converted(_dovfiletype *p, const char *buf, int n)
{
    _dovfile &f = p->commonstuff;
    const auto size = static_cast<std::size_t>(f.elemsize);
    const auto on_file = static_cast<std::size_t>(f.kw.elementsize);
    std::array<char, 1 << 14> small;
    const jmalloc_ptr<char> large(size > small.size() ? static_cast<char *>(allocate(f.elemsize)) : nullptr);
    char *scratch = size > small.size() ? large.get() : small.data();
    if (scratch == nullptr)
        return dov_memory;
    const int most = static_cast<int>(std::max<std::size_t>(small.size() / size, 1));
    for (int from = 0, some = 0; from < n; from += some) {
        some = std::min(most, n - from);
        const auto count = static_cast<std::size_t>(some);
        const char *elements = buf + static_cast<std::size_t>(from) * size;
        if (converts_blocks(f)) {
            f.blockcvt(p, scratch, elements, some, dov_to_file);
        } else {
            std::memcpy(scratch, elements, count * size);
            convert_each(p, scratch, some, dov_to_file);
        }
        for (std::size_t i = 1; on_file != size && i < count; ++i)
            std::memmove(scratch + i * on_file, scratch + i * size, on_file);
        if (!dov_stream_write(*f.stream, scratch, static_cast<std::int64_t>(count * on_file)))
            return dov_write_failed;
    }
    return dov_ok;
}

// The keyword header and the reserved area in the file's own format; they are of no use to this machine afterwards.
int write_beginning(_dovfiletype *p)
{
    _dovfile &f = p->commonstuff;
    const int reserved = f.rsize;
    f.kw.nelements = f.nelements;
    if (f.convert) {
        if (setmcvt(mcvt_pc, f.machine) != 1)
            return dov_cannot_convert;
        convert_sizes(f.kw);
        dovfile_res_cvt(p);
    }
    dov_stream &s = *f.stream;
    if (!dov_stream_seek(s, 0))
        return dov_seek_failed;
    const bool written =
        dov_stream_write(s, &f.kw, header_size) && dov_stream_write(s, f.rspace, reserved) && dov_stream_flush(s);
    return written ? dov_ok : dov_write_failed;
}

// The keyword header in this machine's order.
int read_keywords(_dovfile &f)
{
    if (dov_stream_read(*f.stream, &f.kw, header_size) != header_size)
        return dov_too_short;
    f.machine = f.kw.machine;
    if (f.machine != mcvt_pc) {
        f.convert = 1;
        if (setmcvt(f.machine, mcvt_pc) != 1)
            return dov_cannot_convert;
        convert_sizes(f.kw);
    }
    return f.kw.version == 1 ? dov_ok : dov_version;
}

// Nothing is allocated before the file is known to be that long.
int read_reserved_area(_dovfiletype *p)
{
    _dovfile &f = p->commonstuff;
    if (f.kw.reservesize <= 0)
        return dov_ok;
    if (f.kw.reservesize > f.stream->end - header_size)
        return dov_too_short;
    f.rspace = static_cast<char *>(allocate(f.kw.reservesize));
    if (f.rspace == nullptr)
        return dov_memory;
    f.rsize = f.kw.reservesize;
    if (dov_stream_read(*f.stream, f.rspace, f.rsize) != f.rsize)
        return dov_too_short;
    if (f.convert)
        dovfile_res_cvt(p);
    return dov_ok;
}

int check_sizes(_dovfile &f)
{
    f.nelements = f.kw.nelements;
    f.byte0 = header_offset(f) + std::max(f.kw.headsize, 0);
    const std::int64_t there = f.stream->end - f.byte0;
    if (f.kw.headsize > 0 && there < 0)
        return dov_too_short;
    if (f.nelements < 0)
        return dov_wrong_type;
    if (f.kw.elementsize < 1 || there / f.kw.elementsize < f.nelements)
        return dov_too_short;
    if (f.kw.reservesize < 0 || f.kw.headsize < 0 || !dov_stream_seek(*f.stream, f.byte0))
        return dov_seek_failed;
    f.stream->end = offset_of(f, f.nelements); // what lies behind the elements is none
    return dov_ok;
}

int read_beginning(_dovfiletype *p)
{
    _dovfile &f = p->commonstuff;
    dov_stream &s = *f.stream;
    s.handle = f.handle;
    s.end = dov_io.seek(f.handle, 0, SEEK_END);
    s.device = s.end;
    if (s.end < 0 || !dov_stream_seek(s, 0))
        return dov_seek_failed;
    int code = read_keywords(f);
    if (code == dov_ok)
        code = read_reserved_area(p);
    if (code == dov_ok)
        code = check_sizes(f);
    f.hdsize = f.kw.headsize;
    f.elemsize = f.kw.elementsize;
    return code;
}

// The keyword header of a new file, and zeros for its type header.
int write_new_file(_dovfiletype *p)
{
    _dovfile &f = p->commonstuff;
    const _keywords kw = f.kw;
    const jmalloc_ptr<char> head(static_cast<char *>(allocate(f.hdsize)));
    if (head == nullptr)
        return dov_memory;
    const int code = write_beginning(p);
    f.kw = kw;
    if (code != dov_ok)
        return code;
    return dov_stream_write(*f.stream, head.get(), f.hdsize) && dov_stream_flush(*f.stream) ? dov_ok : dov_write_failed;
}

} // namespace

const char *dovfileerrortext(int code)
{
    static constexpr std::array<const char *, 17> texts = {
        nullptr,
        nullptr,
        "beyond the last element, or nothing could be read",
        "out of memory",
        "the file could not be opened or created",
        "the container version is not 1",
        "the file is too short for its keyword header, reserved area, type header or elements",
        "write failed or was short",
        "short read",
        "seek failed, or an element index or a size out of range",
        "no file",
        "the type header has the wrong size",
        "negative element count, wrong file type or wrong element size",
        "bad argument",
        "unsupported machine, or no conversion for this file",
        "the file is open for reading only",
        "prf or xlam is not positive"};
    if (code == dov_ok)
        return "success";
    return code <= dov_end && code >= dov_not_positive ? texts[static_cast<std::size_t>(-code)] : "unknown error";
}

_dovfiletype *dovfileopen(const char *filename, int *type, int *headsize, int *elemsize)
{
    return dovfileopen_x(filename, type, headsize, elemsize, 0);
}

_dovfiletype *dovfileupdate(const char *filename, int *type, int *headsize, int *elemsize)
{
    return dovfileopen_x(filename, type, headsize, elemsize, 1);
}

_dovfiletype *dovfileopen_x(const char *filename, int *type, int *headsize, int *elemsize, int upd)
{
    owner p = new_record(filename);
    if (p == nullptr)
        return refused(dov_memory);
    _dovfile &f = p->commonstuff;
    f.handle = filename != nullptr ? dov_io.open(filename, upd != 0) : -1;
    f.rdonly = upd == 0;
    if (f.handle < 0)
        return refused(dov_cannot_open);
    const int code = read_beginning(p.get());
    if (code != dov_ok)
        return refused(code);
    *type = f.kw.filetype;
    *headsize = f.kw.headsize;
    *elemsize = f.kw.elementsize;
    done(dov_ok);
    return p.release();
}

_dovfiletype *dovfilecreate(const char *filename, int type, int headsize, int elemsize)
{
    return dovfilecreate_x(filename, type, headsize, elemsize, mcvt_pc, ressize);
}

_dovfiletype *dovfilecreate_x(const char *filename, int type, int headsize, int elemsize, int machine, int reservesize)
{
    if (headsize < 0 || elemsize < 1 || reservesize < 0)
        return refused(dov_bad_argument);
    owner p = new_record(filename);
    if (p == nullptr)
        return refused(dov_memory);
    _dovfile &f = p->commonstuff;
    f.rsize = reservesize;
    f.rspace = static_cast<char *>(allocate(reservesize));
    if (f.rspace == nullptr)
        return refused(dov_memory);
    dovfile_res_new(p.get());
    f.handle = filename != nullptr ? dov_io.create(filename) : -1;
    if (f.handle < 0)
        return refused(dov_cannot_open);
    f.stream->handle = f.handle;
    f.kw = {
        static_cast<std::uint8_t>(machine), 1, static_cast<std::uint8_t>(type), 0, reservesize, headsize, elemsize, 0};
    f.machine = machine;
    f.convert = machine != mcvt_pc;
    f.hdsize = headsize;
    f.elemsize = elemsize;
    f.byte0 = header_offset(f) + headsize;
    f.dirty = 1;
    const int code = write_new_file(p.get());
    if (code != dov_ok)
        return refused(code);
    done(dov_ok);
    return p.release();
}

int dovfileconvert(_dovfiletype *p, _dovcvt hdcvt, _dovcvt elemcvt, int hdsize, int elemsize)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    if (hdsize < f.kw.headsize || elemsize < f.kw.elementsize)
        return done(dov_bad_argument);
    f.hdsize = hdsize;
    f.elemsize = elemsize;
    f.hdcvt = hdcvt;
    f.elemcvt = elemcvt;
    if (hdsize != f.kw.headsize || elemsize != f.kw.elementsize)
        f.convert = 1;
    return done(dov_ok);
}

int dovfilegethead(_dovfiletype *p, void *head)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    f.curpos = -1;
    f.lastoper = 0;
    const int code = seek_bytes(f, header_offset(f));
    if (code != dov_ok)
        return done(code);
    f.lastoper = 2;
    if (dov_stream_read(*f.stream, head, f.kw.headsize) != f.kw.headsize)
        return done(dov_read_short);
    if (!can_convert(f, f.hdcvt != nullptr, f.machine, mcvt_pc))
        return done(dov_cannot_convert);
    if (f.convert)
        f.hdcvt(p, head, dov_from_file);
    return done(dov_ok);
}

int dovfileputhead(_dovfiletype *p, const void *head)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    if (f.rdonly)
        return done(dov_read_only);
    f.curpos = -1;
    f.lastoper = 0;
    const int code = seek_bytes(f, header_offset(f));
    if (code != dov_ok)
        return done(code);
    if (!can_convert(f, f.hdcvt != nullptr, mcvt_pc, f.machine))
        return done(dov_cannot_convert);
    jmalloc_ptr<void> scratch;
    if (f.convert) {
        scratch.reset(allocate(f.hdsize));
        if (scratch == nullptr)
            return done(dov_memory);
        std::memcpy(scratch.get(), head, static_cast<std::size_t>(f.hdsize));
        f.hdcvt(p, scratch.get(), dov_to_file);
        head = scratch.get();
    }
    f.dirty = 1;
    f.lastoper = 1;
    const bool written = dov_stream_write(*f.stream, head, f.kw.headsize) && dov_stream_flush(*f.stream);
    return done(written ? dov_ok : dov_write_failed);
}

int dovfileseek(_dovfiletype *p, int nextelem)
{
    return done(p != nullptr ? seek_element(p->commonstuff, nextelem) : dov_no_handle);
}

int dovfilereadblock(_dovfiletype *p, void *buf, int n)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    if (n < 0)
        return done(dov_bad_argument);
    if (n == 0)
        return done(dov_ok);
    if (n > f.nelements - f.nextelem)
        return done(dov_end);
    const int code = go_to_next(f, 1);
    if (code != dov_ok)
        return done(code);
    const std::int64_t wanted = static_cast<std::int64_t>(n) * f.kw.elementsize;
    const bool convertible = can_convert(f, f.elemcvt != nullptr, f.machine, mcvt_pc);
    const std::int64_t got = f.convert && convertible ? read_converted(p, static_cast<char *>(buf), n)
                                                      : dov_stream_read(*f.stream, buf, wanted);
    f.lastoper = 2;
    if (got != wanted) {
        f.curpos = -1;
        return done(got == 0 ? dov_end : dov_read_short);
    }
    f.nextelem += n;
    f.curpos += n;
    return done(convertible ? dov_ok : dov_cannot_convert);
}

int dovfilewriteblock(_dovfiletype *p, const void *buf, int n)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    if (f.rdonly)
        return done(dov_read_only);
    if (n < 0)
        return done(dov_bad_argument);
    if (n == 0)
        return done(dov_ok);
    int code = n > INT32_MAX - f.nextelem ? dov_seek_failed : go_to_next(f, 2);
    if (code != dov_ok)
        return done(code);
    if (!can_convert(f, f.elemcvt != nullptr, mcvt_pc, f.machine))
        return done(dov_cannot_convert);
    f.dirty = 1;
    f.lastoper = 1;
    f.nextelem += n;
    f.nelements = std::max(f.nelements, f.nextelem);
    if (f.convert)
        code = write_converted(p, static_cast<const char *>(buf), n);
    else if (!dov_stream_write(*f.stream, buf, static_cast<std::int64_t>(n) * f.kw.elementsize))
        code = dov_write_failed;
    if (code != dov_ok) {
        flush(f);
        elements_lost(f);
        return done(code);
    }
    f.curpos = f.nextelem;
    return done(dov_ok);
}

int dovfilereadelement(_dovfiletype *p, void *element, int elemnum)
{
    const int code = dovfileseek(p, elemnum);
    return code == dov_ok ? dovfilereadblock(p, element, 1) : code;
}

int dovfilewriteelement(_dovfiletype *p, const void *element, int elemnum)
{
    const int code = dovfileseek(p, elemnum);
    return code == dov_ok ? dovfilewriteblock(p, element, 1) : code;
}

int dovfilereadtime(_dovfiletype *p, double *time, int elemnum)
{
    if (p == nullptr)
        return done(dov_no_handle);
    _dovfile &f = p->commonstuff;
    double value;
    if (elemnum < 0 || elemnum >= f.nelements || f.kw.elementsize < static_cast<int>(sizeof value))
        return done(dov_end);
    f.curpos = -1;
    f.lastoper = 0;
    const int code = seek_bytes(f, offset_of(f, elemnum));
    if (code != dov_ok)
        return done(code);
    f.lastoper = 2;
    if (dov_stream_read(*f.stream, &value, sizeof value) != sizeof value)
        return done(dov_read_short);
    if (f.convert) {
        if (setmcvt(f.machine, mcvt_pc) != 1)
            return done(dov_cannot_convert);
        mcvt_f8(&value);
    }
    *time = value;
    return done(dov_ok);
}

int dovfilemaxelement(_dovfiletype *p, std::int32_t *maxelement)
{
    if (p == nullptr)
        return done(dov_no_handle);
    *maxelement = p->commonstuff.nelements - 1;
    return done(dov_ok);
}

int dovfilenextelement(_dovfiletype *p, std::int32_t *nextelement)
{
    if (p == nullptr)
        return done(dov_no_handle);
    *nextelement = p->commonstuff.nextelem;
    return done(dov_ok);
}

int dovfilemode(_dovfiletype *p, int *mode)
{
    if (p == nullptr)
        return done(dov_no_handle);
    *mode = p->commonstuff.rdonly;
    return done(dov_ok);
}

int dovfileclose(_dovfiletype *p)
{
    if (p == nullptr)
        return done(dov_no_handle);
    const owner closing(p);
    _dovfile &f = p->commonstuff;
    int code = flush(f);
    if ((f.dirty || f.rchng) && !f.rdonly) {
        const int written = write_beginning(p);
        if (code == dov_ok)
            code = written;
    }
    return done(code);
}

int dovfileerror()
{
    return dovioerror;
}

int dovfiletype(const char *filename)
{
    int type = -1;
    int headsize = 0;
    int elemsize = 0;
    if (_dovfiletype *p = dovfileopen(filename, &type, &headsize, &elemsize))
        dovfileclose(p);
    return type;
}

int dovfilemachine(const char *filename, int *machine)
{
    int type = 0;
    int headsize = 0;
    int elemsize = 0;
    _dovfiletype *p = dovfileopen(filename, &type, &headsize, &elemsize);
    if (p == nullptr)
        return 0;
    *machine = p->commonstuff.machine;
    dovfileclose(p);
    return 1;
}
