// Formulas of any bytes: the value is what the rules taken one by one give, and nothing of it stays allocated.
#include "varnix.h"

#include "sp/plain.h"

namespace {

void define(sp_context *context)
{
    for (const char *line : {"X = 5", "A = SEQ(1, 2, 4, 8, 16)", "B = SEQ(2, 0.5, 3)", "S = \"4 m\"",
                             "Z = RAMP(9, -1, 12)", "E = 1/0", "$D = 1", "A$B = 2"})
        sp_script_line(context, line, 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(data, data + size);
    if (!is_tame(text))
        return 0;
    const own_context context;
    define(context);
    std::size_t place = 0;
    const value_ptr value(sp_eval_text(context, text, &place));
    require(place <= size + 1 && (place == 0 || value->type == sp_error));
    if (size > 4000 || text.find('\0') != std::string::npos)
        return 0; // taking the rules one by one costs stack for each level, and strings end at a NUL there
    require(told(*value) == told(*plain_formula(context, text)));
    sp_free_value(sp_eval_function(context, "SEQ", text.c_str()));
    return 0;
}
