// Measurement files of any bytes: every quantity that a formula can ask for is a value or an error, and a spline's
// breakpoints are the same read in two ways.
#include "fuzz.h"

#include "sp/told.h"

#include <filesystem>
#include <fstream>

namespace {

constexpr const char *quantities[] = {
    "TIME", "ALLTIME", "AMP",  "PHASE", "I",    "Q",      "RANGE",    "EL",   "AZ",     "RATE",    "ACC",    "LOC",
    "XPOS", "YVEL",    "ZACC", "YAW",   "ROLL", "VALID",  "FUNCTION", "DATA", "HEADER", "PRF",     "XLAM",   "T0",
    "T1",   "NSAMP",   "NFFT", "LAG",   "NPKS", "WEIGHT", "PKSTYPE",  "NCOE", "NGAT",   "SPLTYPE", "XUNITS", "NREC",
};

value_ptr evaluate(sp_context *context, const std::string &formula)
{
    value_ptr value(sp_eval_formula(context, formula.c_str()));
    require(value != nullptr && value->type != sp_null);
    return value;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::string name = (std::filesystem::temp_directory_path() / "varnix_file_fuzz").string();
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    const own_context context;
    const std::string file = "FILE(\"" + name + "\", ";
    for (const char *quantity : quantities) {
        evaluate(context, "ANY" + file + quantity + ", \"MAX=1000\", \"POINTS=3\", \"NAVG=5\")");
        evaluate(context, "ANY" + file + quantity + ", 1, 2.5, 40, \"ISLOT=2\", \"FITALL=NO\", \"WTAUTO=NO\")");
    }
    const value_ptr breaks = evaluate(context, "SPLBRKS(\"" + name + "\")");
    require(breaks->type == sp_error || breaks->npts == 0 ||
            told(*breaks) == told(*evaluate(context, "SPL" + file + "ALLTIME)")));
    for (const char *keyword : {"text", "prf", "ncoe", "#X"})
        evaluate(context, "GETKW(\"" + name + "\", " + keyword + ")");
    evaluate(context, "SPLEVAL(\"" + name + "\", RAMP(-1, 0.5, 9))");
    return 0;
}
