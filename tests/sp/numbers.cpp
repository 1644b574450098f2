// Numbers of functions on different systems. Without arguments it prints formulas and their values, with two files of
// that kind what differs between them, function by function:
//
//     sp_numbers > linux.txt; wine sp_numbers.exe > windows.txt; sp_numbers linux.txt windows.txt
#include "told.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>

namespace {

constexpr int formulas_each = 2000;

class generator {
public:
    double uniform()
    {
        seed = seed * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(seed >> 11) / 9007199254740992.0;
    }
    double between(double low, double high) { return low + (high - low) * uniform(); }

    // From 2 to the power `least` to that of `most`, evenly among the exponents.
    double spread(int least, int most) { return std::ldexp(1 + uniform(), static_cast<int>(between(least, most))); }
    double sign() { return uniform() < 0.5 ? -1 : 1; }

private:
    std::uint64_t seed = 1;
};

struct row {
    const char *name;
    double (*argument)(generator &g);
    double (*second)(generator &g) = nullptr;
};

double angle(generator &g)
{
    return g.sign() * g.spread(-10, 10);
}

double large(generator &g)
{
    return g.sign() * g.spread(10, 60);
}

double part(generator &g)
{
    return g.between(-1, 1);
}

double positive(generator &g)
{
    return g.spread(-100, 100);
}

double power(generator &g)
{
    return g.between(-300, 300);
}

double small_power(generator &g)
{
    return g.between(-9, 9);
}

constexpr row rows[] = {
    {"SIN", angle},
    {"SIN", large},
    {"COS", angle},
    {"COS", large},
    {"TAN", angle},
    {"TAN", large},
    {"ASIN", part},
    {"ACOS", part},
    {"ATAN", angle},
    {"NINT", angle},
    {"LOG10", positive},
    {"LOGN", positive},
    {"POW10", power},
    {"EXP", power},
    {"SQRT", positive},
    {"ATAN2", angle, angle},
    {"POW", positive, small_power},
    {"SUM", angle, large},
    {"AVG", angle, part},
};

std::string lines()
{
    const own_context context;
    generator g;
    std::string all;
    for (const row &r : rows)
        for (int i = 0; i < formulas_each; ++i) {
            std::string formula = std::string(r.name) + '(' + number(r.argument(g));
            if (r.second != nullptr)
                formula += ", " + number(r.second(g));
            formula += ")";
            all += formula + " " + told(sp_eval_formula(context, formula.c_str())) + '\n';
        }
    return all;
}

// Steps from one double to the other.
double steps(double a, double b)
{
    const auto place = [](double x) {
        const auto bits = std::bit_cast<std::int64_t>(x);
        return bits < 0 ? INT64_MIN - bits : bits;
    };
    return std::fabs(static_cast<double>(place(a) - place(b)));
}

int compare(const char *first, const char *second)
{
    struct result {
        int formulas = 0, different = 0;
        double most = 0;
    };
    std::map<std::string, result> results;
    std::ifstream a(first);
    std::ifstream b(second);
    std::string one;
    std::string other;
    while (std::getline(a, one) && std::getline(b, other)) {
        if (other.ends_with('\r'))
            other.pop_back();
        result &r = results[one.substr(0, one.find('('))];
        const std::size_t value = one.rfind(' ');
        ++r.formulas;
        r.different += one != other ? 1 : 0;
        r.most = std::max(r.most, one.substr(0, value) == other.substr(0, value)
                                      ? steps(std::atof(one.c_str() + value), std::atof(other.c_str() + value))
                                      : HUGE_VAL);
    }
    for (const auto &[name, r] : results)
        std::printf("%-6s %5d of %5d differ, by %g units in the last place at most\n", name.c_str(), r.different,
                    r.formulas, r.most);
    return results.empty() ? 1 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3)
        return compare(argv[1], argv[2]);
    std::fputs(lines().c_str(), stdout);
    return 0;
}
