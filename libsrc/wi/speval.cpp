#include "wi/speval.h"

#include "dovsys/dovsys.h"
#include "wi/spfold.h"
#include "wi/spfunc.h"
#include "wi/splexer.h"
#include "wi/spmemory.h"
#include "wi/sppool.h"

#include <array>

namespace {

constexpr std::size_t longest_text = std::size_t{1} << 25; // what is kept for each character stays countable by an int
constexpr std::size_t kept_bytes = std::size_t{1} << 20;

constexpr std::uint32_t no_name = 0;
constexpr std::uint32_t given_name = UINT32_MAX;

// A formula that is being read: the whole text, what stands between parentheses, an argument; or a call whose arguments
// are.
struct frame {
    sp_fold fold;
    std::uint32_t end;  // place in the text
    std::uint32_t name; // of a call, the function's place + 1, or given_name
};

struct memory {
    sp_operands operands;
    sp_stack<frame> frames;
    sp_stack<std::uint32_t> matches;
    sp_stack<sp_value> buffers; // numbers among the arguments of the present call
    sp_stack<const sp_value *> args;

    std::size_t bytes() const
    {
        return operands.bytes() + frames.bytes() + matches.bytes() + buffers.bytes() + args.bytes();
    }

    void release()
    {
        operands.release();
        frames.release();
        matches.release();
        buffers.release();
        args.release();
    }
};

// Memory for the formula at work, kept for the next one within limits.
memory kept;
bool kept_in_use = false;

// Reads the text from left to right, once: nested formulas are frames on a stack of its own.
class evaluation {
public:
    evaluation(sp_context *context, std::string_view text, memory &memory)
        : lexer(context, text, nullptr), frames(memory.frames), operands(memory.operands), mem(memory)
    {
        if (text.find('(') == std::string_view::npos)
            return;
        mem.matches.make_room(text.size());
        lexer.matches = mem.matches.data();
        sp_match_brackets(text, mem.matches.data());
    }

    sp_value *formula(std::size_t *place);
    sp_value *call(std::string_view name);

private:
    sp_value *finish(std::size_t *place);
    void open_formula(std::uint32_t end);
    void open_call(std::uint32_t end, std::uint32_t name);
    void next_token();
    std::uint32_t enter_brackets();
    void push_operand(std::int32_t token);
    void fail(const char *message);
    void close_formula();
    void deliver();
    void next_argument();
    std::uint32_t argument_end(std::uint32_t end) const;
    void call_function();
    std::string_view function_name(std::uint32_t name);

    sp_lexer lexer;
    sp_stack<frame> &frames;
    sp_operands &operands;
    memory &mem;
    std::string_view given; // name of the function that was called from outside
};

sp_value *evaluation::formula(std::size_t *place)
{
    open_formula(lexer.end);
    return finish(place);
}

sp_value *evaluation::call(std::string_view name)
{
    given = name;
    open_call(lexer.end, given_name);
    std::size_t place = 0;
    return finish(&place);
}

sp_value *evaluation::finish(std::size_t *place)
{
    while (!frames.empty())
        next_token();
    operands.settle();
    *place = operands[operands.size() - 1].place;
    return operands.take();
}

void evaluation::open_formula(std::uint32_t end)
{
    frame f = {};
    f.fold.base = static_cast<std::uint32_t>(operands.size());
    f.end = end;
    frames.push(f);
}

void evaluation::open_call(std::uint32_t end, std::uint32_t name)
{
    open_formula(end);
    frames.back().name = name;
    next_argument();
}

void evaluation::next_token()
{
    frame &f = frames.back();
    lexer.end = f.end;
    lexer.skip_blanks();
    const std::uint32_t start = lexer.at;
    const std::int32_t token = lexer.next(f.fold.after_operand);
    switch (token) {
    case sp_tok_bracket:
        return open_formula(enter_brackets());
    case sp_tok_function:
        return open_call(enter_brackets(), start + 1);
    case sp_tok_error:
        return fail(lexer.fault);
    case sp_tok_end:
        return close_formula();
    case sp_tok_literal:
    case sp_tok_variable:
        push_operand(token);
        return f.fold.take_operand(operands, start + 1);
    default:
        return f.fold.take_operator(operands, sp_operator_of(token), start + 1);
    }
}

// Back from behind the parentheses to their inner text; returns its end.
std::uint32_t evaluation::enter_brackets()
{
    const std::uint32_t end = lexer.at - 1;
    lexer.at = end - static_cast<std::uint32_t>(lexer.inner.size());
    return end;
}

void evaluation::push_operand(std::int32_t token)
{
    if (token == sp_tok_literal && lexer.literal == sp_scaler)
        operands.push_number(lexer.number);
    else if (token == sp_tok_literal)
        operands.push_value(lexer.literal_value());
    else if (lexer.value != nullptr)
        operands.push_view(lexer.value);
    else
        operands.push_null();
}

// The formula at hand is given up.
void evaluation::fail(const char *message)
{
    frame &f = frames.back();
    operands.cut(f.fold.base);
    operands.push_error(message, lexer.at + 1);
    lexer.at = f.end;
    deliver();
}

void evaluation::close_formula()
{
    frames.back().fold.finish(operands, lexer.at + 1);
    deliver();
}

// The last operand is the value of the formula at hand, whose end the cursor has reached.
void evaluation::deliver()
{
    frames.pop();
    if (frames.empty())
        return;
    frame &outer = frames.back();
    if (outer.name == no_name) {
        ++lexer.at; // the parenthesis
        return outer.fold.take_operand(operands, lexer.at);
    }
    operands.settle();
    if (lexer.at == outer.end)
        return call_function();
    ++lexer.at; // the comma
    next_argument();
}

void evaluation::next_argument()
{
    const std::uint32_t end = argument_end(frames.back().end);
    if (end != sp_no_match)
        return open_formula(end);
    fail("Syntax Error in function call.");
}

// Where the argument ends that starts at the cursor: at a comma outside parentheses and strings, or at the end; or
// sp_no_match when it is none. Parentheses that are matched are passed over.
std::uint32_t evaluation::argument_end(std::uint32_t end) const
{
    std::size_t depth = 0;
    for (std::size_t i = lexer.at; i < end; ++i) {
        const char c = lexer.text[i];
        if (c == ',' && depth == 0)
            return static_cast<std::uint32_t>(i);
        if (c == ')' && depth-- == 0)
            return sp_no_match;
        if (c == '(') {
            const std::uint32_t close = lexer.matches[i];
            if (close < end)
                i = close;
            else
                ++depth;
        }
        if (c == '"' && (i = lexer.text.substr(0, end).find('"', i + 1)) == std::string_view::npos)
            return sp_no_match;
    }
    return end;
}

std::string_view evaluation::function_name(std::uint32_t name)
{
    if (name == given_name)
        return given;
    sp_lexer at_name = lexer;
    at_name.at = name - 1;
    at_name.end = static_cast<std::uint32_t>(lexer.text.size());
    return at_name.scan_name();
}

// The arguments are the operands from the call's base on.
void evaluation::call_function()
{
    const frame f = frames.back();
    const std::size_t count = operands.size() - f.fold.base;
    mem.buffers.make_room(count);
    mem.args.make_room(count);
    std::uint32_t place = 0; // of the first fault, which becomes that of the result
    for (std::size_t i = count; i-- > 0;) {
        const std::size_t at = f.fold.base + i;
        mem.args[i] = operands.view(at, mem.buffers[i]);
        if (operands[at].kind == sp_error)
            place = operands[at].place;
    }
    std::array<char, sp_name_length + 2> name{};
    function_name(f.name).copy(name.data(), sp_name_length);
    sp_value *result = sp_function(lexer.context, name.data(), mem.args.data(), static_cast<int>(count));
    operands.cut(f.fold.base);
    operands.push_value(result);
    if (operands[f.fold.base].kind == sp_error)
        operands.set_place(place);
    frames.pop();
    if (frames.empty())
        return;
    ++lexer.at; // the parenthesis
    frames.back().fold.take_operand(operands, lexer.at);
}

// Runs an evaluation in the kept memory, unless it is called from within one.
template <class Action>
sp_value *with_memory(Action action)
{
    if (kept_in_use) {
        memory own;
        return action(own);
    }
    kept_in_use = true;
    sp_value *value = action(kept);
    kept_in_use = false;
    if (kept.bytes() > kept_bytes || jused() > 0)
        kept.release();
    return value;
}

} // namespace

sp_value *sp_eval_text(sp_context *context, std::string_view text, std::size_t *place)
{
    *place = 0;
    if (text.size() > longest_text)
        return sp_mk_error("Syntax error (parser).");
    return with_memory([&](memory &mem) { return evaluation(context, text, mem).formula(place); });
}

sp_value *sp_eval_formula(sp_context *context, const char *str)
{
    std::size_t place = 0;
    return sp_eval_text(context, str != nullptr ? str : "", &place);
}

sp_value *sp_eval_function(sp_context *context, const char *name, const char *args)
{
    const std::string_view text(args != nullptr ? args : "");
    if (text.size() > longest_text)
        return sp_mk_error("Syntax Error in function call.");
    return with_memory([&](memory &mem) { return evaluation(context, text, mem).call(name != nullptr ? name : ""); });
}

void sp_release_memory()
{
    sp_pool_flush();
    if (!kept_in_use)
        kept.release();
}
