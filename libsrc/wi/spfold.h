// Operands and operators of one level of a formula as they come, folded into one operand: times and divide before plus
// and minus, each from the left.
#pragma once

#include <cstdint>

#include "wi/spoperand.h"

struct sp_fold {
    std::uint32_t base;  // where the level's operands start: at most a sum, a product and the one that comes
    sp_operator sum;     // waits for the product to be complete
    sp_operator product; // waits for its second operand
    bool after_operand;  // the last that came was an operand
    bool broken;         // two of a kind came in a row
    std::uint32_t fault; // the place of the second

    // The operand that came is the last on the stack. Places are those of the text, from 1.
    void take_operand(sp_operands &operands, std::uint32_t place);
    void take_operator(sp_operands &operands, sp_operator op, std::uint32_t place);

    // Leaves one operand: NULL when nothing has come, an ERROR when not every operator stands between two operands.
    void finish(sp_operands &operands, std::uint32_t end_place);

private:
    void expect(bool good, std::uint32_t place);
};
