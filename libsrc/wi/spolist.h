// The operands and operators of one level of a formula, listed first and then folded by precedence.
#pragma once

#include <cstdint>

#include "wi/spcontext.h"

struct olistslot {
    std::int32_t type; // 1 operator, 2 value
    std::int32_t opt;  // of an operator: 1 plus, 2 minus, 3 times, 4 divide; any other acts as plus
    sp_value *val;     // of a value, owned
};

struct olist {
    sp_context *context;
    std::int32_t mxslots; // room of the slots: 5 at first, then 5 more than are in use
    std::int32_t nslots;
    olistslot *slots;
};

// New empty list; freed with olist_free(), which frees the values that are left in it, or by olist_evaluate().
olist *olist_init(sp_context *context);
void olist_free(olist *list);

// New cleared slot at the end; the list's until the next one is made.
olistslot *olist_mkslot(olist *list);

void olist_pushopt(olist *list, int opt);
void olist_pushval(olist *list, sp_value *val); // takes the value over; null is a value of kind NULL

// Folds the list and frees it. The new value is NULL for an empty list, and the ERROR "Syntax error: Operations out of
// order." unless it goes value, operator, value and so on to a value.
sp_value *olist_evaluate(olist *list);
