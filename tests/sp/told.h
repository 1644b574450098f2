// What the tests of the language share.
#pragma once

#include "dovsys/dovsys.h"
#include "wi/sp.h"

#include <array>
#include <charconv>
#include <memory>
#include <string>

struct value_deleter {
    void operator()(sp_value *value) const { sp_free_value(value); }
};
using value_ptr = std::unique_ptr<sp_value, value_deleter>;

// A context that frees itself.
class own_context {
public:
    own_context() : context(sp_init_context(nullptr, "test", nullptr)) {}
    ~own_context() { sp_free_context(context); }
    own_context(const own_context &) = delete;
    own_context &operator=(const own_context &) = delete;
    operator sp_context *() const { return context; }
    sp_context *operator->() const { return context; }

private:
    sp_context *context;
};

inline std::string number(double value)
{
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), value).ptr};
}

// A value in one text: 1.5  [1 2]  'text'  #NAME  NULL  !message
inline std::string told(const sp_value &value)
{
    std::string elements;
    switch (value.type) {
    case sp_scaler:
        return number(value.scaler);
    case sp_array:
        for (int i = 0; i < value.npts; ++i)
            elements += (i > 0 ? " " : "") + number(value.ary[i]);
        return "[" + elements + "]";
    case sp_string:
        return "'" + std::string(value.string) + "'";
    case sp_ename:
        return "#" + std::string(value.ename);
    case sp_error:
        return "!" + std::string(value.string);
    default:
        return "NULL";
    }
}

inline std::string told(sp_value *value)
{
    return told(*value_ptr(value));
}
