#include "wi/spcombine.h"

#include "wi/spoperand.h"

namespace {

void push(sp_operands &operands, const sp_value *value)
{
    if (value != nullptr)
        operands.push_view(value);
    else
        operands.push_null();
}

} // namespace

sp_value *sp_combine(sp_context * /*context*/, int op, const sp_value *a, const sp_value *b)
{
    sp_operands operands;
    push(operands, a);
    push(operands, b);
    operands.combine(sp_operator_of(op));
    return operands.take();
}

sp_value *sp_plus(sp_context *context, const sp_value *a, const sp_value *b)
{
    return sp_combine(context, sp_op_plus, a, b);
}

sp_value *sp_minus(sp_context *context, const sp_value *a, const sp_value *b)
{
    return sp_combine(context, sp_op_minus, a, b);
}

sp_value *sp_mult(sp_context *context, const sp_value *a, const sp_value *b)
{
    return sp_combine(context, sp_op_times, a, b);
}

sp_value *sp_divide(sp_context *context, const sp_value *a, const sp_value *b)
{
    return sp_combine(context, sp_op_divide, a, b);
}
