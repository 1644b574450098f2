#include "wi/spfunc.h"

#include "dovsys/dovsys.h"
#include "wi/spfile.h"
#include "wi/sputil.h"
#include "wi/spworkers.h"

#include <algorithm>
#include <array>

namespace {

sp_value *errstr(const sp_call &call)
{
    sp_value *copy = sp_cpval(call.args[0]);
    if (copy->type == sp_error)
        copy->type = sp_string;
    return copy;
}

constexpr const char *bad_number = "Bad number of arguments.";

constexpr std::array functions = {
    sp_function_row{"ACOS", 1, -1, bad_number, spfunc_x, 5, "ACOS(x)  arc cosine of x from -1 to 1, in radians",
                    "ACOS(SEQ(1, 0))", "0 1.5707963267948966"},
    sp_function_row{"ANYFILE", 0, -1, nullptr, spfunc_file, sp_file_any,
                    "ANYFILE(file, quantity, t0, t1, most, ...)  any measurement file", "ANYFILE(\"run.iq\", NREC)",
                    "3"},
    sp_function_row{"ASIN", 1, -1, bad_number, spfunc_x, 4, "ASIN(x)  arc sine of x from -1 to 1, in radians",
                    "ASIN(1)", "1.5707963267948966"},
    sp_function_row{"ATAN", 1, -1, bad_number, spfunc_x, 6, "ATAN(x)  arc tangent of x, in radians", "ATAN(1)",
                    "0.7853981633974483"},
    sp_function_row{"ATAN2", 2, -1, bad_number, spfunc_xx, 13,
                    "ATAN2(y, x)  direction of the point (x, y) in radians, -pi to pi", "ATAN2(1, SEQ(0, -1))",
                    "1.5707963267948966 2.356194490192345"},
    sp_function_row{"AVG", 0, -1, nullptr, spfunc_avg, 0, "AVG(...)  mean of all numbers in the arguments",
                    "AVG(SEQ(1, 2, 3), 4)", "2.5"},
    sp_function_row{"CLIPBOT", 2, 2, "Wrong number of arguments in CLIPBOT.", spfunc_clipbot, 0,
                    "CLIPBOT(data, limit)  data with the limit in place of what is smaller",
                    "CLIPBOT(SEQ(1, 2, 3), 2.5)", "2.5 2.5 3"},
    sp_function_row{"CLIPTOP", 2, 2, "Wrong number of arguments in CLIPTOP.", spfunc_cliptop, 0,
                    "CLIPTOP(data, limit)  data with the limit in place of what is greater",
                    "CLIPTOP(SEQ(1, 2, 3), 2.5)", "1 2 2.5"},
    sp_function_row{"COS", 1, -1, bad_number, spfunc_x, 2, "COS(x)  cosine of x radians", "COS(0)", "1"},
    sp_function_row{"ERRSTR", 1, 1, "Wrong number of Arguments in ERRSTR.", errstr, 0,
                    "ERRSTR(x)  x itself; the message of an error as a text, so that a formula can go on",
                    "ERRSTR(1/0) + \" Go on.\"", "Divide By Zero Error. Go on."},
    sp_function_row{"ESPL", 2, -1, "Bad Number of arguments in ESPL.", spfunc_espl, 0,
                    "ESPL(file, x)  spline of a file at each element of x; at 0 when x is no array",
                    "ESPL(\"run.spl\", SEQ(0.5, 1.5))", "0.25 1.75"},
    sp_function_row{"EXP", 1, -1, bad_number, spfunc_x, 11, "EXP(x)  e to the power x", "EXP(1)", "2.718281828459045"},
    sp_function_row{"FIND2DPKS", 2, 2, "Wrong number of arguments in FIND2DPKS.", spfunc_find2dpks, 0,
                    "FIND2DPKS(data, nx)  positions from 1 of the points of a grid, in rows of nx, that are greater "
                    "than their eight neighbours",
                    "FIND2DPKS(SEQ(0, 0, 0, 0, 1, 0, 0, 0, 0), 3)", "5"},
    sp_function_row{"GATFILE", 0, -1, nullptr, spfunc_file, sp_file_gat,
                    "GATFILE(file, quantity, t0, t1, most, ...)  range gates of a GAT file",
                    "GATFILE(\"run.gat\", RANGE, \"ISLOT=2\")", "515 525"},
    sp_function_row{"GETKW", 2, 2, "Bad number of Arguments in GETWK.", spfunc_getkw, 0,
                    "GETKW(file, keyword)  value of a keyword of a measurement file", "GETKW(\"run.iq\", \"prf\")",
                    "2"},
    sp_function_row{"IMGFILE", 0, -1, nullptr, spfunc_file, sp_file_img,
                    "IMGFILE(file, quantity, t0, t1, most, ...)  samples of an IMG file", "IMGFILE(\"run.img\", DATA)",
                    "1 2 3 4"},
    sp_function_row{"IQFILE", 0, -1, nullptr, spfunc_file, sp_file_iq,
                    "IQFILE(file, quantity, t0, t1, most, ...)  samples of an IQ or DOP file",
                    "IQFILE(\"run.iq\", AMP)", "5 2 1"},
    sp_function_row{"LOG10", 1, -1, bad_number, spfunc_x, 8, "LOG10(x)  common logarithm of x above 0", "LOG10(1000)",
                    "3"},
    sp_function_row{"LOGN", 1, -1, bad_number, spfunc_x, 9, "LOGN(x)  natural logarithm of x above 0", "LOGN(EXP(1))",
                    "1"},
    sp_function_row{"MAX", 0, -1, nullptr, spfunc_max, 0, "MAX(...)  largest number in all arguments",
                    "MAX(SEQ(3, 1), 2)", "3"},
    sp_function_row{"MIN", 0, -1, nullptr, spfunc_min, 0, "MIN(...)  smallest number in all arguments",
                    "MIN(SEQ(3, 1), 2)", "1"},
    sp_function_row{"NINT", 1, -1, bad_number, spfunc_x, 7,
                    "NINT(x)  nearest integer of x, halves away from zero, as far as 32 bits go",
                    "NINT(SEQ(2.5, -2.5, 0.4))", "3 -3 0"},
    sp_function_row{"NOTVALIDARRAY", 2, 2, bad_number, spfunc_notvalidarray, 0,
                    "NOTVALIDARRAY(data, flags)  elements whose flag is 0", "NOTVALIDARRAY(SEQ(1, 2, 3), SEQ(1, 0))",
                    "2"},
    sp_function_row{"NPTS", 0, -1, nullptr, spfunc_npts, 0,
                    "NPTS(...)  how many numbers the arguments hold, an array all its elements",
                    "NPTS(SEQ(1, 2, 3), 5)", "4"},
    sp_function_row{"PKSFILE", 0, -1, nullptr, spfunc_file, sp_file_pks,
                    "PKSFILE(file, quantity, t0, t1, most, ...)  peaks of a PKS file",
                    "PKSFILE(\"run.pks\", AMP, \"ISLOT=2\")", "0.5 0.25"},
    sp_function_row{"POW", 2, -1, bad_number, spfunc_xx, 14, "POW(a, b)  a to the power b", "POW(SEQ(2, 3, 4), 2)",
                    "4 9 16"},
    sp_function_row{"POW10", 1, -1, bad_number, spfunc_x, 10, "POW10(x)  10 to the power x", "POW10(SEQ(2, -1))",
                    "100 0.1"},
    sp_function_row{"RAMP", 0, -1, nullptr, spfunc_ramp, 0,
                    "RAMP(start, step, n)  n numbers from start on, step apart; 0, 1 and 1 unless given",
                    "RAMP(1, 2, 3)", "1 3 5"},
    sp_function_row{"RAND", 0, -1, nullptr, spfunc_rand, 0,
                    "RAND(n)  n random numbers, 1 unless given, from 0 to 1.53e-5, in every run the same",
                    "RAND(2)*2147483647", "41 18467"},
    sp_function_row{"RANK", 1, -1, "No arguments in RANK.", spfunc_rank, 0,
                    "RANK(...)  which number to take first, second and so on to have the largest first",
                    "RANK(3, 1, 2)", "1 3 2"},
    sp_function_row{"REAFILE", 0, -1, nullptr, spfunc_file, sp_file_rea,
                    "REAFILE(file, quantity, t0, t1, most, ...)  track of a REA file",
                    "REAFILE(\"run.rea\", RANGE, 1, 2)", "115 140"},
    sp_function_row{"SEQ", 0, -1, nullptr, spfunc_seq, 0, "SEQ(...)  all arguments one after the other in an array",
                    "SEQ(1, RAMP(5, 1, 2), 2.5)", "1 5 6 2.5"},
    sp_function_row{"SHUFFLE", 2, 2, "Wrong number of arguments in SHUFFLE.", spfunc_shuffle, 0,
                    "SHUFFLE(data, order)  elements of data by their positions, which count from 1",
                    "SHUFFLE(SEQ(7, 9, 8), RANK(SEQ(7, 9, 8)))", "9 8 7"},
    sp_function_row{"SIN", 1, -1, bad_number, spfunc_x, 1, "SIN(x)  sine of x radians", "SIN(SEQ(0, 1))",
                    "0 0.8414709848078965"},
    sp_function_row{"SORT", 1, -1, "No arguments in SORT.", spfunc_sort, 0,
                    "SORT(...)  all numbers in the arguments, the largest first", "SORT(3, 1, 2)", "3 2 1"},
    sp_function_row{"SPLBRKS", 1, -1, "Bad Number of arguments in SPLBRKS.", spfunc_splbrks, 0,
                    "SPLBRKS(file)  break points of a spline file", "SPLBRKS(\"run.spl\")", "0 1 2"},
    sp_function_row{"SPLEVAL", 2, -1, "Bad Number of arguments in ESPL.", spfunc_espl, 0,
                    "SPLEVAL(file, x)  spline of a file at each element of x; at 0 when x is no array",
                    "SPLEVAL(\"run.spl\", SEQ(0.5, 1.5))", "0.25 1.75"},
    sp_function_row{"SPLFILE", 0, -1, nullptr, spfunc_file, sp_file_spl,
                    "SPLFILE(file, quantity, t0, t1, most, ...)  spline of a SPL file",
                    "SPLFILE(\"run.spl\", FUNCTION, \"POINTS=2\")", "0 0.25 1 1.75 2"},
    sp_function_row{"SQRT", 1, -1, bad_number, spfunc_x, 12, "SQRT(x)  square root of x, 0 and above",
                    "SQRT(SEQ(4, 2.25))", "2 1.5"},
    sp_function_row{
        "SUBARRAY",
        1, -1, bad_number, spfunc_subarray, 0,
        "SUBARRAY(a, index, count)  count elements of a, or as many as there are, from index on; 1 and 1 unless given",
        "SUBARRAY(SEQ(5, 6, 7, 8), 3, 10)", "7 8"},
    sp_function_row{"SUM", 0, -1, nullptr, spfunc_sum, 0, "SUM(...)  sum of all numbers in the arguments",
                    "SUM(SEQ(1, 2, 3), 4)", "10"},
    sp_function_row{"TAN", 1, -1, bad_number, spfunc_x, 3, "TAN(x)  tangent of x radians", "TAN(0)", "0"},
    sp_function_row{"V3FILE", 0, -1, nullptr, spfunc_file, sp_file_v3,
                    "V3FILE(file, quantity, t0, t1, most, ...)  vectors of a VEC file", "V3FILE(\"run.vec\", YPOS)",
                    "2 4 8"},
    sp_function_row{"VALIDARRAY", 2, 2, bad_number, spfunc_validarray, 0,
                    "VALIDARRAY(data, flags)  elements whose flag is not 0, and those without a flag",
                    "VALIDARRAY(SEQ(1, 2, 3, 4, 5), SEQ(1, 0))", "1 3 4 5"},
    sp_function_row{"X2DINDX", 2, 2, "Wrong number of arguments in X2DINDX.", spfunc_x2dindx, 0,
                    "X2DINDX(nx, ny)  column of each point of a grid stored row after row", "X2DINDX(3, 2)",
                    "1 2 3 1 2 3"},
    sp_function_row{"Y2DINDX", 2, 2, "Wrong number of arguments in X2DINDX.", spfunc_y2dindx, 0,
                    "Y2DINDX(nx, ny)  row of each point of a grid stored row after row", "Y2DINDX(3, 2)",
                    "1 1 1 2 2 2"},
};

constexpr bool before(const sp_function_row &a, const sp_function_row &b)
{
    return a.name < b.name;
}
static_assert(std::is_sorted(functions.begin(), functions.end(), before)); // it is searched by halves

int compare(std::string_view name, std::string_view row)
{
    for (std::size_t i = 0; i < std::min(name.size(), row.size()); ++i)
        if (const int order = toupperx(name[i]) - row[i])
            return order;
    return name.size() < row.size() ? -1 : name.size() > row.size();
}

} // namespace

std::span<const sp_function_row> sp_function_table()
{
    return functions;
}

const sp_function_row *sp_find_function(std::string_view name)
{
    const auto *row =
        std::lower_bound(functions.begin(), functions.end(), name,
                         [](const sp_function_row &r, std::string_view n) { return compare(n, r.name) > 0; });
    return row != functions.end() && compare(name, row->name) == 0 ? row : nullptr;
}

sp_value *sp_function(sp_context *context, const char *name, const sp_value *const *args, int nargs)
{
    const std::span arguments(args, static_cast<std::size_t>(std::max(nargs, 0)));
    const sp_function_row *row = sp_find_function(name != nullptr ? name : "");
    const auto error =
        std::find_if(arguments.begin(), arguments.end(), [](auto *arg) { return arg->type == sp_error; });
    if (error != arguments.end() && (row == nullptr || row->worker != errstr))
        return sp_mk_error((*error)->string);
    if (row == nullptr)
        return sp_mk_error("Unknown function.");
    if (row->miscounted != nullptr && (nargs < row->least || (row->most >= 0 && nargs > row->most)))
        return sp_mk_error(row->miscounted);
    return row->worker({context, arguments, row->code});
}
