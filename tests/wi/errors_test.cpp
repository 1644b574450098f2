// Every program error: what is called, and the message that ends the program.
#include "support/wi_fixture.h"

#include <functional>
#include <type_traits>

namespace {

// Objects of each kind to be the right or the wrong one.
struct kinds {
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    wi_obj *label = wi_mk_label(area(), "label", -1);
    wi_obj *push = wi_mk_button(area(), "push", 0, nullptr, 0);
    wi_obj *str = wi_mk_strfld(area(), "str", 0.5);
    wi_obj *num = wi_mk_numfld(area(), "num", 0.5, 2);
    wi_obj *incdec = wi_mk_incdecfld(area(), "incdec", 0.5, 1);

    wi_obj *area() const { return wi_form_parent(form, 0, 0, 10, 10); }
};

const kinds &have()
{
    static const kinds all;
    return all;
}

using operation = std::function<void(wi_obj *)>;

// An operation with everything but its object.
template <class Result, class... Args>
operation with(Result (*call)(wi_obj *, Args...), std::type_identity_t<Args>... args)
{
    return [=](wi_obj *wo) { call(wo, args...); };
}

struct numbered {
    int first; // message for a null object; the next number is for a wrong type
    operation call;
};

void expect_numbers(const std::string &module, wi_obj *wrong, const std::vector<numbered> &operations)
{
    for (const numbered &o : operations) {
        EXPECT_EQ(exit_message([&] { o.call(nullptr); }),
                  "PE " + std::to_string(o.first) + ", " + module + ": bad arg.");
        EXPECT_EQ(exit_message([&] { o.call(wrong); }),
                  "PE " + std::to_string(o.first + 1) + ", " + module + ": bad arg.");
    }
}

struct row {
    std::string message;
    std::function<void()> call;
};

void expect_messages(const std::vector<row> &rows)
{
    for (const row &r : rows)
        EXPECT_EQ(exit_message(r.call), r.message);
}

TEST(ProgramErrors, OfGenericOperations)
{
    const kinds &k = have();
    const struct {
        std::string null_message, type_message;
        wi_obj *wrong;
        operation call;
    } table[] = {
        {"PE 8,", "PE 9,", k.label, with(wi_set_message, "m")},  {"PE 10,", "PE 11,", k.form, with(wi_set_label, "l")},
        {"PE 12,", "PE 13,", k.label, with(wi_set_split, 1, 0)}, {"PE 14,", "PE 15,", k.str, with(wi_set_decimals, 1)},
        {"PE 16,", "PE 17,", k.num, with(wi_set_inc, 1, 0)},     {"PE 18,", "PE 19,", k.form, with(wi_set_string, "s")},
        {"PE 20,", "PE 21,", k.str, with(wi_set_value, 1)},      {"PE 22,", "PE 23.", k.label, with(wi_set_state, 1)},
        {"PE 24,", "", k.label, with(wi_set_dir, "d")},          {"PE 25,", "PE 26,", k.push, with(wi_set_editable, 1)},
        {"PE 27,", "PE 29,", k.label, with(wi_get_string)},      {"PE 30,", "PE 31,", k.push, with(wi_get_value)},
        {"PE 32,", "PE 33,", k.str, with(wi_get_state)}};
    wi_obj odd{};
    for (const auto &r : table) {
        const std::string type_message = r.type_message.empty() ? "" : r.type_message + " wi.c: bad object type.";
        EXPECT_EQ(exit_message([&] { r.call(nullptr); }), r.null_message + " wi.c: bad arg.");
        EXPECT_EQ(exit_message([&] { r.call(r.wrong); }), type_message);
        for (const int type : {-1, 0, 1, 10, 30, 32, 1 << 30}) { // types that nothing claims
            odd.type = type;
            EXPECT_EQ(exit_message([&] { r.call(&odd); }), type_message) << type;
        }
    }
    EXPECT_EQ(exit_message([&] { wi_set_message(k.label, nullptr); }), "PE 8, wi.c: bad arg.");
}

TEST(ProgramErrors, OfControls)
{
    const kinds &k = have();
    expect_numbers("wilabel.c", k.push, {{2, with(wi_label, "")}});
    expect_numbers("wibutton.c", k.label,
                   {{3, with(wi_button_label, "")},
                    {5, with(wi_button_setstate, 1)},
                    {8, with(wi_button_getlabel)},
                    {8, with(wi_button_getstate)}});
    expect_numbers("wistrfld.c", k.label,
                   {{4, with(wi_strfld_putstr, "")},
                    {6, with(wi_strfld_getstr)},
                    {8, with(wi_strfld_label, "")},
                    {10, with(wi_strfld_split, 0.1)},
                    {12, with(wi_strfld_editable, 1)},
                    {14, with(wi_strfld_set_cb, nullptr, 0)}});
    expect_numbers("winumfld.c", k.label,
                   {{4, with(wi_numfld_putstr, "")},
                    {4, with(wi_numfld_putval, 1)},
                    {6, with(wi_numfld_getstr)},
                    {6, with(wi_numfld_getval)},
                    {8, with(wi_numfld_label, "")},
                    {10, with(wi_numfld_split, 0.1)},
                    {12, with(wi_numfld_editable, 1)},
                    {14, with(wi_numfld_set_cb, nullptr, 0)}});
    expect_numbers("wiincdecfld.c", k.label,
                   {{5, with(wi_incdecfld_split, 0.1)},
                    {7, with(wi_incdecfld_label, "")},
                    {9, with(wi_incdecfld_getval)},
                    {11, with(wi_incdecfld_putval, 1)},
                    {13, with(wi_incdecfld_getstr)},
                    {15, with(wi_incdecfld_putstr, "")},
                    {17, with(wi_incdecfld_inc, 1)},
                    {19, with(wi_incdecfld_decimals, 1)},
                    {21, with(wi_incdecfld_toplim, 1)},
                    {23, with(wi_incdecfld_botlim, 1)},
                    {25, with(wi_incdecfld_editable, 1)},
                    {27, with(wi_incdecfld_set_cb, nullptr, 0, nullptr, 0, nullptr, 0)}});
    expect_messages({{"PE 3, wibutton.c: bad arg.", [&] { wi_button_label(k.push, nullptr); }},
                     {"PE 7, wibutton.c: bad arg.", [&] { wi_set_state(k.push, 1); }},
                     {"PE 10, wibutton.c: bad arg.", [&] { wi_get_state(k.push); }},
                     {"PE 4, wistrfld.c: bad arg.", [&] { wi_strfld_putstr(k.str, nullptr); }},
                     {"PE 8, wistrfld.c: bad arg.", [&] { wi_strfld_label(k.str, nullptr); }},
                     {"PE 4, winumfld.c: bad arg.", [&] { wi_numfld_putstr(k.num, nullptr); }},
                     {"PE 8, winumfld.c: bad arg.", [&] { wi_numfld_label(k.num, nullptr); }},
                     {"PE 15, wiincdecfld.c: bad arg.", [&] { wi_incdecfld_putstr(k.incdec, nullptr); }},
                     {"PE 7, wiincdecfld.c: bad arg.", [&] { wi_incdecfld_label(k.incdec, nullptr); }}});
}

TEST(ProgramErrors, OfContainersAndWindows)
{
    const kinds &k = have();
    wi_obj *form = k.form, *label = k.label;
    const std::string crop = "Bad argument to wi_mk_rectary.  Crop value is invalid.";
    const std::string coords = "Bad coordinates in wi_form_parent: ";
    expect_numbers("widovapp.c", label, {{9, with(wi_dovapp_quit, 1, "", nullptr, 0)}});
    expect_numbers("widrect.c", label, {{9, with(wi_drect_split, 0.5)}});
    expect_messages({{"You tried to create a dovapp object without a title.  Please specify a title.",
                      [] { wi_mk_dovapp(nullptr, nullptr); }},
                     {"PE 11, widovapp.c bad arg.", [] { wi_dovapp_label(nullptr, "x"); }},
                     {"PE 11, widovapp.c bad arg.", [=] { wi_dovapp_label(form->shell, nullptr); }},
                     {"PE 12, widovapp.c: bad arg.", [=] { wi_dovapp_label(label, "x"); }},
                     {"PE 1, wiform.c: Bad arg.", [=] { wi_mk_form(label, 0, 1); }},
                     {"PE 1, wiform.c: Bad arg.", [=] { wi_mk_form(label, 1, -2.5); }},
                     {"Bad parameter to wi_form_parent.", [] { wi_form_parent(nullptr, 0, 0, 1, 1); }},
                     {"Bad parameter to wi_form_parent. The object parameter must be a form object .",
                      [=] { wi_form_parent(label, 0, 0, 1, 1); }},
                     {coords + "10.000000 100.000100 20.000000 40.000000 100.000000 100.000000",
                      [=] { wi_form_parent(form, 10, 20, 100.0001, 40); }},
                     {coords + "1.000000 3.000000 2.000000 30.500000 20.000000 20.000000",
                      [] { wi_form_parent(wi_mk_form(nullptr, 20, 30), 1, 2, 3, 30.5); }},
                     {coords + "0.000000 1.000000 -0.500000 1.000000 100.000000 100.000000",
                      [=] { wi_form_parent(form, 0, -0.5, 1, 1); }},
                     {crop, [=] { wi_mk_rectary(label, 1, 1, 1, 0); }},
                     {crop, [=] { wi_mk_rectary(label, 1, 1, 0, -0.01); }},
                     {"PE 1, widrect.c: bad arg.", [=] { wi_mk_drect(label, 0, 0); }},
                     {"PE 1, widrect.c: bad arg.", [=] { wi_mk_drect(label, 2, 1); }},
                     {"PE 2, widrect.c bad arg.", [=] { wi_mk_drect(label, 2, 0.5); }}});
}

TEST(ProgramErrors, OfTheTree)
{
    const std::string one =
        "You attempted to add a child to an object, but it already has a child.  The object only supports one child.";
    const std::string two = "You attempted to add a child to a double rectangle, but it already has 2 children.  The "
                            "object only support 2 children.";
    const std::string full = "You attempted to add a child to a rectangle array, but it already is filled.";
    const std::string size = "Bad parameter to wi_size", findnext = "Bad parameter to wi_activate_findnext";
    const kinds &k = have();
    wi_obj *shell = k.form->shell, *label = k.label;
    wi_obj *drect = wi_mk_drect(k.area(), 1, 0.5), *grid = wi_mk_rectary(k.area(), 1, 2, 0, 0);
    wi_obj *none = wi_mk_rectary(k.area(), 0, 5, 0, 0), *frame = wi_mk_frame(k.area());
    for (wi_obj *parent : {drect, drect, grid, grid, frame})
        wi_mk_label(parent, "", 0);
    wi_obj orphan{}, *o = &orphan;
    orphan.type = wi_type_label;
    expect_messages(
        {{"Bad parameter to addchild", [=] { addchild(label, nullptr); }},
         {one, [=] { addchild(label, shell); }},
         {one, [=] { addchild(label, frame); }},
         {two, [=] { addchild(label, drect); }},
         {full, [=] { addchild(label, grid); }},
         {full, [=] { addchild(label, none); }},
         {"Error: cannot add a child to that object.", [=] { addchild(label, k.form); }},
         {"Error: cannot add a child to that object.", [=] { addchild(label, label); }},
         {"Bad Wi object passed to wi_size.", [] { wi_size(nullptr, 1, 1); }},
         {size, [=] { wi_size(label, 1, 1); }},
         {size, [=] { wi_position(label, 1, 1); }},
         {size, [] { wi_position(nullptr, 1, 1); }},
         {"Bad parameter to wi_activate_first", [] { wi_activate_first(nullptr); }},
         {"Bad parameter to wi_activate_first: bad window type ", [=] { wi_activate_first(k.incdec); }},
         {"bad wi object passed to wi_activate_next", [] { wi_activate_next(nullptr); }},
         {findnext, [=] { wi_activate_next(o); }},
         {findnext, [=] { wi_activate_findnext(nullptr, o); }},
         {findnext, [=] { wi_activate_findnext(shell, nullptr); }},
         {"Could not activate this window type in wi_activate_findnext", [=] { wi_activate_findnext(label, o); }}});
    orphan.type = 10;
    orphan.ison = 1;
    expect_messages({{"You cannot turn on that object with wi_on", [=] { wi_on(o); }},
                     {"You cannot turn off that object with wi_off", [=] { wi_off(o); }}});
}

} // namespace
