#include "fileio/splfile.h"
#include "fileio/dovfiletype.h"
#include "fileio/filetypes.h"
#include "fileio/ufp.h"

#include "dovsys/dovsys.h"

#include <cstring>
#include <memory>

namespace {

static_assert(offsetof(_splfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"text", dov_form::text, 0, 104},  {"version", dov_form::i4, 104, 4},   {"ncoe", dov_form::i4, 108, 4},
    {"type", dov_form::text, 112, 24}, {"xunits", dov_form::text, 136, 24}, {"yunits", dov_form::text, 160, 24},
    {"ider", dov_form::i4, 184, 4},    {"space", dov_form::i4, 188, 4},
};
constexpr const char *keywords[] = {"text", "type", "xunits", "yunits", "ncoe", "ider"};
constexpr const char *counts[] = {"ncoe"};
constexpr dov_field element_fields[] = {
    {"time", dov_form::f8, 0, 8}, {"ncont", dov_form::i4, 8, 4}, {"flg2", dov_form::i4, 12, 4}};
constexpr dov_field coefficient[] = {{"c", dov_form::f8, 0, 8}};

struct element_head {
    double time;
    std::int32_t ncont;
    std::int32_t flg2;
};
static_assert(sizeof(element_head) == 16);

dov_layout layout(const void *head)
{
    const std::int32_t ncoe = static_cast<const _splheader *>(head)->ncoe;
    dov_layout element = dov_items(element_fields, sizeof(element_head), coefficient, sizeof(double), ncoe);
    element.size = ncoe < 1 ? 0 : std::int64_t{ncoe} * spl_bytes_per_coe;
    return element;
}

dov_type_state state;

int done(int code)
{
    return state.error = code;
}

std::size_t coefficient_bytes(const _splfile &spl)
{
    return static_cast<std::size_t>(spl.hd.ncoe) * sizeof(double);
}

// Checks the handle and sees to its element buffer. Not before there is an element: the size of one is what the file
// says.
int prepare(_dovfiletype *p)
{
    if (p == nullptr)
        return dov_no_handle;
    if (p->commonstuff.kw.filetype != spl_type.code)
        return dov_wrong_type;
    _splfile &spl = p->spl;
    if (spl.elembuf != nullptr)
        return dov_ok;
    spl.elemsize = p->commonstuff.elemsize;
    p->commonstuff.owned = jjmalloc(spl.elemsize);
    spl.elembuf = static_cast<char *>(p->commonstuff.owned);
    return spl.elembuf != nullptr ? dov_ok : dov_memory;
}

struct espl_deleter {
    void operator()(_espl *e) const { espl_free(e); }
};
using espl_ptr = std::unique_ptr<_espl, espl_deleter>;

struct file_closer {
    void operator()(_dovfiletype *p) const { dovfileclose(p); }
};
using file_ptr = std::unique_ptr<_dovfiletype, file_closer>;

_espl *refuse(int code)
{
    espl_set_error(code);
    return nullptr;
}

int read_break(_dovfiletype *p, int i, _brkpoint &brk)
{
    if (brk.coe == nullptr)
        return dovfilereadtime(p, &brk.time, i);
    const int code = dovfileseek(p, i);
    return code == dov_ok ? getspl(p, &brk.time, &brk.ncont, &brk.flg2, brk.coe) : code;
}

// How a spline on file reads its breakpoints. Its file pointer is the handle's own member.
int read_break_of(_splfile *fp, int i, _brkpoint *brk)
{
    return read_break(reinterpret_cast<_dovfiletype *>(fp), i, *brk);
}

_espl *load(_dovfiletype *p, int nbrks, int ncoe)
{
    espl_ptr e(espl_init_for_memory(nbrks, ncoe));
    if (e == nullptr)
        return nullptr;
    for (int i = 0; i < nbrks; ++i) {
        if (const int code = read_break(p, i, e->brks[i]); code != dov_ok)
            return refuse(code);
    }
    return espl_rehash(e.get()) == espl_ok ? e.release() : nullptr;
}

int write_breaks(_dovfiletype *p, const _espl &e)
{
    int code = dov_ok;
    for (int i = 0; i < e.nbrks && code == dov_ok; ++i) {
        const _brkpoint &brk = e.brks[i];
        code = putspl(p, brk.time, brk.ncont, brk.flg2, brk.coe);
    }
    return code;
}

} // namespace

const dov_type spl_type = {106,
                           "spl",
                           "Spline",
                           sizeof(_splheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::element,
                           layout,
                           spl_service,
                           spl_keyword_service,
                           &state,
                           true};

_dovfiletype *openspl(const char *filename, const char *mode, int ncoe)
{
    _splheader head;
    dov_init_head(spl_type, &head);
    head.ncoe = ncoe;
    return dov_open(spl_type, filename, mode, &head);
}

int getspl(_dovfiletype *p, double *time, int *flag1, int *flag2, double *coe)
{
    if (p != nullptr && p->commonstuff.nextelem >= p->commonstuff.nelements)
        return done(dov_end);
    int code = prepare(p);
    if (code == dov_ok)
        code = dovfilereadblock(p, p->spl.elembuf, 1);
    if (code != dov_ok)
        return done(code);
    element_head head;
    std::memcpy(&head, p->spl.elembuf, sizeof head);
    std::memcpy(coe, p->spl.elembuf + sizeof head, coefficient_bytes(p->spl));
    *time = head.time;
    *flag1 = head.ncont;
    *flag2 = head.flg2;
    return done(dov_ok);
}

int putspl(_dovfiletype *p, double time, int flag1, int flag2, const double *coe)
{
    if (const int code = prepare(p); code != dov_ok)
        return done(code);
    char *element = p->spl.elembuf;
    const element_head head = {time, flag1, flag2};
    std::memset(element, 0, static_cast<std::size_t>(p->spl.elemsize));
    std::memcpy(element, &head, sizeof head);
    std::memcpy(element + sizeof head, coe, coefficient_bytes(p->spl));
    return done(dovfilewriteblock(p, element, 1));
}

int getsplkeys(_dovfiletype *p, int *ncoe, char *type, char *xunits, char *yunits, int *ider)
{
    if (p == nullptr)
        return done(dov_no_handle);
    const _splheader &hd = p->spl.hd;
    if (ncoe != nullptr)
        *ncoe = hd.ncoe;
    if (ider != nullptr)
        *ider = hd.ider;
    c_strncpy(type, hd.type, spl_units_size);
    c_strncpy(xunits, hd.xunits, spl_units_size);
    c_strncpy(yunits, hd.yunits, spl_units_size);
    return done(dov_ok);
}

int putsplkeys(_dovfiletype *p, const int * /*ncoe*/, const char *type, const char *xunits, const char *yunits,
               const int *ider)
{
    _splheader hd;
    const int code = u_gethead(p, &hd);
    if (code != dov_ok)
        return done(code);
    for (const auto &[place, text] : {std::pair{hd.type, type}, {hd.xunits, xunits}, {hd.yunits, yunits}}) {
        if (text == nullptr)
            continue;
        std::memset(place, 0, spl_units_size);
        c_strncpy(place, text, spl_units_size);
    }
    if (ider != nullptr)
        hd.ider = *ider;
    return done(u_puthead(p, &hd));
}

int getsplerror()
{
    return state.error;
}

int spl_service(_dovfiletype *p, int opcode, void *arg)
{
    return dov_service(spl_type, p, opcode, arg);
}

int spl_keyword_service(_dovfiletype *p, int opcode, char *name, void *arg)
{
    return dov_keyword_service(spl_type, p, opcode, name, arg);
}

int espl_write(const _espl *e, const char *fname, const char *head, const char *type, const char *xunits,
               const char *yunits, int ider)
{
    const espl_ptr loaded(espl_copy(e)); // which also lets a spline on file be written over its own file
    if (loaded == nullptr)
        return espl_error();
    file_ptr p(openspl(fname, "New", loaded->ncoe));
    if (p == nullptr)
        return espl_set_error(getsplerror());
    int code = putsplkeys(p.get(), nullptr, type, xunits, yunits, &ider);
    if (code == dov_ok && head != nullptr)
        code = u_kwput_s(p.get(), "text", head);
    if (code == dov_ok)
        code = write_breaks(p.get(), *loaded);
    const int closed = dovfileclose(p.release());
    return espl_set_error(code == dov_ok ? closed : code);
}

_espl *espl_read(const char *fname)
{
    const file_ptr p(openspl(fname, "Old", 0));
    return p != nullptr ? espl_init_with_file(p.get(), 0) : refuse(getsplerror());
}

_espl *espl_init_with_file(_dovfiletype *fp, int mode)
{
    if (fp == nullptr || fp->commonstuff.kw.filetype != spl_type.code)
        return refuse(fp == nullptr ? dov_no_handle : dov_wrong_type);
    const int ncoe = fp->spl.hd.ncoe;
    std::int32_t nbrks = 0;
    const int code = u_nelem(fp, &nbrks);
    if (code != dov_ok)
        return refuse(code);
    if (nbrks < 2 || ncoe < 1)
        return refuse(espl_few_breaks);
    if (mode == 0)
        return load(fp, nbrks, ncoe);
    return mode == 1 ? espl_init_for_reader(&fp->spl, read_break_of, nbrks, ncoe) : refuse(espl_bad_arg);
}
