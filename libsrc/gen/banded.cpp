#include "gen/banded.h"
#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

jmalloc_ptr<double> make_numbers(std::ptrdiff_t n)
{
    return jmalloc_ptr<double>(static_cast<double *>(jmalloc_bytes(static_cast<std::size_t>(n) * sizeof(double))));
}

// The power of two that brings a magnitude to 0.5 ... 1; 1 for what has none.
double scale_of(double magnitude)
{
    int exponent = 0;
    if (magnitude > 0 && std::isfinite(magnitude))
        std::frexp(magnitude, &exponent);
    return std::ldexp(1.0, std::clamp(-exponent, -1022, 1022));
}

// The equations during elimination. Rows are stored from the first column that is not yet eliminated (for rows that did
// not take part yet: from their first), which keeps them as long as the band is wide although exchanges widen it.
class band {
public:
    band(const double *matrix, const double *rhs, int size, int below, int above)
        : n(size), ml(below), width(std::ptrdiff_t{below} + above + 1), rows(make_numbers(n * width)),
          right(make_numbers(n)), column_scales(make_numbers(n))
    {
        for (int r = 0; r < n; ++r) {
            const int first = std::max(0, r - ml);
            const int end = static_cast<int>(std::min<std::ptrdiff_t>(n, std::ptrdiff_t{r} + above + 1));
            std::copy(matrix + r * width + ml + first - r, matrix + r * width + ml + end - r, row(r));
        }
        std::copy(rhs, rhs + n, right.get());
        scale_columns();
        scale_rows();
    }

    bool eliminate()
    {
        const double singular = static_cast<double>(width) * std::numeric_limits<double>::epsilon();
        for (int k = 0; k < n; ++k) {
            const int end = static_cast<int>(std::min<std::ptrdiff_t>(n, std::ptrdiff_t{k} + ml + 1));
            int pivot = k;
            for (int r = k + 1; r < end; ++r)
                pivot = std::fabs(*row(r)) > std::fabs(*row(pivot)) ? r : pivot;
            if (!(std::fabs(*row(pivot)) > singular) || !std::isfinite(*row(pivot)))
                return false;
            if (pivot != k) {
                std::swap_ranges(row(k), row(k) + width, row(pivot));
                std::swap(right.get()[k], right.get()[pivot]);
            }
            for (int r = k + 1; r < end; ++r)
                subtract(k, r);
        }
        return true;
    }

    // Back substitution; the solution replaces the right-hand side.
    bool substitute()
    {
        double *x = right.get();
        for (int k = n - 1; k >= 0; --k) {
            const std::ptrdiff_t count = std::min<std::ptrdiff_t>(width, n - k);
            double sum = x[k];
            for (std::ptrdiff_t i = 1; i < count; ++i)
                sum -= row(k)[i] * x[k + i];
            x[k] = sum / *row(k);
        }
        std::transform(x, x + n, column_scales.get(), x, [](double value, double scale) { return value * scale; });
        return std::all_of(x, x + n, [](double value) { return std::isfinite(value); });
    }

    const double *solution() const { return right.get(); }

private:
    double *row(std::ptrdiff_t r) { return rows.get() + r * width; }

    // Columns of row r that its places stand for.
    std::ptrdiff_t first_column(int r) const { return std::max(0, r - ml); }
    std::ptrdiff_t columns(int r) const { return std::min(width, n - first_column(r)); }

    void scale_columns()
    {
        double *scales = column_scales.get();
        for (int r = 0; r < n; ++r)
            for (std::ptrdiff_t i = 0; i < columns(r); ++i)
                scales[first_column(r) + i] = std::max(scales[first_column(r) + i], std::fabs(row(r)[i]));
        std::transform(scales, scales + n, scales, scale_of);
        for (int r = 0; r < n; ++r)
            for (std::ptrdiff_t i = 0; i < columns(r); ++i)
                row(r)[i] *= scales[first_column(r) + i];
    }

    void scale_rows()
    {
        for (int r = 0; r < n; ++r) {
            double largest = 0;
            for (std::ptrdiff_t i = 0; i < width; ++i)
                largest = std::max(largest, std::fabs(row(r)[i]));
            const double scale = scale_of(largest);
            std::for_each(row(r), row(r) + width, [scale](double &value) { value *= scale; });
            right.get()[r] *= scale;
        }
    }

    // Takes row k's column out of row r, which then starts at the next one.
    void subtract(int k, int r)
    {
        const double *from = row(k);
        double *to = row(r);
        const double factor = *to / *from;
        for (std::ptrdiff_t i = 1; i < width; ++i)
            to[i - 1] = to[i] - factor * from[i];
        to[width - 1] = 0;
        right.get()[r] -= factor * right.get()[k];
    }

    int n;
    int ml;
    std::ptrdiff_t width;
    jmalloc_ptr<double> rows;
    jmalloc_ptr<double> right;
    jmalloc_ptr<double> column_scales;
};

} // namespace

int solve_banded_system(const double *matrix, const double *rhs, double *solution, int n, int ml, int mu)
{
    if (matrix == nullptr || rhs == nullptr || solution == nullptr || n < 1 || ml < 0 || mu < 0)
        return 0;
    band equations(matrix, rhs, n, ml, mu);
    if (!equations.eliminate() || !equations.substitute())
        return 0;
    std::copy(equations.solution(), equations.solution() + n, solution);
    return 1;
}
