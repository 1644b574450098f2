#include "told.h"

#include "dovsys/internal.h"
#include "support/allocator_watch.h"
#include "support/process.h"
#include "wi/spmemory.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace {

sp_value *array(std::initializer_list<double> elements)
{
    sp_value *value = sp_mk_array(static_cast<int>(elements.size()));
    std::copy(elements.begin(), elements.end(), value->ary);
    return value;
}

sp_value *ename(const char *name)
{
    sp_value *value = sp_get_blank_value();
    value->type = sp_ename;
    c_strncpy(value->ename, name, sizeof value->ename);
    return value;
}

TEST(Values, AreConvertedToEveryKind)
{
    const own_context context;
    using row = std::tuple<sp_value *, std::array<std::string, 6>>;
    const std::string made = "!Manufactured error.";
    for (const auto &[raw, expected] :
         {row{array({2.385, 7}), {"NULL", "[2.385 7]", "#ARRAY", "'2.385'", "2.385", made}},
          row{array({}), {"NULL", "[]", "#ARRAY", "'0'", "0", made}},
          row{ename("N12"), {"NULL", "[0]", "#N12", "'N12'", "0", made}},
          row{sp_mk_string(" \r-1.5e1x"), {"NULL", "[-15]", "#STRING", "' \r-1.5e1x'", "-15", made}},
          row{sp_mk_scaler(-1.0 / 3),
              {"NULL", "[" + number(-1.0 / 3) + "]", "#SCALER", "'-0.3333333333'", number(-1.0 / 3), made}},
          row{sp_mk_scaler(1e10), {"NULL", "[1e+10]", "#SCALER", "'1e+10'", "1e+10", made}},
          row{sp_mk_error("why"), {"!why", "!why", "!why", "!why", "!why", "!why"}}}) {
        const value_ptr value(raw);
        for (int kind = 0; kind <= 5; ++kind)
            EXPECT_EQ(told(sp_convert(context, value.get(), kind)), expected[static_cast<std::size_t>(kind)]) << kind;
    }
    // What is made of NULL stays NULL and has the payload besides.
    for (int kind = 0; kind <= 5; ++kind) {
        const value_ptr blank(sp_get_blank_value());
        const value_ptr value(sp_convert(context, kind % 2 == 0 ? blank.get() : nullptr, kind));
        EXPECT_EQ(std::exchange(value->type, kind), sp_null);
        const char *expected[] = {"NULL", "[0]", "#NULL", "'NULL'", "0", "!Manufactured error (NULL)."};
        EXPECT_EQ(told(*value), expected[kind]);
    }
    using text = std::pair<const char *, const char *>;
    for (const auto &[read, expected] : {text{"", "0"},
                                         {"+2", "2"},
                                         {"+-2", "0"},
                                         {"- 2", "-0"},
                                         {"0x1P4", "16"},
                                         {"0xg", "0"},
                                         {"1e999", "inf"},
                                         {"-1e-999", "-0"},
                                         {"0.00000000001e309", "1e+298"},
                                         {"0x1p-9999", "0"},
                                         {"1e99999999999999999999", "inf"},
                                         {"1e-99999999999999999999", "0"},
                                         {".5.5", "0.5"},
                                         {"INFinity", "inf"},
                                         {"\v\f7 8", "7"},
                                         {"1,5", "1"}}) {
        const value_ptr value(sp_mk_string(read));
        EXPECT_EQ(told(sp_convert(context, value.get(), sp_scaler)), expected) << read;
    }
    using text_of = std::pair<double, const char *>;
    for (const auto &[x, expected] : {text_of{NAN, "'nan'"}, {-NAN, "'nan'"}, {-HUGE_VAL, "'-inf'"}, {1e-7, "'1e-07'"}})
        EXPECT_EQ(told(sp_convert(context, value_ptr(sp_mk_scaler(x)).get(), sp_string)), expected);
}

TEST(Values, AreCopiedDeeply)
{
    const value_ptr name(ename("A2345678901234567890123456789012X"));
    EXPECT_EQ(told(sp_cpval(name.get())), "#A2345678901234567890123456789012"); // 32 of 33
    for (sp_value *value : {array({1, 2}), sp_mk_string("s"), sp_mk_error("e"), sp_mk_scaler(2.5), array({})}) {
        const value_ptr original(value);
        const value_ptr copy(sp_cpval(value));
        EXPECT_EQ(told(*copy), told(*original));
        EXPECT_TRUE(copy->ary == nullptr || copy->ary != original->ary);
    }
    EXPECT_EQ(sp_cpval(nullptr), nullptr);
    sp_free_value(nullptr);
    EXPECT_EQ(sp_mkary(0), nullptr);
    const jmalloc_ptr<double> zeros(sp_mkary(3));
    EXPECT_EQ(jmalloc_ptr<double>(sp_cpary(zeros.get(), 3)).get()[2], 0);
}

TEST(Values, CombineByTheKindOfTheLeftOne)
{
    const own_context context;
    const value_ptr a(array({6, 8, 10})), b(array({2, 4})), s(sp_mk_string("3x")), n(ename("N")), x(sp_mk_scaler(1.5)),
        e(sp_mk_error("first")), f(sp_mk_error("second")), null(sp_get_blank_value()), none(array({}));
    using row = std::tuple<const value_ptr &, const value_ptr &, std::array<const char *, 4>>;
    const char *zero = "!Divide By Zero Error.";
    for (const auto &[left, right, expected] : {row{a, b, {"[8 12]", "[4 4]", "[12 32]", "[3 2]"}},
                                                row{b, a, {"[8 12]", "[-4 -4]", "[12 32]", nullptr}},
                                                row{b, x, {"[3.5 5.5]", "[0.5 2.5]", "[3 6]", nullptr}},
                                                row{x, b, {"[3.5 5.5]", "[-0.5 -2.5]", "[3 6]", nullptr}},
                                                row{a, s, {"[9 11 13]", "[3 5 7]", "[18 24 30]", nullptr}},
                                                row{a, n, {"[6 8 10]", "[6 8 10]", "[0 0 0]", zero}},
                                                row{x, s, {"4.5", "-1.5", "4.5", "0.5"}},
                                                row{x, n, {"1.5", "1.5", "0", zero}},
                                                row{s, x, {"'3x1.5'", "'3x'", "'3x'", "'3x'"}},
                                                row{s, a, {"'3x6'", "'3x'", "'3x'", "'3x'"}},
                                                row{s, n, {"'3xN'", "'3x'", "'3x'", "'3x'"}},
                                                row{n, a, {"#N", "#N", "#N", "#N"}},
                                                row{n, x, {"#N", "#N", "#N", "#N"}},
                                                row{e, f, {"!first", "!first", "!first", "!first"}},
                                                row{null, f, {"!second", "!second", "!second", "!second"}},
                                                row{f, null, {"!second", "!second", "!second", "!second"}},
                                                row{a, e, {"!first", "!first", "!first", "!first"}},
                                                row{null, x, {"1.5", "1.5", "1.5", "1.5"}},
                                                row{x, null, {"1.5", "1.5", "1.5", "1.5"}},
                                                row{null, null, {"NULL", "NULL", "NULL", "NULL"}},
                                                row{none, a, {"[]", "[]", "[]", "[]"}},
                                                row{none, x, {"[]", "[]", "[]", "[]"}},
                                                row{none, n, {"[]", "[]", "[]", zero}}}) {
        using operation = sp_value *(*) (sp_context *, const sp_value *, const sp_value *);
        constexpr operation operations[] = {sp_plus, sp_minus, sp_mult, sp_divide};
        for (int op = 1; op <= 4; ++op) {
            const char *gives = expected[static_cast<std::size_t>(op) - 1];
            const std::string said = told(sp_combine(context, op, left.get(), right.get()));
            EXPECT_TRUE(gives == nullptr || said == gives) << told(*left) << op << told(*right) << said;
            EXPECT_EQ(told(operations[op - 1](context, left.get(), right.get())), said);
        }
        for (const int op : {0, 5, -3})
            EXPECT_EQ(told(sp_combine(context, op, left.get(), right.get())), expected[0]);
    }
    EXPECT_EQ(told(sp_combine(context, 1, nullptr, x.get())), "1.5");
    olist *list = olist_init(context);
    for (const int op : {2, 77, 3}) { // 77 is a plus
        olist_pushval(list, sp_cpval(a.get()));
        olist_pushopt(list, op);
    }
    EXPECT_EQ(list->mxslots, 10);
    olist_pushval(list, sp_cpval(b.get()));
    EXPECT_EQ(told(olist_evaluate(list)), "[12 32]");
    list = olist_init(context);
    olist_pushval(list, nullptr);
    olist_pushval(list, sp_cpval(a.get()));
    olist_free(list);
}

TEST(Variables, AreKeptByTheRulesOfWhoMayRedefine)
{
    const own_context context;
    EXPECT_EQ(sp_var_search(context, sp_scaler, sp_program, 0), nullptr);
    EXPECT_EQ(sp_var_isvar(context, "pI") * 10 + sp_var_isvar(context, "PIE"), 10);
    EXPECT_STREQ(sp_var_search(context, sp_scaler, sp_program, 0), "PI");
    EXPECT_STREQ(sp_var_search(context, sp_scaler, sp_program, 2), "C");
    EXPECT_EQ(sp_var_search(context, sp_scaler, sp_program, 3), nullptr);
    EXPECT_EQ(number(sp_var_getval(context, "pi")->scaler * 2), number(sp_var_getval(context, "TWOPI")->scaler));
    EXPECT_EQ(sp_var_getval(context, "c")->scaler, 299792500.0);
    EXPECT_STREQ(sp_var_putval(context, "pi", sp_mk_scaler(3), sp_user),
                 "Cannot redefine variable provided by program.");
    EXPECT_EQ(sp_var_getval(context, "PI")->scaler, 3.141592654);

    EXPECT_EQ(sp_var_putval(context, "Width", sp_mk_scaler(1), sp_system), nullptr); // stored as the user's
    EXPECT_EQ(sp_var_putval(context, "WIDTH", sp_mk_scaler(2), sp_user), nullptr);
    EXPECT_STREQ(sp_var_putdesc(context, "width", "how wide"), "how wide");
    EXPECT_EQ(sp_var_putdesc(context, "height", "how high"), sp_no_variable());
    for (const char *name :
         {"height", "long_name_of_more_than_eighty_characters_which_only_the_library_itself_can_keep_in_full"})
        EXPECT_STREQ(sp_var_getdesc(context, name), " ");
    EXPECT_EQ(sp_var_putval(context, "height", array({1, 2}), sp_user), nullptr);
    EXPECT_EQ(sp_var_putval(context, "Width", sp_mk_string("wide"), sp_program), nullptr); // and makes it the program's
    EXPECT_STREQ(sp_var_getdesc(context, "width"), "how wide");
    const jmalloc_ptr<char> listed(sp_var_list(context, sp_program));
    EXPECT_STREQ(listed.get(), "No. Variable           Type       Size  Description\n"
                               "--- --------           ----       ----  -----------\n"
                               " 1. PI                 SCALER        1  Value of PI = 3.141592654\n"
                               " 2. TWOPI              SCALER        1  2*PI = 6.283185308\n"
                               " 3. C                  SCALER        1  Speed of Light (m/s)\n"
                               " 4. Width              STRING        4  how wide\n");
    EXPECT_STREQ(std::strchr(jmalloc_ptr<char>(sp_var_list(context, sp_user)).get(), '1'),
                 "1. height             ARRAY         2   \n");
    // From 10 to 20 at the eleventh.
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(context->vlib->mxvals, 10);
        sp_var_putval(context, ("V" + std::to_string(i)).c_str(), nullptr, i % 2);
    }
    EXPECT_EQ(context->vlib->nvals * 100 + context->vlib->mxvals, 1120);
    sp_value *unknown = sp_var_getval(context, "Height?");
    EXPECT_EQ(unknown->type, sp_null);
    EXPECT_EQ(sp_var_getval(context, nullptr), unknown);
    sp_var_flush(context);
    EXPECT_STREQ(context->vlib->names[4], "V0");
    EXPECT_EQ(context->vlib->nvals * 10 + sp_findindx(context->vlib, "width"), 73);
    sp_var_freelib(context);
    sp_var_flush(context);
    EXPECT_EQ(sp_findindx(context->vlib, "PI"), -1);
    for (int i = 0; i < 3000; ++i)
        sp_var_putval(context, ("many" + std::to_string(i)).c_str(), sp_mk_scaler(i), sp_user);
    for (int i = 0; i < 3000; ++i)
        ASSERT_EQ(sp_findindx(context->vlib, ("MANY" + std::to_string(i)).c_str()), i + 3);
}

TEST(Contexts, StartWithDefaultsAndCollectErrors)
{
    spsm_init = [](sp_context *context) { context->spsm = context; };
    const own_context context;
    spsm_init = nullptr;
    EXPECT_EQ(context->spsm, context);
    EXPECT_EQ(context->zz.stackptr * 100 + context->zz.mxstack, -60);
    const sp_config &c = context->config;
    EXPECT_EQ((std::vector<double>{c.xsize, c.ysize, c.xorg[9], c.yorg[9], c.xlen[9], c.ylen[9]}),
              (std::vector<double>{8, 6, 1, 1, 6, 4}));
    const sp_pltaxis &axis = c.yaxes[19];
    EXPECT_EQ((std::vector{c.ncurves, axis.icolor, axis.islave, axis.vis_top, axis.lab_top, axis.lab_bot}),
              (std::vector{1, 1, -1, 1, 0, 1}));
    EXPECT_EQ(c.curves[39].spl_yfact + c.curves[39].icolor + axis.f1 + static_cast<double>(c.labels[59].height),
              3 + static_cast<double>(0.07F));
    EXPECT_STREQ(sp_err_get(context), " ");
    sp_err_add(context, "one");
    sp_err_add(context, "two");
    EXPECT_STREQ(sp_err_get(context), "one\ntwo\n");
    sp_err_flush(context);
    EXPECT_STREQ(sp_err_get(context), " ");
    EXPECT_EQ(context->mxerrstr, 0);
    EXPECT_EQ(std::string(own_context()->name), "test");
}

// With accounting on every value that is freed leaves the account; else what is kept is freed at the end.
TEST(Memory, IsFreed)
{
    sp_release_memory();
    const auto work = [] {
        const own_context context;
        for (const char *line :
             {"A = RAMP(1, 1, 5000)", "A = A + A*2", "S = \"s\" + A + N", "B = A/(A-7)", "C = (A", "D = 1 2"})
            sp_script_line(context, line, 1);
        for (const char *formula :
             {"A*A+A A*A", "SEQ(A*A, A+A, (A-A)/A) + \"", "S+S+#X+\"t\"", "A/0*A", "FOO(A*A, 1/0)"})
            sp_free_value(sp_eval_formula(context, formula));
    };
    {
        const allocator_watch watch;
        work();
        EXPECT_EQ(watch.live(), 0U);
    }
    jmalloc_nomm_reset();
    set_environment("JUSED", "1");
    const jmalloc_ptr<void> first(jmalloc(8));
    work();
    EXPECT_EQ(jused(), 8);
    set_environment("JUSED", nullptr);
    EXPECT_NE(jmalloc_ptr<void>(sp_mk_array(100000)), nullptr);
}

} // namespace
