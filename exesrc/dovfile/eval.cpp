// dovfile eval: values of a spline or of a derivative, one a line.

#include "dovfile/lines.h"

#include <array>

namespace {

// The codes of splines that mean something else in other files.
int spline_error(const char *file, int code)
{
    return code == espl_few_breaks ? file_error(file, "error -16: fewer than two breakpoints") : file_error(file, code);
}

// False when the spline cannot be read there.
bool put_value(_espl *e, double x, int derivative)
{
    std::string line;
    append_number(line, espl(e, x, derivative), text_style::plain);
    if (espl_error() == espl_ok)
        put(line + "\n");
    return espl_error() == espl_ok;
}

// The values of all numbers on standard input.
int put_values(const char *file, _espl *e, int derivative)
{
    line_reader lines(nullptr);
    for (auto numbers = lines.next(); !numbers.empty(); numbers = lines.next()) {
        if (!lines.good)
            return file_error(lines.name, "line " + std::to_string(lines.number) + ": not a number");
        for (const double x : numbers) {
            if (!put_value(e, x, derivative))
                return spline_error(file, espl_error());
        }
    }
    return status_good;
}

} // namespace

// The spline stays on file, so that one larger than memory can be evaluated.
int run_eval(const command &self, arguments args)
{
    std::array options = {option{"deriv", true}};
    std::vector<const char *> rest;
    std::int32_t derivative = 0;
    if (!parse_options(self, args, options, rest))
        return status_bad_usage;
    if (rest.empty())
        return usage_error(self, "which file?");
    if (options[0].given && (!parse_number(options[0].value, derivative) || derivative < 0))
        return usage_error(self, "a derivative is a whole number, 0 or more");
    std::vector<double> abscissae(rest.size() - 1);
    for (std::size_t i = 0; i < abscissae.size(); ++i) {
        if (!parse_number(rest[i + 1], abscissae[i]))
            return usage_error(self, std::string("not a number: ") + rest[i + 1]);
    }
    const file_handle p(openspl(rest[0], "Old", 0));
    if (p == nullptr)
        return file_error(rest[0], getsplerror());
    const std::unique_ptr<_espl, void (*)(_espl *)> e(espl_init_with_file(p.get(), 1), espl_free);
    if (e == nullptr)
        return spline_error(rest[0], espl_error());
    if (abscissae.empty())
        return put_values(rest[0], e.get(), derivative);
    for (const double x : abscissae) {
        if (!put_value(e.get(), x, derivative))
            return spline_error(rest[0], espl_error());
    }
    return status_good;
}
