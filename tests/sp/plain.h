// Formulas evaluated by the rules as they are told, one token, one list and one operator after the other: what the
// quick way must agree with.
#pragma once

#include "told.h"

#include <utility>
#include <vector>

struct token_deleter {
    void operator()(parse_token *token) const { sp_parse_free_token(token); }
};
struct parse_deleter {
    void operator()(sp_parse_state *state) const { sp_parse_free(state); }
};

inline value_ptr plain_formula(sp_context *context, const std::string &text);

inline value_ptr plain_call(sp_context *context, const std::string &name, const std::string &text)
{
    std::vector<value_ptr> args;
    std::string piece;
    int depth = 0;
    bool quoted = false;
    for (const char c : text + ',') {
        quoted ^= c == '"';
        depth += quoted ? 0 : (c == '(') - (c == ')');
        if (c != ',' || depth > 0 || quoted) {
            piece += c;
            continue;
        }
        args.push_back(plain_formula(context, piece));
        piece.clear();
    }
    std::vector<const sp_value *> values;
    for (const value_ptr &arg : args)
        values.push_back(arg.get());
    return value_ptr(sp_function(context, name.c_str(), values.data(), static_cast<int>(values.size())));
}

// Folds the list in two passes.
inline value_ptr plain_fold(sp_context *context, std::vector<value_ptr> &values, std::vector<int> &operators)
{
    for (const auto &[low, high] : {std::pair{3, 4}, {1, 2}})
        for (std::size_t i = 0; i < operators.size();) {
            if (operators[i] != low && operators[i] != high) {
                ++i;
                continue;
            }
            values[i].reset(sp_combine(context, operators[i], values[i].get(), values[i + 1].get()));
            values.erase(values.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            operators.erase(operators.begin() + static_cast<std::ptrdiff_t>(i));
        }
    return std::move(values.front());
}

inline value_ptr plain_formula(sp_context *context, const std::string &text)
{
    const std::unique_ptr<sp_parse_state, parse_deleter> state(sp_parse_init(context, text.c_str()));
    std::vector<value_ptr> values;
    std::vector<int> operators;
    std::string order; // of operands and operators
    while (true) {
        const std::unique_ptr<parse_token, token_deleter> token(sp_parse_gettoken(state.get()));
        if (token->type == sp_tok_error)
            return value_ptr(sp_mk_error(token->formula));
        if (token->type == sp_tok_end)
            break;
        order += token->type <= sp_tok_divide ? 'o' : 'v';
        if (token->type <= sp_tok_divide)
            operators.push_back(token->type);
        else if (token->type == sp_tok_bracket)
            values.push_back(plain_formula(context, token->formula));
        else if (token->type == sp_tok_function)
            values.push_back(plain_call(context, token->name, token->formula));
        else if (token->type == sp_tok_variable)
            values.emplace_back(sp_cpval(sp_var_getval(context, token->name)));
        else
            values.emplace_back(std::exchange(token->val, nullptr));
    }
    if (order.empty())
        return value_ptr(sp_get_blank_value());
    if (order.size() % 2 == 0 || order.find("vv") != std::string::npos || order.find("oo") != std::string::npos ||
        order[0] == 'o')
        return value_ptr(sp_mk_error("Syntax error: Operations out of order."));
    return plain_fold(context, values, operators);
}
