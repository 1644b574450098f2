// What the quantities of elements are made of.
#pragma once

#include <array>
#include <cstddef>
#include <span>

// A field of elements, or of one of their items: of a certain one, from 0, or of the one that the call names.
constexpr int sp_named_item = -1;
struct sp_input {
    const char *field = nullptr;
    int item = sp_named_item;
};

using sp_inputs = std::array<sp_input, 3>; // what is not used comes last

struct sp_quantity {
    int datatype; // an sp_data_type
    sp_inputs inputs;

    // Makes the numbers of n elements of those of the inputs; null for the first input alone.
    void (*combine)(const double *const *in, double *out, std::size_t n) = nullptr;

    int width = 1; // numbers for each element
    int order = 0; // of the rate of change that is then formed
};

// Of several rows for a quantity the first whose inputs a file has counts.
std::span<const sp_quantity> sp_quantities();
