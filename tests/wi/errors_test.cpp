// Every program error: what is called, and the message that ends the program.
#include "support/wi_fixture.h"

#include <functional>

namespace {

// Objects of each kind to be the right or the wrong one.
struct kinds {
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    wi_obj *label = wi_mk_label(area(), "label", -1);
    wi_obj *push = wi_mk_button(area(), "push", 0, nullptr, 0);
    wi_obj *toggle = wi_mk_button(area(), "toggle", 1, nullptr, 0);
    wi_obj *str = wi_mk_strfld(area(), "str", 0.5);
    wi_obj *num = wi_mk_numfld(area(), "num", 0.5, 2);
    wi_obj *incdec = wi_mk_incdecfld(area(), "incdec", 0.5, 1);
    wi_obj *drect = wi_mk_drect(area(), 0, 0.5);

    wi_obj *area() const { return wi_form_parent(form, 0, 0, 10, 10); }
};

const kinds &have()
{
    static const kinds all;
    return all;
}

struct row {
    std::string name;
    std::function<void()> call;
    std::string message;
};

void expect_messages(const std::vector<row> &rows)
{
    for (const row &r : rows)
        EXPECT_EQ(exit_message(r.call), r.message) << r.name;
}

// The two messages of one operation: for a null object and for one of a wrong type.
std::vector<row> pair(const char *name, std::function<void(wi_obj *)> call, wi_obj *wrong,
                      const std::string &null_message, const std::string &type_message)
{
    return {{std::string(name) + " null", [call] { call(nullptr); }, null_message},
            {std::string(name) + " wrong type", [=] { call(wrong); }, type_message}};
}

void expect_pair(const char *name, std::function<void(wi_obj *)> call, wi_obj *wrong, const char *module, int first,
                 int second)
{
    const auto text = [module](int n) { return "PE " + std::to_string(n) + ", " + module + ": bad arg."; };
    expect_messages(pair(name, call, wrong, text(first), text(second)));
}

TEST(ProgramErrors, OfGenericOperations)
{
    const auto generic = [](const char *name, std::function<void(wi_obj *)> call, wi_obj *wrong, int first,
                            const char *type_message) {
        expect_messages(pair(name, call, wrong, "PE " + std::to_string(first) + ", wi.c: bad arg.", type_message));
    };
    const kinds &k = have();
    generic(
        "set_message", [](wi_obj *w) { wi_set_message(w, "m"); }, k.label, 8, "PE 9, wi.c: bad object type.");
    generic(
        "set_label", [](wi_obj *w) { wi_set_label(w, "l"); }, k.form, 10, "PE 11, wi.c: bad object type.");
    generic(
        "set_split", [](wi_obj *w) { wi_set_split(w, 0.5, 0); }, k.label, 12, "PE 13, wi.c: bad object type.");
    generic(
        "set_decimals", [](wi_obj *w) { wi_set_decimals(w, 1); }, k.str, 14, "PE 15, wi.c: bad object type.");
    generic(
        "set_inc", [](wi_obj *w) { wi_set_inc(w, 1, 0); }, k.num, 16, "PE 17, wi.c: bad object type.");
    generic(
        "set_string", [](wi_obj *w) { wi_set_string(w, "s"); }, k.drect, 18, "PE 19, wi.c: bad object type.");
    generic(
        "set_value", [](wi_obj *w) { wi_set_value(w, 1); }, k.str, 20, "PE 21, wi.c: bad object type.");
    generic(
        "set_state", [](wi_obj *w) { wi_set_state(w, 1); }, k.label, 22, "PE 23. wi.c: bad object type.");
    generic(
        "set_dir", [](wi_obj *w) { wi_set_dir(w, "d"); }, k.label, 24, "");
    generic(
        "set_editable", [](wi_obj *w) { wi_set_editable(w, 1); }, k.label, 25, "PE 26, wi.c: bad object type.");
    generic(
        "get_string", [](wi_obj *w) { jfree(wi_get_string(w)); }, k.label, 27, "PE 29, wi.c: bad object type.");
    generic(
        "get_value", [](wi_obj *w) { wi_get_value(w); }, k.push, 30, "PE 31, wi.c: bad object type.");
    generic(
        "get_state", [](wi_obj *w) { wi_get_state(w); }, k.str, 32, "PE 33, wi.c: bad object type.");
    EXPECT_EQ(exit_message([&] { wi_set_message(k.label, nullptr); }), "PE 8, wi.c: bad arg.");

    wi_obj odd{}; // a type that nothing claims
    for (const int type : {-1, 0, 1, 10, 30, 32, 1 << 30}) {
        odd.type = type;
        expect_messages(pair(
            "label of a foreign type", [](wi_obj *w) { wi_set_label(w, ""); }, &odd, "PE 10, wi.c: bad arg.",
            "PE 11, wi.c: bad object type."));
    }
}

TEST(ProgramErrors, OfControls)
{
    const kinds &k = have();
    wi_obj *label = k.label, *push = k.push;
    expect_pair(
        "label", [](wi_obj *w) { wi_label(w, ""); }, push, "wilabel.c", 2, 3);
    expect_pair(
        "button_label", [](wi_obj *w) { wi_button_label(w, ""); }, label, "wibutton.c", 3, 4);
    expect_pair(
        "button_setstate", [](wi_obj *w) { wi_button_setstate(w, 1); }, label, "wibutton.c", 5, 6);
    expect_pair(
        "button_getlabel", [](wi_obj *w) { wi_button_getlabel(w); }, label, "wibutton.c", 8, 9);
    expect_pair(
        "button_getstate", [](wi_obj *w) { wi_button_getstate(w); }, label, "wibutton.c", 8, 9);
    expect_messages({{"button_label null text", [=] { wi_button_label(push, nullptr); }, "PE 3, wibutton.c: bad arg."},
                     {"setstate of a push button", [=] { wi_button_setstate(push, 1); }, "PE 7, wibutton.c: bad arg."},
                     {"getstate of a push button", [=] { wi_button_getstate(push); }, "PE 10, wibutton.c: bad arg."},
                     {"set_state of a push button", [=] { wi_set_state(push, 1); }, "PE 7, wibutton.c: bad arg."}});

    const char *s = "wistrfld.c", *n = "winumfld.c", *d = "wiincdecfld.c";
    expect_pair(
        "strfld_putstr", [](wi_obj *w) { wi_strfld_putstr(w, ""); }, label, s, 4, 5);
    expect_pair(
        "strfld_getstr", [](wi_obj *w) { wi_strfld_getstr(w); }, label, s, 6, 7);
    expect_pair(
        "strfld_label", [](wi_obj *w) { wi_strfld_label(w, ""); }, label, s, 8, 9);
    expect_pair(
        "strfld_split", [](wi_obj *w) { wi_strfld_split(w, 0.1); }, label, s, 10, 11);
    expect_pair(
        "strfld_editable", [](wi_obj *w) { wi_strfld_editable(w, 1); }, label, s, 12, 13);
    expect_pair(
        "strfld_set_cb", [](wi_obj *w) { wi_strfld_set_cb(w, nullptr, 0); }, label, s, 14, 15);
    expect_pair(
        "numfld_putstr", [](wi_obj *w) { wi_numfld_putstr(w, ""); }, label, n, 4, 5);
    expect_pair(
        "numfld_putval", [](wi_obj *w) { wi_numfld_putval(w, 1); }, label, n, 4, 5);
    expect_pair(
        "numfld_getstr", [](wi_obj *w) { wi_numfld_getstr(w); }, label, n, 6, 7);
    expect_pair(
        "numfld_getval", [](wi_obj *w) { wi_numfld_getval(w); }, label, n, 6, 7);
    expect_pair(
        "numfld_label", [](wi_obj *w) { wi_numfld_label(w, ""); }, label, n, 8, 9);
    expect_pair(
        "numfld_split", [](wi_obj *w) { wi_numfld_split(w, 0.1); }, label, n, 10, 11);
    expect_pair(
        "numfld_editable", [](wi_obj *w) { wi_numfld_editable(w, 1); }, label, n, 12, 13);
    expect_pair(
        "numfld_set_cb", [](wi_obj *w) { wi_numfld_set_cb(w, nullptr, 0); }, label, n, 14, 15);
    expect_pair(
        "incdecfld_split", [](wi_obj *w) { wi_incdecfld_split(w, 0.1); }, label, d, 5, 6);
    expect_pair(
        "incdecfld_label", [](wi_obj *w) { wi_incdecfld_label(w, ""); }, label, d, 7, 8);
    expect_pair(
        "incdecfld_getval", [](wi_obj *w) { wi_incdecfld_getval(w); }, label, d, 9, 10);
    expect_pair(
        "incdecfld_putval", [](wi_obj *w) { wi_incdecfld_putval(w, 1); }, label, d, 11, 12);
    expect_pair(
        "incdecfld_getstr", [](wi_obj *w) { wi_incdecfld_getstr(w); }, label, d, 13, 14);
    expect_pair(
        "incdecfld_putstr", [](wi_obj *w) { wi_incdecfld_putstr(w, ""); }, label, d, 15, 16);
    expect_pair(
        "incdecfld_inc", [](wi_obj *w) { wi_incdecfld_inc(w, 1); }, label, d, 17, 18);
    expect_pair(
        "incdecfld_decimals", [](wi_obj *w) { wi_incdecfld_decimals(w, 1); }, label, d, 19, 20);
    expect_pair(
        "incdecfld_toplim", [](wi_obj *w) { wi_incdecfld_toplim(w, 1); }, label, d, 21, 22);
    expect_pair(
        "incdecfld_botlim", [](wi_obj *w) { wi_incdecfld_botlim(w, 1); }, label, d, 23, 24);
    expect_pair(
        "incdecfld_editable", [](wi_obj *w) { wi_incdecfld_editable(w, 1); }, label, d, 25, 26);
    expect_pair(
        "incdecfld_set_cb", [](wi_obj *w) { wi_incdecfld_set_cb(w, nullptr, 0, nullptr, 0, nullptr, 0); }, label, d, 27,
        28);
    expect_messages(
        {{"strfld null text", [&] { wi_strfld_putstr(k.str, nullptr); }, "PE 4, wistrfld.c: bad arg."},
         {"strfld null label", [&] { wi_strfld_label(k.str, nullptr); }, "PE 8, wistrfld.c: bad arg."},
         {"numfld null text", [&] { wi_numfld_putstr(k.num, nullptr); }, "PE 4, winumfld.c: bad arg."},
         {"numfld null label", [&] { wi_numfld_label(k.num, nullptr); }, "PE 8, winumfld.c: bad arg."},
         {"incdec null text", [&] { wi_incdecfld_putstr(k.incdec, nullptr); }, "PE 15, wiincdecfld.c: bad arg."},
         {"incdec null label", [&] { wi_incdecfld_label(k.incdec, nullptr); }, "PE 7, wiincdecfld.c: bad arg."}});
}

TEST(ProgramErrors, OfContainersAndWindows)
{
    const kinds &k = have();
    wi_obj *form = k.form, *label = k.label;
    const std::string crop = "Bad argument to wi_mk_rectary.  Crop value is invalid.";
    const std::string coords = "Bad coordinates in wi_form_parent: ";
    expect_pair(
        "dovapp_quit", [](wi_obj *w) { wi_dovapp_quit(w, 1, "", nullptr, 0); }, label, "widovapp.c", 9, 10);
    expect_pair(
        "drect_split", [](wi_obj *w) { wi_drect_split(w, 0.5); }, label, "widrect.c", 9, 10);
    expect_messages({
        {"dovapp", [] { wi_mk_dovapp(nullptr, nullptr); },
         "You tried to create a dovapp object without a title.  Please specify a title."},
        {"dovapp_label null", [] { wi_dovapp_label(nullptr, "x"); }, "PE 11, widovapp.c bad arg."},
        {"dovapp_label null text", [=] { wi_dovapp_label(form->shell, nullptr); }, "PE 11, widovapp.c bad arg."},
        {"dovapp_label wrong type", [=] { wi_dovapp_label(label, "x"); }, "PE 12, widovapp.c: bad arg."},
        {"form width", [=] { wi_mk_form(label, 0, 1); }, "PE 1, wiform.c: Bad arg."},
        {"form height", [=] { wi_mk_form(label, 1, -2.5); }, "PE 1, wiform.c: Bad arg."},
        {"area of null", [] { wi_form_parent(nullptr, 0, 0, 1, 1); }, "Bad parameter to wi_form_parent."},
        {"area of a label", [=] { wi_form_parent(label, 0, 0, 1, 1); },
         "Bad parameter to wi_form_parent. The object parameter must be a form object ."},
        {"area too wide", [=] { wi_form_parent(form, 10, 20, 100.0001, 40); },
         coords + "10.000000 100.000100 20.000000 40.000000 100.000000 100.000000"},
        {"area too high", [=] { wi_form_parent(wi_mk_form(nullptr, 20, 30), 1, 2, 3, 30.5); },
         coords + "1.000000 3.000000 2.000000 30.500000 20.000000 20.000000"},
        {"area below zero", [=] { wi_form_parent(form, 0, -0.5, 1, 1); },
         coords + "0.000000 1.000000 -0.500000 1.000000 100.000000 100.000000"},
        {"rectary xcrop", [=] { wi_mk_rectary(label, 1, 1, 1, 0); }, crop},
        {"rectary ycrop", [=] { wi_mk_rectary(label, 1, 1, 0, -0.01); }, crop},
        {"drect split 0", [=] { wi_mk_drect(label, 0, 0); }, "PE 1, widrect.c: bad arg."},
        {"drect split 1", [=] { wi_mk_drect(label, 2, 1); }, "PE 1, widrect.c: bad arg."},
        {"drect direction", [=] { wi_mk_drect(label, 2, 0.5); }, "PE 2, widrect.c bad arg."},
    });
}

TEST(ProgramErrors, OfTheTree)
{
    const std::string one = "You attempted to add a child to an object, but it already has a child.  "
                            "The object only supports one child.";
    const kinds &k = have();
    wi_obj *shell = k.form->shell, *label = k.label;
    wi_obj *drect = wi_mk_drect(k.area(), 1, 0.5), *grid = wi_mk_rectary(k.area(), 1, 2, 0, 0);
    wi_obj *none = wi_mk_rectary(k.area(), 0, 5, 0, 0), *frame = wi_mk_frame(k.area());
    for (wi_obj *parent : {drect, grid}) {
        wi_mk_label(parent, "", 0);
        wi_mk_label(parent, "", 0);
    }
    wi_mk_label(frame, "", 0);
    wi_obj orphan{}, *o = &orphan;
    orphan.type = wi_type_label;
    const std::string full_grid = "You attempted to add a child to a rectangle array, but it already is filled.";
    expect_messages({
        {"no parent", [=] { addchild(label, nullptr); }, "Bad parameter to addchild"},
        {"second of a window", [=] { wi_mk_label(shell, "", 0); }, one},
        {"second of a frame", [=] { wi_mk_label(frame, "", 0); }, one},
        {"third of a double rectangle", [=] { wi_mk_label(drect, "", 0); },
         "You attempted to add a child to a double rectangle, but it already has 2 children.  "
         "The object only support 2 children."},
        {"third of two cells", [=] { wi_mk_label(grid, "", 0); }, full_grid},
        {"first of no cell", [=] { wi_mk_label(none, "", 0); }, full_grid},
        {"of a form", [=] { wi_mk_label(k.form, "", 0); }, "Error: cannot add a child to that object."},
        {"of a label", [=] { wi_mk_label(label, "", 0); }, "Error: cannot add a child to that object."},
        {"size null", [] { wi_size(nullptr, 1, 1); }, "Bad Wi object passed to wi_size."},
        {"size without shell", [=] { wi_size(label, 1, 1); }, "Bad parameter to wi_size"},
        {"position without shell", [=] { wi_position(label, 1, 1); }, "Bad parameter to wi_size"},
        {"position null", [] { wi_position(nullptr, 1, 1); }, "Bad parameter to wi_size"},
        {"first of null", [] { wi_activate_first(nullptr); }, "Bad parameter to wi_activate_first"},
        {"first of a pair", [=] { wi_activate_first(k.incdec); },
         "Bad parameter to wi_activate_first: bad window type "},
        {"next of null", [] { wi_activate_next(nullptr); }, "bad wi object passed to wi_activate_next"},
        {"next of an orphan", [=] { wi_activate_next(o); }, "Bad parameter to wi_activate_findnext"},
        {"findnext null container", [=] { wi_activate_findnext(nullptr, o); }, "Bad parameter to wi_activate_findnext"},
        {"findnext null child", [=] { wi_activate_findnext(shell, nullptr); }, "Bad parameter to wi_activate_findnext"},
        {"findnext in a label", [=] { wi_activate_findnext(label, o); },
         "Could not activate this window type in wi_activate_findnext"},
    });
    orphan.type = 10;
    orphan.ison = 1;
    expect_messages({{"on", [=] { wi_on(o); }, "You cannot turn on that object with wi_on"},
                     {"off", [=] { wi_off(o); }, "You cannot turn off that object with wi_off"}});
}

} // namespace
