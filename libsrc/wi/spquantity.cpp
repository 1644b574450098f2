#include "wi/spquantity.h"

#include "wi/spargs.h"
#include "wi/spcmath.h"
#include "wi/spfile.h"

#include <numbers>

namespace {

SP_WIDE void amplitude(const double *const *in, double *out, std::size_t n)
{
    const double *i = in[0];
    const double *q = in[1];
    for (std::size_t k = 0; k < n; ++k)
        out[k] = std::sqrt(i[k] * i[k] + q[k] * q[k]);
}

void phase(const double *const *in, double *out, std::size_t n)
{
    for (std::size_t k = 0; k < n; ++k)
        out[k] = std::atan2(in[1][k], in[0][k]);
}

// From range, elevation and azimuth, the angles in degrees: east, north and up.
double radians(double degrees)
{
    return degrees * (std::numbers::pi / 180);
}

double east(double range, double elevation, double azimuth)
{
    return range * std::cos(radians(elevation)) * std::sin(radians(azimuth));
}

double north(double range, double elevation, double azimuth)
{
    return range * std::cos(radians(elevation)) * std::cos(radians(azimuth));
}

double up(double range, double elevation, double /*azimuth*/)
{
    return range * std::sin(radians(elevation));
}

template <double (*coordinate)(double, double, double)>
void place(const double *const *in, double *out, std::size_t n)
{
    for (std::size_t k = 0; k < n; ++k)
        out[k] = coordinate(in[0][k], in[1][k], in[2][k]);
}

void location(const double *const *in, double *out, std::size_t n)
{
    for (std::size_t k = 0; k < n; ++k) {
        *out++ = east(in[0][k], in[1][k], in[2][k]);
        *out++ = north(in[0][k], in[1][k], in[2][k]);
        *out++ = up(in[0][k], in[1][k], in[2][k]);
    }
}

// One after the other.
template <std::size_t count>
void together(const double *const *in, double *out, std::size_t n)
{
    for (std::size_t k = 0; k < n; ++k)
        for (std::size_t i = 0; i < count; ++i)
            *out++ = in[i][k];
}

constexpr sp_inputs polar = {{{"range"}, {"elevation"}, {"azimuth"}}};
constexpr sp_inputs iq = {{{"i"}, {"q"}}};

constexpr sp_input component(int item)
{
    return {"x", item};
}

constexpr sp_quantity quantities[] = {
    {sp_data_amplitude, iq, amplitude},
    {sp_data_amplitude, {{{"amp"}}}},
    {sp_data_amplitude, {{{"sample"}}}},
    {sp_data_phase, iq, phase},
    {sp_data_i, {{{"i"}}}},
    {sp_data_q, {{{"q"}}}},
    {sp_data_range, {{{"range"}}}},
    {sp_data_elevation, {{{"elevation"}}}},
    {sp_data_azimuth, {{{"azimuth"}}}},
    {sp_data_rate, {{{"range"}}}, nullptr, 1, 1},
    {sp_data_rate, {{{"hz"}}}},
    {sp_data_acceleration, {{{"range"}}}, nullptr, 1, 2},
    {sp_data_acceleration, {{{"hz"}}}, nullptr, 1, 1},
    {sp_data_location, polar, location, 3},
    {sp_data_location, {{component(0), component(1), component(2)}}, together<3>, 3},
    {sp_data_position, polar, place<east>},
    {sp_data_position, {{component(0)}}},
    {sp_data_position + 1, polar, place<north>},
    {sp_data_position + 1, {{component(1)}}},
    {sp_data_position + 2, polar, place<up>},
    {sp_data_position + 2, {{component(2)}}},
    {sp_data_velocity, polar, place<east>, 1, 1},
    {sp_data_velocity, {{component(0)}}, nullptr, 1, 1},
    {sp_data_velocity + 1, polar, place<north>, 1, 1},
    {sp_data_velocity + 1, {{component(1)}}, nullptr, 1, 1},
    {sp_data_velocity + 2, polar, place<up>, 1, 1},
    {sp_data_velocity + 2, {{component(2)}}, nullptr, 1, 1},
    {sp_data_xyz_acceleration, polar, place<east>, 1, 2},
    {sp_data_xyz_acceleration, {{component(0)}}, nullptr, 1, 2},
    {sp_data_xyz_acceleration + 1, polar, place<north>, 1, 2},
    {sp_data_xyz_acceleration + 1, {{component(1)}}, nullptr, 1, 2},
    {sp_data_xyz_acceleration + 2, polar, place<up>, 1, 2},
    {sp_data_xyz_acceleration + 2, {{component(2)}}, nullptr, 1, 2},
    {sp_data_attitude, {{component(3)}}},
    {sp_data_attitude + 1, {{component(4)}}},
    {sp_data_attitude + 2, {{component(5)}}},
    {sp_data_valid, {{{"flag"}}}},
    {sp_data_all, iq, together<2>, 2},
};

} // namespace

std::span<const sp_quantity> sp_quantities()
{
    return quantities;
}
