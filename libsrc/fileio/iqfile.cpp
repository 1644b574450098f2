#include "fileio/iqfile.h"
#include "fileio/dovfiletype.h"
#include "fileio/filetypes.h"
#include "fileio/ufp.h"

namespace {

static_assert(offsetof(_iqfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"version", dov_form::i4, 0, 4}, {"pad", dov_form::raw, 4, 4},  {"text", dov_form::text, 8, 104},
    {"t0", dov_form::f8, 112, 8},    {"prf", dov_form::f8, 120, 8}, {"tbias", dov_form::f8, 128, 8},
    {"xlam", dov_form::f8, 136, 8},
};
constexpr const char *keywords[] = {"text", "t0", "tbias", "prf", "xlam"};
constexpr dov_field element_fields[] = {{"i", dov_form::f4, 0, 4}, {"q", dov_form::f4, 4, 4}};

dov_layout layout(const void * /*head*/)
{
    return {.fields = element_fields, .group = {}, .size = sizeof(_iqelement)};
}

dov_type_state state;

int done(int code)
{
    return state.error = code;
}

// Elements of other types have other sizes.
int check(const _dovfiletype *p)
{
    if (p == nullptr)
        return dov_no_handle;
    return p->commonstuff.kw.filetype == iq_type.code ? dov_ok : dov_wrong_type;
}

} // namespace

const dov_type iq_type = {101,
                          "iq",
                          "IQ samples",
                          sizeof(_iqheader),
                          header_fields,
                          keywords,
                          {},
                          dov_clock::header,
                          layout,
                          iq_service,
                          iq_keyword_service,
                          &state};

_dovfiletype *openiq(const char *filename, const char *mode)
{
    _iqheader head;
    dov_init_head(iq_type, &head);
    return dov_open(iq_type, filename, mode, &head);
}

int getiq(_dovfiletype *iq, double *dtme, double *fi, double *fq)
{
    int code = check(iq);
    if (code != dov_ok)
        return done(code);
    const double time = iq->commonstuff.nextelem / iq->iq.hd.prf + iq->iq.hd.t0;
    _iqelement element;
    code = dovfilereadblock(iq, &element, 1);
    if (code != dov_ok)
        return done(code);
    *dtme = time;
    *fi = static_cast<double>(element.i);
    *fq = static_cast<double>(element.q);
    return done(dov_ok);
}

int putiq(_dovfiletype *iq, double fi, double fq)
{
    const _iqelement element = {static_cast<float>(fi), static_cast<float>(fq)};
    const int code = check(iq);
    return done(code == dov_ok ? dovfilewriteblock(iq, &element, 1) : code);
}

int getiqkeys(_dovfiletype *iq, double *t0, double *tbias, double *prf, double *xlam)
{
    const int code = check(iq);
    if (code != dov_ok)
        return done(code);
    const _iqheader &hd = iq->iq.hd;
    *t0 = hd.t0;
    *tbias = hd.tbias;
    *prf = hd.prf;
    *xlam = hd.xlam;
    return done(dov_ok);
}

int putiqkeys(_dovfiletype *iq, const double *t0, const double *tbias, const double *prf, const double *xlam)
{
    _iqheader hd;
    int code = check(iq);
    if (code == dov_ok)
        code = u_gethead(iq, &hd);
    if (code != dov_ok)
        return done(code);
    hd.t0 = *t0;
    hd.tbias = *tbias;
    hd.prf = *prf;
    hd.xlam = *xlam;
    return done(u_puthead(iq, &hd));
}

int getiqerror()
{
    return state.error;
}

int iq_service(_dovfiletype *iq, int opcode, void *arg)
{
    return dov_service(iq_type, iq, opcode, arg);
}

int iq_keyword_service(_dovfiletype *iq, int opcode, char *name, void *arg)
{
    return dov_keyword_service(iq_type, iq, opcode, name, arg);
}
