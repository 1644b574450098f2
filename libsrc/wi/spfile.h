// Reading measurement files into values.
#pragma once

#include <array>
#include <cstdint>

#include "wi/spfunc.h"
#include "wi/sputil.h"

// What a file function is to read. The codes of file types and quantities are those of the tables in spfileparm.cpp.
struct fileparams {
    char fname[256] = "";
    std::int32_t filetype = -1;
    std::int32_t datatype = 0; // 0 for the file type's own main quantity
    double t0 = -1e30;         // seconds, of the first and the last element that may be read
    double t1 = 1e30;
    std::int32_t mxelms = 10000000; // numbers in the result
    std::int32_t navg = 40;         // points that a rate is fitted to
    std::int32_t wtauto = 1;        // near ones count more
    std::int32_t fitall = 1;        // those that are not valid count as well
    std::int32_t islot = 0;         // item of an element, from 0
    std::int32_t iderv = 0;         // derivative of a spline
    std::int32_t nptsbrk = 100;     // points in an interval of a spline
};

// File types that functions have. The codes are the system's.
enum sp_file_type : std::int32_t {
    sp_file_iq = 1,
    sp_file_rea = 2,
    sp_file_pks = 3,
    sp_file_spl = 4,
    sp_file_v3 = 5,
    sp_file_img = 6,
    sp_file_gat = 7,
    sp_file_any = 9,
};

// Quantities that are more than a name in a table. Those from 50 on are of the whole file.
enum sp_data_type : std::int32_t {
    sp_data_time = 1,
    sp_data_amplitude = 2,
    sp_data_phase = 3,
    sp_data_i = 4,
    sp_data_q = 5,
    sp_data_range = 6,
    sp_data_elevation = 7,
    sp_data_azimuth = 8,
    sp_data_rate = 9,
    sp_data_acceleration = 10,
    sp_data_location = 11,
    sp_data_position = 12, // three codes each, for x, y and z
    sp_data_velocity = 15,
    sp_data_xyz_acceleration = 18,
    sp_data_attitude = 21, // yaw, pitch and roll
    sp_data_valid = 24,
    sp_data_function = 25,
    sp_data_all_time = 26,
    sp_data_all = 27,
    sp_data_header = 50,
    sp_data_prf = 51,
    sp_data_wavelength = 52,
    sp_data_first_time = 53,
    sp_data_last_time = 54,
    sp_data_samples = 55,
    sp_data_fft_size = 56,
    sp_data_lag = 57,
    sp_data_window = 58,
    sp_data_peaks_type = 59,
    sp_data_peaks = 60,
    sp_data_weighting = 61,
    sp_data_xunits = 62,
    sp_data_yunits = 63,
    sp_data_spline_type = 64,
    sp_data_coefficients = 65,
    sp_data_gates = 66,
    sp_data_records = 67,
};

// Puts the arguments of a call into the parameters, whose file type is the function's; false when one is none.
bool sp_get_parms(const sp_call &call, fileparams &parms);

// What spline files have between their breakpoints; null for another quantity.
sp_value *sp_read_spline(const fileparams &parms);

// Rates of change by time, of order 1 or 2, where a parabola is fitted to the points around: as many as NAVG tells, at
// least 3, half of them before and half of them behind as far as there are. Three points that are evenly spaced give
// the central difference. With WTAUTO a point counts the less the farther in time it is. `used` tells which points
// take part, null for all. n of each; out may be values.
struct sp_track {
    const double *times;
    const double *values;
    const double *used;
    std::size_t n;
};
void sp_fit_rates(const sp_track &track, const fileparams &parms, int order, double *out);
