// The keyword service that every file has until its type registers one of its own: the reserved area.
#pragma once

union _dovfiletype;

// Opcodes of all keyword services, and what arg points at. Integers are of 32 bits.
constexpr int dov_kw_put_real = 1;    // real in
constexpr int dov_kw_put_integer = 2; // integer in
constexpr int dov_kw_put_string = 3;  // string in
constexpr int dov_kw_delete = 4;      // not used
constexpr int dov_kw_get_real = 5;    // real out, 0.0 when absent
constexpr int dov_kw_get_integer = 6; // integer out, 0 when absent
constexpr int dov_kw_get_string = 7;  // string out, "" when absent; dov_kw_string_size bytes
constexpr int dov_kw_count = 8;       // integer out, the number of keywords; the name is not used
constexpr int dov_kw_exists = 9;      // integer out, 1 or 0
constexpr int dov_kw_by_index =
    10; // the name is written, 64 bytes, and integer out, its type: 1 integer, 2 real, 3 string
constexpr int dov_kw_save_index = 11; // integer in, the index for opcode 10, one for all files of the service

constexpr int dov_kw_string_size = 128;

// 1, or -1 when it fails or the opcode is none of these, -10 without a handle.
int dovkwdef(_dovfiletype *p, int opcode, char *name, void *arg);
