// Operands of formulas under evaluation, on a stack. Numbers are no values on the heap here, values of variables are
// looked at and not copied, and arithmetic over arrays waits until its result is needed.
#pragma once

#include <cstdint>

#include "wi/spsteps.h"

struct sp_operand {
    std::uint8_t kind;   // an sp_kind
    bool owned;          // `value` is the operand's
    bool pending;        // ARRAY that is still to be computed: its steps start at `first`
    std::uint32_t place; // ERROR: where in the text the fault is, from 1; 0 when that is not known
    union {
        double number;   // SCALER
        sp_value *value; // kinds but NULL and SCALER; not to be changed unless owned
        std::uint32_t first;
    };
    std::int32_t length; // pending: elements; STRING: of the text, -1 when not counted
    std::int32_t room;   // STRING: bytes of an owned text, when its length is counted
};

class sp_operands {
public:
    std::size_t size() const { return operands.size(); }
    const sp_operand &operator[](std::size_t i) { return operands[i]; }

    sp_operands() = default;
    ~sp_operands() { cut(0); }

    void push_null() { operands.push({}); }
    void push_number(double number);
    void push_value(sp_value *value);      // takes it over
    void push_view(const sp_value *value); // looks at it; it outlives the operand
    void push_error(const char *message, std::uint32_t place);
    void set_place(std::uint32_t place) { operands.back().place = place; }

    // Replaces the two last operands by what the operator gives.
    void combine(sp_operator op);

    // Computes the last operand if it is pending.
    void settle() { settle(operands.size() - 1); }

    // An operand that is not pending as a value of the stack's. NULL and numbers are put into `buffer`.
    const sp_value *view(std::size_t i, sp_value &buffer);

    // The last operand as a new value; removes it.
    sp_value *take();

    // Removes all but the first ones.
    void cut(std::size_t size);

    void release();
    std::size_t bytes() const { return operands.bytes() + steps.bytes(); }

private:
    std::size_t run_end(std::size_t i);
    void settle(std::size_t i);
    void replace_left();
    void combine_arrays(sp_operator op);
    bool combine_empty(int npts);
    void add_step(sp_operator op, int npts);

    sp_stack<sp_operand> operands;
    sp_steps steps;
};
