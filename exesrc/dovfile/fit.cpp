// dovfile fit: a spline file from lines x,y.

#include "dovfile/lines.h"

#include "dovsys/dovsys.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <tuple>
#include <utility>

namespace {

enum { out, ncoe, breaks, nbreaks, ncont, type, xunits, yunits, text };

// What the fit's callbacks give; they have no other way to it.
std::vector<std::pair<double, double>> points;
std::vector<std::pair<double, int>> breakpoints;

int next_point(int i, double *x, double *y)
{
    std::tie(*x, *y) = points[static_cast<std::size_t>(i)];
    return 1;
}

int next_break(int i, double *time, int *continuity)
{
    std::tie(*time, *continuity) = breakpoints[static_cast<std::size_t>(i)];
    return 1;
}

struct parameters {
    std::int32_t order = 4;
    std::int32_t breaks = 10;
    std::int32_t continuity = 0;
};

bool parse_parameters(std::span<const option> options, parameters &wanted)
{
    const auto number = [&](int which, std::int32_t &value) {
        return !options[static_cast<std::size_t>(which)].given ||
               parse_number(options[static_cast<std::size_t>(which)].value, value);
    };
    if (!number(ncoe, wanted.order) || !number(nbreaks, wanted.breaks))
        return false;
    wanted.continuity = std::clamp(wanted.order, 1, bspl_mxcoe) - 2;
    return number(ncont, wanted.continuity) && wanted.breaks >= 2;
}

// Hands the numbers of every line to `take`, which says whether they are what it wants. A file that has others is
// reported.
template <typename taker>
int read_lines(const char *file, taker take)
{
    line_reader lines(std::strcmp(file, "-") == 0 ? nullptr : file);
    if (lines.file == nullptr)
        return file_error(file, "cannot be opened");
    for (auto numbers = lines.next(); !numbers.empty(); numbers = lines.next()) {
        if (!lines.good || !take(numbers))
            return file_error(lines.name, "line " + std::to_string(lines.number) + ": not the numbers expected");
        show_progress(lines.at, lines.size);
    }
    return status_good;
}

int read_points(const char *file)
{
    return read_lines(file, [](const std::vector<double> &numbers) {
        points.emplace_back(numbers[0], numbers.back());
        return numbers.size() == 2 && points.size() < std::numeric_limits<int>::max();
    });
}

int read_breaks(const char *file, int continuity)
{
    return read_lines(file, [=](const std::vector<double> &numbers) {
        const double given = numbers.size() == 1 ? continuity : numbers[1];
        const bool good = numbers.size() <= 2 && given == std::trunc(given) && std::fabs(given) <= 1e9;
        breakpoints.emplace_back(numbers[0], good ? static_cast<int>(given) : 0);
        return good && breakpoints.size() < std::numeric_limits<int>::max();
    });
}

// Evenly over all points. More breakpoints than points cannot be fitted, however many more they are.
void spread_breaks(std::size_t wanted, int continuity)
{
    double first = std::numeric_limits<double>::infinity();
    double last = -first;
    for (const auto &[x, y] : points) {
        if (!std::isfinite(x))
            continue;
        first = std::min(first, x);
        last = std::max(last, x);
    }
    const std::size_t n = std::min(wanted, points.size() + 2);
    for (std::size_t i = 0; i < n && first <= last; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(n - 1);
        breakpoints.emplace_back(i == n - 1 ? last : first * (1 - part) + last * part, continuity);
    }
}

void report(_espl *e)
{
    std::size_t used = 0;
    double squares = 0;
    for (const auto &[x, y] : points) {
        if (!(x >= e->t0 && x <= e->t1) || !std::isfinite(y))
            continue;
        ++used;
        squares += std::pow(y - espl(e, x, 0), 2);
    }
    std::string lines = "points used: " + std::to_string(used) + " of " + std::to_string(points.size());
    lines += "\nbreakpoints: " + std::to_string(e->nbrks) + "\nRMS residual: ";
    append_number(lines, std::sqrt(squares / static_cast<double>(used)), text_style::plain);
    put(lines + "\n");
}

int write(const _espl *e, std::span<const option> options)
{
    const char *name = options[out].value;
    const std::string beside = std::string(name) + ".new";
    int code = espl_write(e, beside.c_str(), options[text].value, options[type].value, options[xunits].value,
                          options[yunits].value, 0);
    if (code == dov_ok && !replace_file(beside, name))
        code = dov_cannot_open;
    if (code == dov_ok)
        return status_good;
    std::remove(beside.c_str());
    return file_error(name, code);
}

} // namespace

int run_fit(const command &self, arguments args)
{
    std::array options = {option{"out", true},     option{"ncoe", true},   option{"breaks", true},
                          option{"nbreaks", true}, option{"ncont", true},  option{"type", true},
                          option{"xunits", true},  option{"yunits", true}, option{"text", true}};
    std::vector<const char *> given(args.begin(), args.end());
    std::replace_if(
        given.begin(), given.end(), [](const char *arg) { return std::strcmp(arg, "-o") == 0; }, "--out");
    std::vector<const char *> files;
    parameters wanted;
    if (!parse_options(self, given, options, files))
        return status_bad_usage;
    if (files.size() != 1 || !options[out].given)
        return usage_error(self, "one file of points, and -o with the one to make");
    if (!parse_parameters(options, wanted) || (options[breaks].given && options[nbreaks].given))
        return usage_error(self, "orders and continuities are whole numbers, and so are the breakpoints, 2 or more");
    points.clear();
    breakpoints.clear();
    int status = read_points(files[0]);
    if (status == status_good && options[breaks].given)
        status = read_breaks(options[breaks].value, wanted.continuity);
    else if (status == status_good)
        spread_breaks(static_cast<std::size_t>(wanted.breaks), wanted.continuity);
    if (status != status_good)
        return status;
    if (breakpoints.empty())
        return file_error(files[0], "nothing to fit");
    const std::unique_ptr<_espl, void (*)(_espl *)> fitted(bspl_fit(wanted.order, static_cast<int>(points.size()),
                                                                    static_cast<int>(breakpoints.size()), next_point,
                                                                    next_break),
                                                           espl_free);
    if (fitted == nullptr)
        return file_error(files[0], jmalloc_ptr<char>(bspl_get_error()).get());
    status = write(fitted.get(), options);
    if (status == status_good)
        report(fitted.get());
    return status;
}
