// Built-in functions, called from text. Usage: varnix_func_bench array-func|sort|peaks|iqfile REPS
//
// Prints lines `case peer n metric value` (tabs), after one round that is not counted. Beside the last two stands what
// the machine allows: a copy of the grid; and reading the file's bytes into a kept array with one pass over them.
#include "fileio/fileio.h"
#include "measure.h"
#include "wi/sp.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace {

void define(sp_context *context, const char *name, int npts, double low, double high)
{
    std::uint32_t seed = 1;
    sp_value *value = sp_mk_array(npts);
    for (int i = 0; i < npts; ++i) {
        value->ary[i] = low + (high - low) * next_random(seed);
    }
    sp_var_putval(context, name, value, sp_program);
}

void evaluate(sp_context *context, const std::string &formula)
{
    sp_value *value = sp_eval_formula(context, formula.c_str());
    if (value->type == sp_error)
        std::abort();
    sp_free_value(value);
}

void array_func(sp_context *context, int reps)
{
    define(context, "A", 1000000, 0.1, 10);
    for (const std::string name : {"SQRT", "SIN", "EXP", "LOG10"})
        for (const double s : measure(reps, 0.03, [&] { evaluate(context, name + "(A)"); }))
            std::printf("array-func\tours\t%s\telem/s\t%.9g\n", name.c_str(), 1e6 / s);
}

void sort(sp_context *context, int reps)
{
    define(context, "A", 1000000, -5, 5);
    for (const auto &[name, metric] : {std::pair{"SORT(A)", "ms-sort"}, {"RANK(A)", "ms-rank"}})
        for (const double s : measure(reps, 0.05, [&, formula = name] { evaluate(context, formula); }))
            std::printf("sort\tours\t1000000\t%s\t%.9g\n", metric, s * 1e3);
}

void peaks(sp_context *context, int reps)
{
    constexpr int npts = 4000 * 4000;
    define(context, "A", npts, 0, 1);
    const double *grid = sp_var_getval(context, "A")->ary;
    std::vector<double> copy(npts);
    for (const double s : measure(reps, 0.1, [&] { std::memcpy(copy.data(), grid, npts * sizeof(double)); }))
        std::printf("peaks\tlimit-memcpy\t4000x4000\tms\t%.9g\n", s * 1e3);
    for (const double s : measure(reps, 0.1, [&] { evaluate(context, "FIND2DPKS(A, 4000)"); }))
        std::printf("peaks\tours\t4000x4000\tms\t%.9g\n", s * 1e3);
}

// Reads a file's bytes by blocks into one array and sums them up as 32-bit reals.
float read_and_sum(const char *name, std::vector<float> &all)
{
    std::FILE *file = std::fopen(name, "rb");
    std::setvbuf(file, nullptr, _IONBF, 0);
    constexpr std::size_t block = std::size_t{1} << 18;
    std::size_t n = 0;
    for (std::size_t got = 1; got > 0; n += got)
        got = std::fread(all.data() + n, sizeof(float), std::min(block, all.size() - n), file);
    std::fclose(file);
    constexpr std::size_t lanes = 32;
    float sums[lanes] = {};
    for (std::size_t i = 0; i + lanes <= n; i += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += all[i + lane];
    float total = 0;
    for (const float s : sums)
        total += s;
    return total;
}

void iqfile(sp_context *context, int reps)
{
    constexpr int samples = 10000000;
    const std::string name = (std::filesystem::temp_directory_path() / "varnix_func_bench.iq").string();
    _dovfiletype *iq = openiq(name.c_str(), "New");
    for (int i = 0; i < samples; ++i)
        putiq(iq, i % 1000, i % 777);
    u_close(iq);
    std::vector<float> all(2 * samples + 1024);
    volatile float sum = 0;
    for (const double s : measure(reps, 0.1, [&] { sum = read_and_sum(name.c_str(), all); }))
        std::printf("iqfile\tlimit-read-and-sum\t%d\tms\t%.9g\n", samples, s * 1e3);
    for (const double s : measure(reps, 0.1, [&] { evaluate(context, "AVG(IQFILE(\"" + name + "\", AMP))"); }))
        std::printf("iqfile\tours\t%d\tms\t%.9g\n", samples, s * 1e3);
    std::filesystem::remove(name);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string name = argc == 3 ? argv[1] : "";
    void (*const run)(sp_context *, int) = name == "array-func" ? array_func
                                           : name == "sort"     ? sort
                                           : name == "peaks"    ? peaks
                                           : name == "iqfile"   ? iqfile
                                                                : nullptr;
    if (run == nullptr) {
        std::fprintf(stderr, "usage: varnix_func_bench array-func|sort|peaks|iqfile REPS\n");
        return 2;
    }
    sp_context *context = sp_init_context(nullptr, "bench", nullptr);
    run(context, std::atoi(argv[2]));
    sp_free_context(context);
    return 0;
}
