#include "wi/spoperand.h"

#include "wi/spconvert.h"
#include "wi/spnumber.h"

#include <algorithm>
#include <cstring>

namespace {

// What arithmetic with a number or an array takes the right operand for.
double number_of(const sp_operand &operand)
{
    if (operand.kind == sp_scaler)
        return operand.number;
    return operand.kind == sp_string ? sp_read_number(operand.value->string) : 0;
}

int elements(const sp_operand &operand)
{
    return operand.pending ? operand.length : operand.value->npts;
}

void free_operand(const sp_operand &operand)
{
    if (operand.owned)
        sp_free_value(operand.value);
}

sp_operand number_operand(double number)
{
    sp_operand operand = {};
    operand.kind = sp_scaler;
    operand.number = number;
    return operand;
}

sp_operand value_operand(const sp_value *value, bool owned)
{
    sp_operand operand = {};
    operand.kind = static_cast<std::uint8_t>(value->type);
    operand.owned = owned;
    operand.value = const_cast<sp_value *>(value); // what is not owned is not changed
    operand.length = -1;
    return operand;
}

// Kinds that carry no payload of their own, or none beyond a number, need no value.
bool is_plain(const sp_value &value)
{
    return value.type == sp_scaler || value.type == sp_null;
}

sp_operand plain_operand(const sp_value &value)
{
    return value.type == sp_scaler ? number_operand(value.scaler) : sp_operand{};
}

sp_source source_of(const sp_operand &operand)
{
    sp_source source;
    if (operand.kind != sp_array) {
        source.from = sp_source::number;
        source.value = number_of(operand);
    } else if (!operand.pending) {
        source.from = sp_source::array;
        source.ary = operand.value->ary;
        source.owner = operand.owned ? operand.value : nullptr;
    }
    return source;
}

void combine_numbers(sp_operator op, sp_operand &a, double b)
{
    if (op == sp_op_divide && sp_is_zero(b))
        a = value_operand(sp_mk_error(sp_zero_divide), true);
    else
        a.number = sp_apply(op, a.number, b);
}

// Appends what b is as a text. Room is left for more, so that a long sum of texts is copied a few times only.
void append(sp_operand &a, const sp_operand &b)
{
    sp_value buffer{};
    if (b.kind == sp_scaler) {
        buffer.type = sp_scaler;
        buffer.scaler = b.number;
    }
    sp_value *text = sp_convert(nullptr, b.kind == sp_scaler ? &buffer : b.value, sp_string);
    const std::size_t more = std::strlen(text->string);
    if (!a.owned)
        a = value_operand(sp_cpval(a.value), true);
    const std::size_t length = a.length < 0 ? std::strlen(a.value->string) : static_cast<std::size_t>(a.length);
    if (a.length < 0 || length + more >= static_cast<std::size_t>(a.room)) {
        const std::size_t room = 2 * (length + more) + 16;
        a.value->string = static_cast<char *>(sp_resize(a.value->string, room));
        a.room = static_cast<std::int32_t>(room);
    }
    std::memcpy(a.value->string + length, text->string, more + 1);
    a.length = static_cast<std::int32_t>(length + more);
    sp_free_value(text);
}

} // namespace

void sp_operands::push_number(double number)
{
    operands.push(number_operand(number));
}

void sp_operands::push_value(sp_value *value)
{
    if (!is_plain(*value)) {
        operands.push(value_operand(value, true));
        return;
    }
    operands.push(plain_operand(*value));
    sp_free_value(value);
}

void sp_operands::push_view(const sp_value *value)
{
    operands.push(is_plain(*value) ? plain_operand(*value) : value_operand(value, false));
}

void sp_operands::push_error(const char *message, std::uint32_t place)
{
    push_value(sp_mk_error(message));
    set_place(place);
}

// Where the steps of a pending operand end: at those of the next one.
std::size_t sp_operands::run_end(std::size_t i)
{
    while (++i < operands.size())
        if (operands[i].pending)
            return operands[i].first;
    return steps.size();
}

// Computes a pending operand, which is the last or the last but one.
void sp_operands::settle(std::size_t i)
{
    sp_operand &operand = operands[i];
    if (!operand.pending)
        return;
    const std::size_t first = operand.first;
    const std::size_t end = run_end(i);
    operand = value_operand(steps.run(first, end, operand.length), true);
    for (++i; i < operands.size(); ++i)
        if (operands[i].pending)
            operands[i].first -= static_cast<std::uint32_t>(end - first);
}

// The last operand takes the place of the one before it.
void sp_operands::replace_left()
{
    const std::size_t i = operands.size() - 2;
    sp_operand &left = operands[i];
    sp_operand &right = operands[i + 1];
    if (left.pending) {
        const std::size_t first = left.first;
        const std::size_t end = run_end(i);
        steps.drop(first, end);
        right.first -= right.pending ? static_cast<std::uint32_t>(end - first) : 0;
    }
    free_operand(left);
    left = right;
    operands.pop();
}

void sp_operands::combine(sp_operator op)
{
    const std::size_t at = operands.size() - 2;
    // What may still turn out to be an ERROR is computed where that decides.
    if (operands[at + 1].kind == sp_error)
        settle(at);
    if (operands[at].kind == sp_string || operands[at].kind == sp_ename)
        settle(at + 1);
    sp_operand &a = operands[at];
    const sp_operand &b = operands[at + 1];
    if (a.kind != sp_error && (b.kind == sp_error || a.kind == sp_null))
        return replace_left();
    if (b.kind != sp_null && (a.kind == sp_array || (a.kind == sp_scaler && b.kind == sp_array)))
        return combine_arrays(op);
    if (b.kind != sp_null && a.kind == sp_scaler)
        combine_numbers(op, a, number_of(b));
    if (b.kind != sp_null && a.kind == sp_string && op == sp_op_plus)
        append(a, b);
    cut(at + 1);
}

// Combines the two last operands, of which one is an ARRAY and none NULL or an ERROR.
void sp_operands::combine_arrays(sp_operator op)
{
    const std::size_t at = operands.size() - 2;
    sp_operand &a = operands[at];
    sp_operand &b = operands[at + 1];
    if (op == sp_op_divide && b.kind != sp_array && sp_is_zero(number_of(b))) {
        cut(at);
        push_error(sp_zero_divide, 0);
        return;
    }
    const int npts = a.kind != sp_array   ? elements(b)
                     : b.kind != sp_array ? elements(a)
                                          : std::min(elements(a), elements(b));
    // Divisors beyond the result's end are looked at as well, and runs have a limit.
    const std::size_t before = a.pending ? a.first : b.pending ? b.first : steps.size();
    const bool long_run = steps.size() - before >= sp_longest_run;
    bool failed = false;
    for (const std::size_t i : {at, at + 1}) {
        if (operands[i].pending && (long_run || operands[i].length != npts))
            settle(i);
        failed = failed || operands[i].kind == sp_error;
    }
    if (failed)
        combine(op);
    else if (!combine_empty(npts))
        add_step(op, npts);
}

bool sp_operands::combine_empty(int npts)
{
    if (npts > 0)
        return false;
    cut(operands.size() - 2);
    push_value(sp_mk_array(0));
    return true;
}

// Neither operand has a pending run of another length. A product on the right of a sum is done together with it.
void sp_operands::add_step(sp_operator op, int npts)
{
    const std::size_t at = operands.size() - 2;
    sp_operand &a = operands[at];
    const sp_operand &b = operands[at + 1];
    const std::size_t first = a.pending ? a.first : b.pending ? b.first : steps.size();
    const bool sum = op == sp_op_plus || op == sp_op_minus;
    if (sum && a.kind == sp_array && b.pending && steps.size() - b.first == 1 && steps.back().sum == sp_no_operator &&
        steps.back().left.from != sp_source::computed && steps.back().right.from != sp_source::computed) {
        steps.back().sum = op;
        steps.back().acc = source_of(a);
    } else {
        steps.push({op, sp_no_operator, source_of(a), source_of(b), {}});
        if (b.kind != sp_array)
            free_operand(b);
    }
    a.kind = sp_array;
    a.owned = false;
    a.pending = true;
    a.first = static_cast<std::uint32_t>(first);
    a.length = npts;
    operands.pop();
}

const sp_value *sp_operands::view(std::size_t i, sp_value &buffer)
{
    const sp_operand &operand = operands[i];
    if (operand.kind != sp_scaler && operand.kind != sp_null)
        return operand.value;
    buffer = {};
    buffer.type = operand.kind;
    buffer.scaler = operand.number; // 0 in a NULL
    return &buffer;
}

sp_value *sp_operands::take()
{
    settle();
    const sp_operand operand = operands.back();
    operands.pop();
    if (operand.kind == sp_scaler)
        return sp_mk_scaler(operand.number);
    if (operand.kind == sp_null)
        return sp_get_blank_value();
    return operand.owned ? operand.value : sp_cpval(operand.value);
}

void sp_operands::cut(std::size_t size)
{
    for (; operands.size() > size; operands.pop()) {
        const sp_operand &operand = operands.back();
        if (operand.pending)
            steps.drop(operand.first, steps.size());
        free_operand(operand);
    }
}

void sp_operands::release()
{
    cut(0);
    operands.release();
    steps.release();
}
