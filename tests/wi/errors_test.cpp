// Every program error: what is called, and the message that ends the program.
#include "support/wi_fixture.h"

#include <functional>
#include <type_traits>

namespace {

// What an operation is called with besides its object.
template <class T>
T argument([[maybe_unused]] const char *text)
{
    static int states[10];
    if constexpr (std::is_same_v<T, const char *>)
        return text;
    else if constexpr (std::is_convertible_v<int *, T>)
        return states;
    else
        return {};
}

struct operation : std::function<void(wi_obj *, const char *)> {
    template <class Result, class... Args>
    operation(Result (*call)(wi_obj *, Args...))
        : function([=](wi_obj *wo, [[maybe_unused]] const char *text) { call(wo, argument<Args>(text)...); })
    {
    }
};

struct refusal {
    std::string of_null, of_type; // messages for a null object and for one of another type
    operation call;
    wi_obj *takes = nullptr; // null text for this object is refused as a null object is
};

void expect_refusal(const refusal &r, wi_obj *wrong)
{
    EXPECT_EQ(exit_message([&] { r.call(nullptr, ""); }), r.of_null);
    EXPECT_EQ(exit_message([&] { r.call(wrong, ""); }), r.of_type) << "instead of " << r.of_null;
    EXPECT_EQ(r.takes ? exit_message([&] { r.call(r.takes, nullptr); }) : r.of_null, r.of_null) << "of null text";
}

struct at {
    int number; // for a null object; the next is for one of another type
    operation call;
    wi_obj *takes = nullptr;
};

// A call and its message.
struct row {
    template <class Result, class... Args>
    row(std::string m, Result (*f)(Args...), std::type_identity_t<Args>... args)
        : message(std::move(m)), call([=] { f(args...); })
    {
    }
    std::string message;
    std::function<void()> call;
};

void expect_messages(const std::vector<row> &rows)
{
    for (const row &r : rows)
        EXPECT_EQ(exit_message(r.call), r.message);
}

const char *const names[] = {"a", nullptr}, *const no_names[] = {nullptr};

// Objects of each kind to be the right or the wrong one.
class ProgramErrors : public testing::Test {
protected:
    wi_obj *area() const { return wi_form_parent(form, 0, 0, 10, 10); }

    void expect_numbers(const std::string &module, const std::vector<at> &operations) const
    {
        const auto message = [&](int n) { return "PE " + std::to_string(n) + ", " + module + ".c: bad arg."; };
        for (const auto &[number, call, takes] : operations)
            expect_refusal({message(number), message(number + 1), call, takes}, form);
    }

    wi_obj *form = wi_mk_form(nullptr, 100, 100), *shell = form->shell;
    wi_obj *label = wi_mk_label(area(), "label", -1), *push = wi_mk_button(area(), "push", 0, nullptr, 0);
    wi_obj *str = wi_mk_strfld(area(), "str", 0.5), *num = wi_mk_numfld(area(), "num", 0.5, 2);
    wi_obj *incdec = wi_mk_incdecfld(area(), "incdec", 0.5, 1), *page = wi_mk_editpage(area());
    wi_obj *status = wi_mk_status(area(), "", 0.1), *list = wi_mk_listsel(area(), "", 0.5, names);
    wi_obj *file = wi_mk_filesel(area(), "", "", 0.5), *color = wi_mk_colorbut(area());
    wi_obj *toggles = wi_mk_togary(area(), names, 0), *buttons = toggles->obj.togary->butary;
};

TEST_F(ProgramErrors, OfGenericOperations)
{
    const struct {
        std::string of_null, of_type;
        operation call;
        wi_obj *wrong;
    } table[] = {{"PE 8,", "PE 9,", wi_set_message, label},  {"PE 10,", "PE 11,", wi_set_label, form},
                 {"PE 12,", "PE 13,", wi_set_split, label},  {"PE 14,", "PE 15,", wi_set_decimals, str},
                 {"PE 16,", "PE 17,", wi_set_inc, num},      {"PE 18,", "PE 19,", wi_set_string, form},
                 {"PE 20,", "PE 21,", wi_set_value, str},    {"PE 22,", "PE 23.", wi_set_state, label},
                 {"PE 24,", "", wi_set_dir, label},          {"PE 25,", "PE 26,", wi_set_editable, push},
                 {"PE 27,", "PE 29,", wi_get_string, label}, {"PE 30,", "PE 31,", wi_get_value, push},
                 {"PE 32,", "PE 33,", wi_get_state, str}};
    wi_obj odd{};
    for (const auto &[of_null, of_type, call, wrong] : table) {
        const refusal r = {of_null + " wi.c: bad arg.", of_type.empty() ? "" : of_type + " wi.c: bad object type.",
                           call};
        expect_refusal(r, wrong);
        for (const int type : {-1, 0, 1, 10, 30, 32, 1 << 30}) { // types that nothing claims
            odd.type = type;
            expect_refusal(r, &odd);
        }
    }
    EXPECT_EQ(exit_message([&] { wi_set_message(label, nullptr); }), "PE 8, wi.c: bad arg.");
}

TEST_F(ProgramErrors, OfObjectsByNumber)
{
    expect_numbers("wilabel", {at{2, wi_label}});
    expect_numbers("wibutton", {at{3, wi_button_label, push}, at{5, wi_button_setstate}, at{8, wi_button_getlabel},
                                at{8, wi_button_getstate}});
    expect_numbers("wistrfld", {at{4, wi_strfld_putstr, str}, at{6, wi_strfld_getstr}, at{8, wi_strfld_label, str},
                                at{10, wi_strfld_split}, at{12, wi_strfld_editable}, at{14, wi_strfld_set_cb},
                                at{12, wi_editpage_editable}});
    expect_numbers("winumfld", {at{4, wi_numfld_putstr, num}, at{4, wi_numfld_putval}, at{6, wi_numfld_getstr},
                                at{6, wi_numfld_getval}, at{8, wi_numfld_label, num}, at{10, wi_numfld_split},
                                at{12, wi_numfld_editable}, at{14, wi_numfld_set_cb}});
    expect_numbers("wiincdecfld",
                   {at{5, wi_incdecfld_split}, at{7, wi_incdecfld_label, incdec}, at{9, wi_incdecfld_getval},
                    at{11, wi_incdecfld_putval}, at{13, wi_incdecfld_getstr}, at{15, wi_incdecfld_putstr, incdec},
                    at{17, wi_incdecfld_inc}, at{19, wi_incdecfld_decimals}, at{21, wi_incdecfld_toplim},
                    at{23, wi_incdecfld_botlim}, at{25, wi_incdecfld_editable}, at{27, wi_incdecfld_set_cb}});
    expect_numbers("wieditpage", {at{4, wi_editpage_putstr, page}, at{6, wi_editpage_getstr}});
    expect_numbers("wilistsel", {at{5, wi_listsel_selchng_cb}, at{7, wi_listsel_split}, at{9, wi_listsel_label, list},
                                 at{11, wi_listsel_putstr}, at{13, wi_listsel_getstr}, at{21, wi_listsel_popup_on}});
    expect_numbers("wifilesel", {at{5, wi_filesel_chng_cb}, at{7, wi_filesel_split}, at{9, wi_filesel_label, file}});
    expect_numbers("witogary", {at{17, wi_togary_getindex}, at{19, wi_togary_getstate}, at{21, wi_togary_setstate},
                                at{23, wi_togary_getary}, at{25, wi_togary_setary}, at{29, wi_togary_editable},
                                at{31, wi_togary_chng_cb}});
    expect_numbers("wicolorbut",
                   {at{4, wi_colorbut_setcolor}, at{6, wi_colorbut_colorstate}, at{8, wi_colorbut_setary},
                    at{10, wi_colorbut_getcolor}, at{14, wi_colorbut_editable}, at{16, wi_colorbut_chng_cb}});
    expect_numbers("widovapp", {at{9, wi_dovapp_quit}});
    expect_numbers("widrect", {at{9, wi_drect_split}});
}

TEST_F(ProgramErrors, OfObjectsByOtherTexts)
{
    wi_obj *ynbox = wi_mk_ynbox(label, "", nullptr, 0, nullptr, 0);
    wi_obj *editbox = wi_mk_editbox(nullptr, "", nullptr, nullptr, 0);
    const std::string message_box = "Bad parameter passed to wi_msgbox_setmsg",
                      edit_box = "Bad parameter passed to wi_editbox_", null_box = ". The wi object cannot be NULL",
                      no_box = ". The wi object must be an editbox.", no_mode = "Bad argument to wi_togary_setmode.",
                      no_text = "You tried to put NULL into the editbox.";
    const refusal table[] = {
        {"PE 4, wistatus.c bad arg.", "PE 5, wistatus.c: bad arg.", wi_status, status},
        {"PE 6, wistatus.c bad arg.", "PE 7, wistatus.c: bad arg.", wi_status_getstr},
        {"PE 8, wistatus.c bad arg.", "PE 9, wistatus.c: bad arg.", wi_status_label, status},
        {"PE 10, wistatus.c bad arg.", "PE 11, wistatus.c: bad arg.", wi_status_split},
        {"PE 11, widovapp.c bad arg.", "PE 12, widovapp.c: bad arg.", wi_dovapp_label, shell},
        {"PE 9, wibutary.c: bad arg.", "PE 6, wibutary.c: bad arg.", wi_butary_button},
        {"PE 9, wibutary.c: bad arg.", "PE 10, wibutary.c: bad arg.", wi_butary_blank},
        {"PE 9, wibutary.c: bad arg.", "PE 9, wibutary.c: bad arg.", wi_butary_setstate},
        {"PE 12, wibutary.c: bad arg.", "PE 12, wibutary.c: bad arg.", wi_butary_getstate},
        {"PE 12, wicolorbut.c: bad arg.", "PE 12, wicolorbut.c: bad arg.", wi_colorbut_getary},
        {"PE 5, wiynbox.c: bad object.", "PE 6, wiynbox.c: Bad Object.", wi_ynbox_setquestion, ynbox},
        {"PE 6, wiynbox.c: Bad Object.", "PE 6, wiynbox.c: Bad Object.", wi_ynbox_popup},
        {"PE 4, wifilebox.c: Bad Object.", "PE 4, wifilebox.c: Bad Object.", wi_filebox_getname},
        {"PE 11, wifilebox.c: Bad Object.", "PE 12, wifilebox.c: Bad Object.", wi_filesel_setdir, file},
        {"PE 13, wifilesel.c: bad arg.", "PE 13, wifilesel.c: bad arg.", wi_filesel_putstr},
        {"PE 14, wifilesel.c: bad arg.", "PE 14, wifilesel.c: bad arg.", wi_filesel_getstr},
        {no_mode, no_mode, wi_togary_setmode},
        {message_box, message_box, wi_msgbox_setmsg},
        {edit_box + "getstr" + null_box, edit_box + "getstr" + no_box, wi_editbox_getstr},
        {edit_box + "putstr" + null_box, edit_box + "putstr" + no_box, wi_editbox_putstr},
        {edit_box + "setmsg" + null_box, edit_box + "setmsg" + no_box, wi_editbox_setmsg},
        {"Bad Wi_obj passed to wi_filebox_setdir",
         "You attempted to call wi_filebox_setdir with an object that is not a filebox.", wi_filebox_setdir},
        {"Bad Wi_obj passed to wi_filebox_setmsg",
         "You attempted to call wi_filebox_setmsg with an object that is not a filebox.", wi_filebox_setmsg},
        {"Bad parameter to wi_form_parent.",
         "Bad parameter to wi_form_parent. The object parameter must be a form object .", wi_form_parent}};
    for (const refusal &r : table)
        expect_refusal(r, label);
    for (const auto put : {wi_editbox_putstr, wi_editbox_setmsg})
        EXPECT_EQ(exit_message([=] { put(editbox, nullptr); }), no_text);
}

TEST_F(ProgramErrors, OfControls)
{
    const std::string get = "Bad index passed to wi_togary_getstate.", set = "Bad index passed to wi_togary_setstate.";
    const std::string mode = "Bad mode passed to wi_togary_setmode.", full = "PE 7, wibutary.c: button array full.";
    const std::string name = "Invalid parameter to wi_butary_setstate: Bad button name.";
    expect_messages(
        {row{"PE 7, wibutton.c: bad arg.", wi_set_state, push, 1},
         row{"PE 10, wibutton.c: bad arg.", wi_get_state, push},
         row{"PE 2, wiynbox.c: Must provide parent object.", wi_mk_ynbox, nullptr, "", nullptr, 0, nullptr, 0},
         row{"PE 2, wifilebox.c: Must provide parent object.", wi_mk_filebox, nullptr, "", "", nullptr, nullptr},
         row{"PE 1, widrect.c: bad arg.", wi_mk_filesel, area(), "", "", 1},
         row{full, wi_butary_button, buttons, "", 0, nullptr, 0},
         row{full, wi_butary_blank, buttons},
         row{name, wi_butary_setstate, buttons, "A", 0},
         row{name, wi_butary_setstate, buttons, nullptr, 0},
         row{"PE 14, wibutary.c: Unknown button name.", wi_butary_getstate, buttons, "A"},
         row{"PE 3, witogary.c: bad arguments.", wi_mk_togary, area(), no_names, 0},
         row{"PE 3, witogary.c: bad arguments.", wi_mk_togary, area(), nullptr, 0},
         row{get, wi_togary_getstate, toggles, -1},
         row{get, wi_togary_getstate, toggles, 1},
         row{set, wi_togary_setstate, toggles, -1, 1},
         row{"", wi_togary_setstate, toggles, 1, 1},
         row{set, wi_togary_setstate, toggles, 2, 1},
         row{mode, wi_togary_setmode, toggles, 4},
         row{mode, wi_togary_setmode, toggles, -1},
         row{"PE 12, wicolorbut.c: bad arg.", wi_colorbut_getary, color, nullptr},
         row{"PE 4, wiicon.c: bad arg.", wi_icon, nullptr, 1}});
}

TEST_F(ProgramErrors, OfContainersAndWindows)
{
    const std::string crop = "Bad argument to wi_mk_rectary.  Crop value is invalid.";
    const std::string coords = "Bad coordinates in wi_form_parent: ";
    expect_messages({row{"You tried to create a dovapp object without a title.  Please specify a title.", wi_mk_dovapp,
                         nullptr, nullptr},
                     row{"PE 1, wiform.c: Bad arg.", wi_mk_form, label, 0, 1},
                     row{"PE 1, wiform.c: Bad arg.", wi_mk_form, label, 1, -2.5},
                     row{coords + "10.000000 100.000100 20.000000 40.000000 100.000000 100.000000", wi_form_parent,
                         form, 10, 20, 100.0001, 40},
                     row{coords + "1.000000 3.000000 2.000000 30.500000 20.000000 20.000000", wi_form_parent,
                         wi_mk_form(nullptr, 20, 30), 1, 2, 3, 30.5},
                     row{coords + "0.000000 1.000000 -0.500000 1.000000 100.000000 100.000000", wi_form_parent, form, 0,
                         -0.5, 1, 1},
                     row{crop, wi_mk_rectary, label, 1, 1, 1, 0}, row{crop, wi_mk_rectary, label, 1, 1, 0, -0.01},
                     row{"PE 1, widrect.c: bad arg.", wi_mk_drect, label, 0, 0},
                     row{"PE 1, widrect.c: bad arg.", wi_mk_drect, label, 2, 1},
                     row{"PE 2, widrect.c bad arg.", wi_mk_drect, label, 2, 0.5}});
}

TEST_F(ProgramErrors, OfTheTree)
{
    const std::string one =
        "You attempted to add a child to an object, but it already has a child.  The object only supports one child.";
    const std::string two = "You attempted to add a child to a double rectangle, but it already has 2 children.  The "
                            "object only support 2 children.";
    const std::string full = "You attempted to add a child to a rectangle array, but it already is filled.";
    const std::string size = "Bad parameter to wi_size", findnext = "Bad parameter to wi_activate_findnext";
    wi_obj *drect = wi_mk_drect(area(), 1, 0.5), *grid = wi_mk_rectary(area(), 1, 2, 0, 0);
    wi_obj *none = wi_mk_rectary(area(), 0, 5, 0, 0), *frame = wi_mk_frame(area());
    for (wi_obj *parent : {drect, drect, grid, grid, frame})
        wi_mk_label(parent, "", 0);
    wi_obj orphan{}, *o = &orphan;
    orphan.type = wi_type_label;
    expect_messages(
        {row{"Bad parameter to addchild", addchild, label, nullptr}, row{one, addchild, label, shell},
         row{one, addchild, label, frame}, row{two, addchild, label, drect}, row{full, addchild, label, grid},
         row{full, addchild, label, none}, row{"Error: cannot add a child to that object.", addchild, label, form},
         row{"Error: cannot add a child to that object.", addchild, label, label},
         row{"Bad Wi object passed to wi_size.", wi_size, nullptr, 1, 1}, row{size, wi_size, label, 1, 1},
         row{size, wi_position, label, 1, 1}, row{size, wi_position, nullptr, 1, 1},
         row{"Bad parameter to wi_activate_first", wi_activate_first, nullptr},
         row{"Bad parameter to wi_activate_first: bad window type ", wi_activate_first, incdec},
         row{"bad wi object passed to wi_activate_next", wi_activate_next, nullptr}, row{findnext, wi_activate_next, o},
         row{findnext, wi_activate_findnext, nullptr, o}, row{findnext, wi_activate_findnext, shell, nullptr},
         row{"Could not activate this window type in wi_activate_findnext", wi_activate_findnext, label, o}});
    orphan.type = 10;
    orphan.ison = 1;
    expect_messages({row{"You cannot turn on that object with wi_on", wi_on, o},
                     row{"You cannot turn off that object with wi_off", wi_off, o}});
}

} // namespace
