// Machine conversion: numbers between the formats of the machines that write measurement files, in place.
//
// Reals are converted by manipulating their bits, without rounding. F, D and G are the VAX formats: 16-bit words, the
// one with sign and exponent first, each little-endian.
//
//   code  machine                        integers       4-byte real  8-byte real
//      1  VAX                            little-endian  F            D
//      2  MIPS                           little-endian  IEEE 754     IEEE 754
//      3  Sun                            big-endian     IEEE 754     IEEE 754
//      4  PC, the machine this runs on   little-endian  IEEE 754     IEEE 754
//      5  Alpha VMS                      little-endian  F            G
//
// - F to IEEE: exponents 0 and 1 become +0. IEEE to F: zeros and denormals become 0, exponents 254 and 255 (infinities
//   and what is no number too) the largest magnitude with their sign.
// - D to IEEE: the three lowest bits are dropped, and only the value without any bit set is 0: a D of exponent 0 is
//   converted like the others. IEEE to D: below its range 0, above it the largest magnitude.
// - D to G drops the same bits, and exponent 0 gives 0; G to D has the same limits as IEEE to D. G and IEEE are
//   converted through D, so that G's range is cut.
#pragma once

#include <cstddef>

constexpr int mcvt_vax = 1;
constexpr int mcvt_mips = 2;
constexpr int mcvt_sun = 3;
constexpr int mcvt_pc = 4;
constexpr int mcvt_alpha = 5;

// Selects the conversion of everything below for the whole process: 1, or -1 and no change when a code is not 1 to 5.
// At first nothing is converted. The second reports the pair; 4 and 4 at first.
int setmcvt(int source_machine, int target_machine);
void getmcvt(int *source_machine, int *target_machine);

// The selected converters of one value: integers of 2, 4 and 8 bytes, reals of 4 and 8, a character, a string of n.
extern void (*xmcvt_i2)(void *value);
extern void (*xmcvt_i4)(void *value);
extern void (*xmcvt_i8)(void *value);
extern void (*xmcvt_f4)(void *value);
extern void (*xmcvt_f8)(void *value);
extern void (*xmcvt_c)(void *value);
extern void (*xmcvt_s)(void *value, int n);

// Convert one value at an address of any alignment.
void mcvt_i2(void *value);
void mcvt_i4(void *value);
void mcvt_i8(void *value);
void mcvt_f4(void *value);
void mcvt_f8(void *value);
void mcvt_r4(void *value); // the same as mcvt_f4() and mcvt_f8()
void mcvt_r8(void *value);
void mcvt_c(void *value); // characters and strings are the same everywhere
void mcvt_s(void *value, int n);

// Convert n adjacent values, as the above do one by one but many times faster; the second four give converted copies,
// which must not overlap the values.
void mcvt_run_i2(void *values, std::size_t n);
void mcvt_run_i4(void *values, std::size_t n);
void mcvt_run_f4(void *values, std::size_t n);
void mcvt_run_f8(void *values, std::size_t n);
void mcvt_copy_i2(void *copies, const void *values, std::size_t n);
void mcvt_copy_i4(void *copies, const void *values, std::size_t n);
void mcvt_copy_f4(void *copies, const void *values, std::size_t n);
void mcvt_copy_f8(void *copies, const void *values, std::size_t n);
