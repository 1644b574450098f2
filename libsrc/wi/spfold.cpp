#include "wi/spfold.h"

#include <utility>

void sp_fold::expect(bool good, std::uint32_t place)
{
    if (good || broken)
        return;
    broken = true;
    fault = place;
}

void sp_fold::take_operand(sp_operands &operands, std::uint32_t place)
{
    expect(!after_operand, place);
    after_operand = true;
    if (broken)
        operands.cut(base);
    else if (product != sp_no_operator)
        operands.combine(std::exchange(product, sp_no_operator));
}

void sp_fold::take_operator(sp_operands &operands, sp_operator op, std::uint32_t place)
{
    expect(after_operand, place);
    after_operand = false;
    if (broken)
        return;
    if (op == sp_op_times || op == sp_op_divide) {
        product = op;
        return;
    }
    if (sum != sp_no_operator)
        operands.combine(sum);
    sum = op;
}

void sp_fold::finish(sp_operands &operands, std::uint32_t end_place)
{
    const bool begun = sum != sp_no_operator || product != sp_no_operator;
    expect(after_operand || !begun, end_place);
    if (broken) {
        operands.cut(base);
        operands.push_error("Syntax error: Operations out of order.", fault);
    } else if (!after_operand) {
        operands.push_null();
    } else if (sum != sp_no_operator) {
        operands.combine(sum);
    }
}
