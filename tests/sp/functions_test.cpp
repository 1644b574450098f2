#include "told.h"

#include "fileio/fileio.h"
#include "wi/spfile.h"
#include "wi/spworkers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>
#include <vector>

namespace {

// The result as the console tool prints a short one.
std::string printed(const std::string &result)
{
    return result.find_first_of("['!") == 0 ? result.substr(1, result.size() - 1 - (result[0] != '!' ? 1 : 0)) : result;
}

// A small file of each type, under the names that the examples use.
struct Files : testing::Test {
    Files()
    {
        const double t0 = 10, tbias = 0, prf = 2, xlam = 0.5;
        _dovfiletype *p = openiq("run.iq", "New");
        putiqkeys(p, &t0, &tbias, &prf, &xlam);
        u_kwput_s(p, "text", "three samples");
        u_kwput_i(p, "run", 7);
        u_kwput_s(p, "site", "hill");
        for (const auto &[i, q] : {std::pair{3, 4}, {0, 2}, {-1, 0}})
            putiq(p, i, q);
        u_close(p);

        p = openrea("run.rea", "New");
        for (const auto &[time, range] : {std::pair{0, 100}, {1, 115}, {2, 140}, {3, 999}, {4, 220}}) {
            const _reaelement e = {time * 1.0, range * 1.0, 30, 90, time == 3 ? 0 : 1, 0};
            u_putelem(p, &e);
        }
        u_close(p);

        const _pkspeak peaks[] = {{100, 1}, {200, 0.5}, {110, 1}, {210, 0.25}};
        p = openpks("run.pks", "New", 2);
        u_kwput_d(p, "xlam", 0.5);
        u_kwput_i(p, "type", 3);
        put(p, peaks, 2, 2);

        const double pieces[2][3] = {{0, 0, 1}, {1, 2, -1}};
        p = openspl("run.spl", "New", 3);
        const int ider = 0;
        putsplkeys(p, nullptr, "range", "s", "m", &ider);
        putspl(p, 0, 0, 0, pieces[0]);
        putspl(p, 1, 0, 0, pieces[1]);
        const double last[] = {2, 0, -1};
        putspl(p, 2, 0, 0, last);
        u_close(p);

        const double vectors[] = {1, 2, 3, 2, 4, 3, 3, 8, 3};
        put(openvec("run.vec", "New", 3), vectors, 3, 3);
        const float samples[] = {1, 2, 3, 4};
        put(openimg("run.img", "New", 2), samples, 2, 2);

        const struct {
            _gatlook look;
            float iq[4];
        } looks[] = {{{5, 500, 0, 0}, {3, 4, 0, 1}}, {{6, 510, 0, 0}, {6, 8, 0, -1}}};
        p = opengat("run.gat", "New", 2, gat_iq);
        u_kwput_d(p, "incrng", 15);
        put(p, looks, 2, 1);

        const _dopsample doppler[] = {{3, 4}, {6, 8}};
        p = opendop("run.dop", "New", 2);
        u_kwput_d(p, "scale", 0.5);
        put(p, doppler, 1, 2);
        u_close(openiq("none.iq", "New"));
    }

    ~Files() override
    {
        for (const char *name :
             {"run.iq", "run.rea", "run.pks", "run.spl", "run.vec", "run.img", "run.gat", "run.dop", "none.iq"})
            std::filesystem::remove(name);
    }

    // n elements of so many items, and the end of the file.
    template <class Item>
    static void put(_dovfiletype *p, const Item *items, int n, int width)
    {
        for (int i = 0; i < n; ++i)
            u_putelem(p, items + i * width);
        u_close(p);
    }

    const own_context context;
};

TEST_F(Files, AreReadByTheFunctions)
{
    constexpr const char *bad_parameter = "!Bad parameter in call to file reading routine.";
    constexpr const char *bad_type = "!Bad data type for file type.";
    constexpr const char *no_data = "!No data found between T0 and T1.";
    using row = std::pair<const char *, std::string>;
    for (const auto &[formula, expected] : {
             row{"IQFILE(\"run.iq\")", "[5 2 1]"},
             {"iqfile(#none, amp)", "!Unable to open file."},
             {"IQFILE()", bad_parameter},
             {"IQFILE(\"run.rea\", AMP)", "!Unable to open file."},
             {"IQFILE(\" run.iq \", \"datatype = PH\")", "[0.9272952180016122 1.5707963267948966 3.141592653589793]"},
             {"IQFILE(\"run.iq\", DATA)", "[3 4 0 2 -1 0]"},
             {"IQFILE(\"run.iq\", TIME, 10.1)", "[10.5 11]"},
             {"IQFILE(\"run.iq\", ALLTIME, 10.1, 10.2)", "[10 10.5 11]"},
             {"IQFILE(\"run.iq\", I, 10.5, 11)", "[0 -1]"},
             {"IQFILE(\"run.iq\", Q, \"T1=10.9\", \"MAX=1\")", "[4]"},
             {"IQFILE(\"run.iq\", Q, 0, 99, 2.4, 7)", "[4 2]"},
             {"IQFILE(\"run.iq\", Q, SEQ(10.5, 0))", "[2 0]"},
             {"IQFILE(\"run.iq\", \"MA=500\")", bad_parameter},
             {"IQFILE(\"run.iq\", ())", bad_parameter},
             {"IQFILE(\"run.iq\", Q, 5, 5)", "!Times do not overlap in for file reading function."},
             {"IQFILE(\"run.iq\", Q, 11.1)", "!T0 and T1 overlap, no data found."},
             {"IQFILE(\"run.iq\", Q, 10.1, 10.2)", no_data},
             {"IQFILE(\"none.iq\", Q)", no_data},
             {"IQFILE(\"none.iq\", T1)", no_data},
             {"IQFILE(\"none.iq\", NREC)", "0"},
             {"IQFILE(\"run.iq\", RANGE)", bad_type},
             {"IQFILE(\"run.iq\", NGAT)", bad_type},
             {"IQFILE(\"run.iq\", WHAT)", bad_type},
             {"IQFILE(\"run.iq\", HEADER)", "'three samples'"},
             {"SEQ(IQFILE(\"run.iq\", PRF), IQFILE(\"run.iq\", XLAM), IQFILE(\"run.iq\", T1))", "[2 0.5 11]"},
             {"IQFILE(\"run.dop\", AMP, \"ISLOT=2\")", "[5]"},
             {"IQFILE(\"run.dop\", DATA)", "[1.5 2 3 4]"},
             {"IQFILE(\"run.dop\", AMP, \"ISLOT=3\")", bad_type},
             {"IQFILE(\"run.dop\", AMP, \"ISLOT=0\")", bad_type},
             {"REAFILE(\"run.rea\", VALID)", "[1 1 1 0 1]"},
             {"REAFILE(\"run.rea\", EL, 0, 1)", "[30 30]"},
             {"NINT(1000*REAFILE(\"run.rea\", RATE, 0, 2, \"NAVG=3\"))", "[10000 20000 30000]"},
             {"NINT(1000*REAFILE(\"run.rea\", RATE, \"FITALL=NO\"))", "[10000 20000 30000 40000 50000]"},
             {"NINT(1000*REAFILE(\"run.rea\", ACC, \"FITALL=0\", \"WTAUTO=F\"))", "[10000 10000 10000 10000 10000]"},
             {"NINT(REAFILE(\"run.rea\", RATE, 3))", "[-779 -779]"},
             {"NINT(REAFILE(\"run.rea\", LOC, 0, 1)*10)", "[866 0 500 996 0 575]"},
             {"NINT(REAFILE(\"run.rea\", ZVEL, 0, 2)*10)", "[50 100 150]"},
             {"PKSFILE(\"run.pks\", RATE)", "[25 27.5]"},
             {"PKSFILE(\"run.pks\", ACC, \"ISLOT=2\")", "[2.5 2.5]"},
             {"PKSFILE(\"run.pks\", PKSTYPE)", "3"},
             {"PKSFILE(\"run.pks\", DATA, 1)", "[110 1 210 0.25]"},
             {"SPLFILE(\"run.spl\", TIME, 0.9, \"POINTS=3\")", "[1 1.3333333333333333 1.6666666666666665 2]"},
             {"SPLFILE(\"run.spl\", \"IDER=1\", \"POINTS=0\")", "[0 2 0]"},
             {"SPLFILE(\"run.spl\", ACC, \"POINTS=1\", \"MAX=2\")", "[2 -2]"},
             {"SPLFILE(\"run.spl\", ALLTIME)", "[0 1 2]"},
             {"SPLFILE(\"run.spl\", FUNC, 3)", "!T0 and T1 overlap, no data found."},
             {"SPLFILE(\"run.spl\", FUNC, 1.1, 1.2, \"POINTS=1\")", no_data},
             {"SPLFILE(\"run.spl\", AMP)", bad_type},
             {"SPLFILE(\"run.spl\", SPLTYPE)+SPLFILE(\"run.spl\", YUNITS)", "'rangem'"},
             {"SPLFILE(\"run.spl\", NCOE)", "3"},
             {"V3FILE(\"run.vec\", TIME)", "[0 1 2]"},
             {"V3FILE(\"run.vec\", YVEL)", "[1 3 5]"},
             {"V3FILE(\"run.vec\", YAW)", bad_type},
             {"V3FILE(\"run.vec\", LOC, 1, 1.5)", "[2 4 3]"},
             {"IMGFILE(\"run.img\", AMP, \"ISLOT=2\")", "[2 4]"},
             {"IMGFILE(\"run.img\", \"MAX=3\")", "[1 2]"},
             {"GATFILE(\"run.gat\", AMP)", "[5 10]"},
             {"GATFILE(\"run.gat\", DATA)", "[3 4 0 1 6 8 0 -1]"},
             {"GATFILE(\"run.gat\", NGAT)", "2"},
             {"ANYFILE(\"run.gat\", TIME)", "[5 6]"},
             {"ANYFILE(\"run.iq\", \"FILETYPE=rea\")", "!Unable to open file."},
             {"ANYFILE(\"run.iq\", \"FILETYPE=XYZ\")", "!Unknown file type."},
             {"IQFILE(\"run.iq\", \"FILETYPE=XYZ\")", "[5 2 1]"},
             {"ANYFILE(\"none\")", "!Unable to open file."},
             {"GETKW(\"run.iq\", RUN)", "7"},
             {"GETKW(\"run.iq\", \"site\")", "'hill'"},
             {"GETKW(\"run.iq\", NOT)", "!Parameter does not exist."},
             {"GETKW(\"none\", NOT)", "!File does not exist."},
             {"GETKW(\"run.iq\")", "!Bad number of Arguments in GETWK."},
             {"SPLEVAL(\"run.spl\", 1.5)", "0"},
             {"SPLEVAL(#X, 1.5)", "!Bad argument type for filename."},
             {"ESPL(\"run.iq\", 1.5)", "!Unable to open spline file."},
             {"SPLEVAL(\"run.spl\")", "!Bad Number of arguments in ESPL."},
             {"SPLBRKS(1)", "!Bad argument type in SPLBRKS."},
             {"SPLBRKS(\"run.iq\")", "!Unable to open Spline file in SPLBRKS."},
         })
        EXPECT_EQ(told(sp_eval_formula(context, formula)), expected) << formula;
}

TEST_F(Files, AndAllElseGiveWhatTheExamplesOfFunctionsSay)
{
    std::string_view before;
    for (const sp_function_row &row : sp_function_table()) {
        sp_rand_seed(1);
        EXPECT_EQ(printed(told(sp_eval_formula(context, row.example))), row.gives) << row.example;
        EXPECT_TRUE(std::string_view(row.help).starts_with(std::string(row.name) + "(")) << row.help;
        EXPECT_EQ(sp_find_function(row.name), &row);
        EXPECT_LT(before, row.name);
        before = row.name;
    }
}

TEST(Functions, HaveTheirResults)
{
    const own_context context;
    for (const char *line : {"NONE = RAMP(1, 1, 0)", "A = SEQ(1, 2, 3, 4, 5)", "Z = -0.0"})
        sp_script_line(context, line, 1);
    sp_var_putval(context, "NAN", sp_mk_scaler(NAN), sp_user);
    sp_rand_seed(1);
    using row = std::pair<const char *, std::string>;
    for (const auto &[formula, expected] : {
             // numbers
             row{"sqrt(\"6.25 m\")", "2.5"},
             {"SQRT(SEQ(1, -1))", "!SQRT of negitive number."},
             {"SQRT(SEQ(NAN, Z, 4))", "[nan -0 2]"},
             {"SQRT(NONE)", "[]"},
             {"SQRT(RAMP(-1025, 1, 2000))", "!SQRT of negitive number."},
             {"SQRT(RAMP(2000, -1, 2002))", "!SQRT of negitive number."},
             {"SQRT(4, 1/0)", "!Divide By Zero Error."},
             {"COS()", "1"},
             {"COS(#X)", "1"},
             {"ASIN(1.01)", "!ASIN of number out of bounds."},
             {"ACOS(SEQ(0, -1.01))", "!ACOS of number out of bounds."},
             {"LOG10(0)", "!LOG10 of zero or negitive number."},
             {"LOGN(-1)", "!LOGN of zero or negitive number."},
             {"LOGN(1E999)", "inf"},
             {"POW10(-3)", "0.001"},
             {"NINT(SEQ(-2.5, 2.5, -0.5, 1E300, -1E300, NAN))", "[-3 3 -1 2147483647 -2147483648 0]"},
             {"ATAN2(0, -1)", "3.141592653589793"},
             {"ATAN2(SEQ(1, 0), SEQ(1, 0, 1))", "!ATAN2 both args zero."},
             {"ATAN2(0, Z)", "!ATAN2 both args zero."},
             {"ATAN2(SEQ(0, 0), SEQ(1))", "[0]"},
             {"ATAN2(1)", "!Bad number of arguments."},
             {"POW(SEQ(1, 2, 3), SEQ(2, 3))", "[1 8]"},
             {"POW(\"2\", A)", "[2 4 8 16 32]"},
             {"POW(0, -1)", "inf"},
             {"RAND(-5)*2147483647", "41"},
             {"RAND(1.49)*2147483647", "18467"},
             {"RAND(1.5)*2147483647", "[6334 26500]"},
             // gathering
             {"MIN()", "0"},
             {"MIN(NONE)", "0"},
             {"MIN(NONE, 3, \"2\", 2.5)", "2"},
             {"MIN(SEQ(NAN, 1))", "nan"},
             {"MIN(5, SEQ(NAN, 1), NAN)", "5"},
             {"MIN(RAMP(20, -1, 19))", "2"},
             {"MAX(SEQ(0, 1, 2, 3, 9, 5, 6, 7, 8), NAN)", "9"},
             {"MAX(SEQ(Z, Z, Z, Z, Z, 0, 0, 0, 0))", "-0"},
             {"MAX(-3, -7)", "-3"},
             {"AVG(NONE)", "0"},
             {"AVG(A, 9, ())", "3.4285714285714284"},
             {"SUM(A, \"0.5\")", "15.5"},
             {"NPTS(A, (), NONE)", "6"},
             {"RAMP()", "[0]"},
             {"RAMP(5)", "[5]"},
             {"RAMP(5, 2, 2.5)", "[5 7 9]"},
             {"RAMP(5, 2, -1)", "[]"},
             {"SEQ()", "[0]"},
             {"SEQ(NONE, #X, \"7\")", "[0 7]"},
             // selecting
             {"SUBARRAY(A, 4, 10)", "[4 5]"},
             {"SUBARRAY(A, 5)", "5"},
             {"SUBARRAY(A, 0.49)", "!Bad index argument."},
             {"SUBARRAY(A, 1, 0.49)", "!Bad count argument."},
             {"SUBARRAY(A, 6)", "!Index out of bounds."},
             {"SUBARRAY(7, 1)", "7"},
             {"SUBARRAY(7, 1, 1E99)", "[7]"},
             {"SUBARRAY(7, 2)", "!Index out of bounds."},
             {"VALIDARRAY(A, SEQ(1, 0))", "[1 3 4 5]"},
             {"VALIDARRAY(A, SEQ(0, NAN, -1, 0, Z))", "[3]"},
             {"VALIDARRAY(A, 0)", "[2 3 4 5]"},
             {"NOTVALIDARRAY(A, SEQ(0, NAN, -1))", "[1 2]"},
             {"NOTVALIDARRAY(A, NONE)", "'No nonvalid points.'"},
             {"VALIDARRAY(7, SEQ(0, 1))", "'No valid points.'"},
             {"NOTVALIDARRAY(7, SEQ(0, 1))", "7"},
             {"VALIDARRAY(\"7\", A)", "!Bad 1st argument in VALIDARRAY."},
             {"NOTVALIDARRAY(#X, \"7\")", "!Bad 1st argument in NOTVALIDARRAY."},
             {"VALIDARRAY(A, ())", "!Bad 2nd argument in VALIDARRAY."},
             {"VALIDARRAY(\"7\", 1)", "NULL"},
             {"VALIDARRAY(7, 1)", "NULL"},
             {"VALIDARRAY(A)", "!Bad number of arguments."},
             {"CLIPTOP(SEQ(1, NAN, 3), 2)", "[1 nan 2]"},
             {"CLIPBOT(SEQ(1, NAN, 3), 2)", "[2 2 3]"},
             {"CLIPBOT((), 2)", "2"},
             {"CLIPTOP(NONE, 2)", "NULL"},
             {"CLIPBOT(1)", "!Wrong number of arguments in CLIPBOT."},
             // order
             {"SORT(3, SEQ(1, 2), \"7\", ())", "[7 3 2 1 0]"},
             {"RANK(3, 1, 2)", "[1 3 2]"},
             {"SORT(5)", "[5]"},
             {"SORT(NONE)", "!No data in SORT."},
             {"RANK(NONE)", "!No data in RANK."},
             {"SHUFFLE(A, SEQ(5.4, 0.4, 0.5, 6))", "[5 1]"},
             {"SHUFFLE(7, 1)", "7"},
             {"SHUFFLE(A, NONE)", "!No order data in SHUFFLE."},
             {"SHUFFLE(A, NAN)", "!No output data in SHUFFLE."},
             // grids
             {"X2DINDX(2.5, 1)", "[1 2 3]"},
             {"Y2DINDX(0, 1)", "!Bad argument in X2DINDX."},
             {"Y2DINDX(1)", "!Wrong number of arguments in X2DINDX."},
             {"FIND2DPKS(SEQ(0, 0, 0, 0, 0, 1, 0, 2, 0, 0, 0, 0, 0), 4)", "6"},
             {"FIND2DPKS(SEQ(0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0), 4)", "!No peaks found in FIND2DPKS."},
             {"FIND2DPKS(SEQ(0, 0, NAN, 0, 1, 0, 0, 0, 0), 3)", "!No peaks found in FIND2DPKS."},
             {"FIND2DPKS(A, 0)", "!Bad argument in FIND2DPKS."},
             {"FIND2DPKS(RAMP(0, 1, 8), 3)", "!Not enough data to find peaks in FIND2DPKS."},
             // errors
             {"ERRSTR(SQRT(-1), 1)", "!Wrong number of Arguments in ERRSTR."},
             {"ERRSTR(A)", "[1 2 3 4 5]"},
             {"NOPE(1/0)", "!Divide By Zero Error."},
             {"NOPE(1)", "!Unknown function."},
         })
        EXPECT_EQ(told(sp_eval_formula(context, formula)), expected) << formula;
    EXPECT_EQ(told(sp_function(context, "SEQ", nullptr, 0)), "[0]");
    EXPECT_EQ(told(sp_function(context, "SORT", nullptr, 0)), "!No arguments in SORT.");
}

std::string listed(const std::vector<double> &numbers)
{
    std::string all;
    for (const double n : numbers)
        all += (all.empty() ? "" : " ") + number(n);
    return "[" + all + "]";
}

TEST(Peaks, AreGreaterThanAllTheirNeighbours)
{
    const own_context context;
    std::uint32_t seed = 1;
    for (const auto &[nx, ny] : {std::pair{3, 40}, {66, 9}, {515, 5}, {1200, 4}}) {
        sp_value *grid = sp_mk_array(nx * ny);
        std::generate_n(grid->ary, grid->npts, [&] { return (seed = seed * 1664525U + 1013904223U) >> 28; });
        std::vector<double> expected;
        for (int k = nx + 1; k < nx * (ny - 1) - 1; ++k) {
            bool peak = k % nx > 0 && k % nx < nx - 1;
            for (const int other : {1, nx - 1, nx, nx + 1})
                peak = peak && grid->ary[k] > grid->ary[k - other] && grid->ary[k] > grid->ary[k + other];
            if (peak)
                expected.push_back(k + 1);
        }
        sp_var_putval(context, "G", grid, sp_user);
        EXPECT_EQ(told(sp_eval_formula(context, ("FIND2DPKS(G, " + std::to_string(nx) + ")").c_str())),
                  listed(expected));
    }
}

// Passes of exchanges until one exchanges nothing.
template <class Smaller>
std::vector<double> exchanged(std::vector<double> numbers, Smaller smaller)
{
    for (bool any = true; any;) {
        any = false;
        for (std::size_t i = 1; i < numbers.size(); ++i)
            if (smaller(numbers[i - 1], numbers[i])) {
                std::swap(numbers[i - 1], numbers[i]);
                any = true;
            }
    }
    return numbers;
}

TEST(Sorting, IsThatOfExchangedNeighbours)
{
    const own_context context;
    const double special[] = {0.0, -0.0, NAN, 1e300, -1e300, HUGE_VAL, -HUGE_VAL, 5e-324, -5e-324, 7};
    std::uint32_t seed = 1;
    const auto random = [&] { return (seed = seed * 1664525U + 1013904223U) >> 8; };
    for (const std::size_t n : {2U, 10U, 127U, 128U, 129U, 400U, 700U})
        for (const unsigned rarity : {1U, 3U, 200U}) { // of special numbers, not-a-number among them
            std::vector<double> numbers(n);
            std::vector<double> places(n);
            for (std::size_t i = 0; i < n; ++i) {
                numbers[i] = random() % rarity == 0 ? special[random() % 10] : random() % 1000 - 500.25;
                places[i] = static_cast<double>(i + 1);
            }
            sp_value *array = sp_mk_array(static_cast<int>(n));
            std::copy(numbers.begin(), numbers.end(), array->ary);
            sp_var_putval(context, "X", array, sp_user);
            EXPECT_EQ(told(sp_eval_formula(context, "SORT(X)")), listed(exchanged(numbers, std::less<>())));
            const auto smaller = [&](double a, double b) {
                return numbers[static_cast<std::size_t>(a) - 1] < numbers[static_cast<std::size_t>(b) - 1];
            };
            EXPECT_EQ(told(sp_eval_formula(context, "RANK(X)")), listed(exchanged(places, smaller)));
        }
}

} // namespace
