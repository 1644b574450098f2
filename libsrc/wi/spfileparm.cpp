// Arguments of the functions that read files.
#include "wi/spconvert.h"
#include "wi/spfile.h"
#include "wi/spnumber.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct word {
    const char *name; // "~" behind its shortest abbreviation
    int code;
};

constexpr word filetypes[] = {
    {"IQ", sp_file_iq}, {"REA", sp_file_rea}, {"PKS", sp_file_pks}, {"SPL", sp_file_spl},
    {"V3", sp_file_v3}, {"IMG", sp_file_img}, {"GAT", sp_file_gat}, {"ANY", sp_file_any},
};

constexpr word datatypes[] = {
    {"TIME", sp_data_time},
    {"ALLTIME", sp_data_all_time},
    {"AMP~LITUDE", sp_data_amplitude},
    {"PH~ASE", sp_data_phase},
    {"I", sp_data_i},
    {"Q", sp_data_q},
    {"R~ANGE", sp_data_range},
    {"EL~EVATION", sp_data_elevation},
    {"AZ~IMUTH", sp_data_azimuth},
    {"RATE", sp_data_rate},
    {"ACC~ELERATION", sp_data_acceleration},
    {"LOC~ATION", sp_data_location},
    {"XPOS~ITION", sp_data_position},
    {"YPOS~ITION", sp_data_position + 1},
    {"ZPOS~ITION", sp_data_position + 2},
    {"XVEL~OCITY", sp_data_velocity},
    {"YVEL~OCITY", sp_data_velocity + 1},
    {"ZVEL~OCITY", sp_data_velocity + 2},
    {"XACC~ELERATION", sp_data_xyz_acceleration},
    {"YACC~ELERATION", sp_data_xyz_acceleration + 1},
    {"ZACC~ELERATION", sp_data_xyz_acceleration + 2},
    {"YAW", sp_data_attitude},
    {"PITCH", sp_data_attitude + 1},
    {"ROLL", sp_data_attitude + 2},
    {"AUTO~TRACK", sp_data_valid},
    {"VALID~BIT", sp_data_valid},
    {"FUNC~TION", sp_data_function},
    {"DATA", sp_data_all},
    {"HEAD~ER", sp_data_header},
    {"PRF", sp_data_prf},
    {"XLAM", sp_data_wavelength},
    {"WAVELEN~GTH", sp_data_wavelength},
    {"T0", sp_data_first_time},
    {"T1", sp_data_last_time},
    {"NSAMP~LES", sp_data_samples},
    {"NFFT~SIZE", sp_data_fft_size},
    {"LAG~SIZE", sp_data_lag},
    {"WINDOW~SIZE", sp_data_window},
    {"PKSTYPE", sp_data_peaks_type},
    {"NPKS", sp_data_peaks},
    {"WEIGHT~ING", sp_data_weighting},
    {"XUNITS", sp_data_xunits},
    {"YUNITS", sp_data_yunits},
    {"SPLTYPE", sp_data_spline_type},
    {"NCOE", sp_data_coefficients},
    {"NGAT", sp_data_gates},
    {"NREC", sp_data_records},
};

template <std::size_t n>
int code_of(const word (&words)[n], const char *text)
{
    const auto *found =
        std::find_if(words, words + n, [=](const word &w) { return c_isabbrx(w.name, text, '~') != 0; });
    return found != words + n ? found->code : -1;
}

int rounded(const char *text)
{
    return bestint(sp_read_number(text));
}

std::int32_t yesno(const char *text)
{
    if (c_isabbrx("Y~ES", text, '~') != 0 || c_isabbrx("T~RUE", text, '~') != 0)
        return 1;
    return text[0] >= '0' && text[1] <= '9' && std::strtol(text, nullptr, 10) != 0 ? 1 : 0;
}

void set_name(fileparams &parms, const char *text)
{
    c_strncpy(parms.fname, text, sizeof parms.fname);
}

void set_datatype(fileparams &parms, const char *text)
{
    parms.datatype = code_of(datatypes, text);
}

void set_t0(fileparams &parms, const char *text)
{
    parms.t0 = sp_read_number(text);
}

void set_t1(fileparams &parms, const char *text)
{
    parms.t1 = sp_read_number(text);
}

void set_most(fileparams &parms, const char *text)
{
    parms.mxelms = rounded(text);
}

struct keyword {
    const char *name;
    void (*set)(fileparams &parms, const char *text);
};

constexpr keyword keywords[] = {
    {"FILENAME", set_name},
    {"FILETYPE",
     [](fileparams &parms, const char *text) {
         if (parms.filetype == sp_file_any)
             parms.filetype = code_of(filetypes, text);
     }},
    {"DATATYPE", set_datatype},
    {"T0", set_t0},
    {"T1", set_t1},
    {"MAX~ELEMENTS", set_most},
    {"NAVG", [](fileparams &parms, const char *text) { parms.navg = rounded(text); }},
    {"WTAUTO", [](fileparams &parms, const char *text) { parms.wtauto = yesno(text); }},
    {"FITALL", [](fileparams &parms, const char *text) { parms.fitall = yesno(text); }},
    {"ISLOT", [](fileparams &parms, const char *text) { parms.islot = std::max(rounded(text), INT32_MIN + 1) - 1; }},
    {"IDER~IVATIVE", [](fileparams &parms, const char *text) { parms.iderv = rounded(text); }},
    {"USETIMES", [](fileparams & /*parms*/, const char * /*text*/) {}},
    {"POINTS~PERINTERVAL", [](fileparams &parms, const char *text) { parms.nptsbrk = rounded(text); }},
};

constexpr std::array positional = {set_name, set_datatype, set_t0, set_t1, set_most};

// KEYWORD=value, cut at the "=".
bool get_parm(char *text, char *equals, fileparams &parms)
{
    *equals = '\0';
    const char *name = c_ridendws(text);
    const auto *found = std::find_if(std::begin(keywords), std::end(keywords),
                                     [=](const keyword &k) { return c_isabbrx(k.name, name, '~') != 0; });
    if (found == std::end(keywords))
        return false;
    found->set(parms, c_ridstartws(equals + 1));
    return true;
}

} // namespace

bool sp_get_parms(const sp_call &call, fileparams &parms)
{
    std::size_t place = 0;
    for (const sp_value *arg : call.args) {
        if (arg->type == sp_null || arg->type == sp_error)
            return false;
        sp_value *text = sp_convert(call.context, arg, sp_string);
        char *equals = c_strchrq(c_ridedgews(text->string), '=');
        bool good = true;
        if (equals != nullptr)
            good = get_parm(text->string, equals, parms);
        else if (place < positional.size())
            positional[place++](parms, text->string);
        sp_free_value(text);
        if (!good)
            return false;
    }
    return true;
}
