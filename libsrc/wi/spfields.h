// The plot configuration as tables: each field of its records by name, and the words of the variable that sets it.
//
// The variable of a field of X axis 2 is XAXIS_2_ and the field's word, of curve 1 CURVE_1_ and its word; see
// sp_configure().
#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

#include "wi/spconfig.h"

enum class sp_field_kind {
    real,    // double
    length,  // float
    integer, // std::int32_t, as are the next six
    index,   // from 0; in variables from 1
    yesno,   // 0 or 1
    thick,   // codes
    color,
    linetype,
    curvetype,
    text,  // array of characters
    value, // sp_value *, owned
    label, // sp_value *, of a variable
    hook,  // a function of the application
};

struct sp_field {
    const char *name; // in its record
    sp_field_kind kind;
    int count; // elements; the most characters of a text
    std::size_t offset;
    const char *word = nullptr;  // null when no variable sets it
    const char *yword = nullptr; // of a Y axis where that is another; of a page's field for each graph
};

// Fields of sp_config itself, without its axes, curves and labels. The words of a field for each graph belong to
// GRAPH_1_ and so on; `word` alone is the variable of the first element.
std::span<const sp_field> sp_page_fields();

std::span<const sp_field> sp_axis_fields();  // of sp_pltaxis
std::span<const sp_field> sp_curve_fields(); // of sp_curve
std::span<const sp_field> sp_label_fields(); // of sp_label

// Element i of a field of the record; T is the type of its kind.
template <class T>
T sp_field_value(const void *record, const sp_field &field, int i = 0)
{
    T value;
    std::memcpy(&value, static_cast<const char *>(record) + field.offset + static_cast<std::size_t>(i) * sizeof value,
                sizeof value);
    return value;
}
