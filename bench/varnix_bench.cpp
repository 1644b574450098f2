// Formulas from text, at every call parsed anew. Usage: varnix_bench formula-latency|array-arith REPS
//
// Prints lines `case ours n metric value` (tabs), after one round that is not counted.
#include "measure.h"
#include "wi/sp.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

sp_value *array(int npts, std::uint32_t seed)
{
    sp_value *value = sp_mk_array(npts);
    for (int i = 0; i < npts; ++i) {
        value->ary[i] = 1 + next_random(seed);
    }
    return value;
}

std::string repeated(const char *text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

void formula_latency(sp_context *context, int reps)
{
    std::vector<std::pair<std::string, std::string>> formulas = {{"arith", "2+3*4-SIN(0.5)/(1+2)"},
                                                                 {"vars10", "A+B*C-D/E+F*(G-H)/I+J"}};
    constexpr double values[] = {1.5, 2.25, 3.75, 4.5, 5.25, 6.5, 7.75, 8.25, 9.5, 10.25};
    for (int i = 0; i < 10; ++i)
        sp_var_putval(context, std::string(1, static_cast<char>('A' + i)).c_str(), sp_mk_scaler(values[i]), sp_program);
    for (const int depth : {10, 100, 1000, 10000, 100000}) {
        const std::string label = std::to_string(depth);
        formulas.emplace_back("paren-" + label, repeated("(", depth) + "1+2" + repeated(")", depth));
        formulas.emplace_back("sum-" + label, repeated("1+(", depth) + "1" + repeated(")", depth));
    }
    for (const auto &formula : formulas)
        for (const double s : measure(reps, 0.02, [&] {
                 sp_value *value = sp_eval_formula(context, formula.second.c_str());
                 if (value->type != sp_scaler)
                     std::abort();
                 sp_free_value(value);
             }))
            std::printf("formula-latency\tours\t%s\tns\t%.9g\n", formula.first.c_str(), s * 1e9);
}

void array_arith(sp_context *context, int reps)
{
    for (const int npts : {1000, 100000, 1000000, 10000000}) {
        std::uint32_t seed = 0;
        for (const char *name : {"A", "B", "C"})
            sp_var_putval(context, name, array(npts, ++seed), sp_user);
        for (const double s : measure(reps, npts <= 100000 ? 0.01 : 0.05, [&] {
                 if (sp_script_line(context, "D = A*B + C*2 - A/B", 1).what != sp_line::assigned)
                     std::abort();
             }))
            std::printf("array-arith\tours\t%d\telem/s\t%.9g\n", npts, npts / s);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::string name = argc == 3 ? argv[1] : "";
    void (*const run)(sp_context *, int) = name == "formula-latency" ? formula_latency
                                           : name == "array-arith"   ? array_arith
                                                                     : nullptr;
    if (run == nullptr) {
        std::fprintf(stderr, "usage: varnix_bench formula-latency|array-arith REPS\n");
        return 2;
    }
    sp_context *context = sp_init_context(nullptr, "bench", nullptr);
    run(context, std::atoi(argv[2]));
    sp_free_context(context);
    return 0;
}
