#include "support/wi_fixture.h"

namespace {

HWND edit_of(wi_obj *wo)
{
    return wo->type == wi_type_numfld ? wo->obj.numfld->editarea : wo->obj.strfld->editarea;
}

TEST(Label, IsAlignedAsAsked)
{
    for (const auto &[just, style] :
         {std::pair<int, LONG>{-1, SS_LEFT}, {0, SS_CENTER}, {1, SS_RIGHT}, {2, SS_CENTER}, {-7, SS_CENTER}})
        EXPECT_EQ(GetWindowLongA(wi_mk_label(new_area(), "", just)->handle, GWL_STYLE) & SS_TYPEMASK, style) << just;
}

TEST(Label, ReadsBackOfEveryTypeThatHasOne)
{
    const std::string longest(300, 'x');
    wi_obj *label = wi_mk_label(new_area(), "a & b", 0);
    wi_obj *str = wi_mk_strfld(new_area(), "str", 0.5), *num = wi_mk_numfld(new_area(), "num", 0.5, 1);
    wi_obj *incdec = wi_mk_incdecfld(new_area(), "incdec", 0.5, 1),
           *button = wi_mk_button(new_area(), "but", 0, nullptr, 0);
    using row = std::pair<wi_obj *, const char *>;
    for (const auto &[wo, text] :
         {row{label, "a & b"}, row{str, "str"}, row{num, "num"}, row{incdec, "incdec"}, row{button, "but"},
          row{nullptr, "(null)"}, row{wi_mk_form(nullptr, 1, 1), "(null)"}})
        EXPECT_EQ(taken(wi_get_label(wo)), text);
    for (wi_obj *wo : {label, str, num, incdec, button}) {
        wi_set_label(wo, longest.c_str());
        EXPECT_EQ(taken(wi_get_label(wo)), longest.substr(0, wo == button ? 300 : 255));
    }
    wi_set_string(label, nullptr);
    EXPECT_EQ(taken(wi_get_label(label)), " ");
    wi_button_label(button, button->obj.button->label);
    EXPECT_EQ(taken(wi_button_getlabel(button)), longest) << "a button's own text can be given back to it";
}

TEST(Button, CallsBackWithItsTargetAndTag)
{
    wi_obj *push = wi_mk_button(new_area(), "p", 5, seen::callback, 42),
           *silent = wi_mk_button(new_area(), "s", 0, nullptr, 1);
    wi_obj *toggle = wi_mk_button(
        new_area(), "t", 1, [](wi_obj *wo, int tag) { seen::callback(wo, tag + wi_get_state(wo)); }, 7);
    seen::reset();
    SendMessageA(push->handle, BM_CLICK, 0, 0);
    pump();
    EXPECT_EQ(seen::last(), std::pair(push, 42));
    click_on(silent->handle);
    EXPECT_EQ(seen::calls, 1);
    for (const int state : {1, 0, 1}) {
        click_on(toggle->handle);
        EXPECT_EQ(seen::tag, 7 + state) << "the callback sees the new state";
        EXPECT_EQ(SendMessageA(toggle->handle, BM_GETCHECK, 0, 0), state);
    }
    wi_button_setstate(toggle, 0);
    EXPECT_EQ(wi_button_getstate(toggle), 0);
    wi_button_setstate(toggle, -3);
    EXPECT_EQ(wi_button_getstate(toggle), 1);
    wi_obj *pair = wi_mk_updownbut(new_area(), seen::callback, 1, seen::callback, 2);
    click_on(pair->obj.updownbut->downbut->handle);
    EXPECT_EQ(seen::last(), std::pair(pair, 2)) << "a part calls with the whole";
}

TEST(StringField, KeepsTextOfUpTo255Characters)
{
    wi_obj *field = wi_mk_strfld(new_area(), "f", 0.5);
    EXPECT_EQ(taken(wi_strfld_getstr(field)), "");
    const std::string text(400, 'a');
    wi_strfld_putstr(field, text.c_str());
    EXPECT_EQ(taken(wi_strfld_getstr(field)), text.substr(0, 255));
    wi_strfld_putstr(field, "2.5e1 units");
    EXPECT_EQ(wi_get_value(field), 25);
    wi_strfld_editable(field, 0);
    EXPECT_TRUE(GetWindowLongA(edit_of(field), GWL_STYLE) & ES_READONLY);
    type_text(edit_of(field), "typed");
    EXPECT_EQ(taken(wi_strfld_getstr(field)), "2.5e1 units");
    wi_strfld_putstr(field, "");
    wi_strfld_editable(field, 1);
    type_text(edit_of(field), "typed & \"quoted\"");
    EXPECT_EQ(taken(wi_get_string(field)), "typed & \"quoted\"");
}

TEST(StringField, EnterCallsBack)
{
    wi_obj *field = wi_mk_strfld(new_area(), "f", 0.5);
    seen::reset();
    press_key(edit_of(field), VK_RETURN);
    wi_strfld_set_cb(field, seen::callback, -9);
    press_key(edit_of(field), VK_RETURN);
    EXPECT_EQ(seen::last(), std::pair(field, -9));
    field->obj.strfld->callbacktarget = field->parent;
    press_key(edit_of(field), VK_RETURN);
    EXPECT_EQ(seen::wo, field->parent);
    wi_strfld_set_cb(field, nullptr, 0);
    press_key(edit_of(field), VK_RETURN);
    EXPECT_EQ(seen::calls, 2);
}

TEST(NumericField, TakesOnlyCharactersOfANumber)
{
    wi_obj *field = wi_mk_numfld(new_area(), "n", 0.5, 2);
    EXPECT_EQ(taken(wi_numfld_getstr(field)), "0.00");
    wi_numfld_putstr(field, "");
    type_text(edit_of(field), "1a.5,e\xe9-\x16"
                              "3x\r\t E+Z9\b");
    EXPECT_EQ(taken(wi_numfld_getstr(field)), "1.5e-3 E+");
    wi_numfld_putstr(field, "1.5e-3");
    seen::reset();
    wi_numfld_set_cb(field, seen::callback, 3);
    press_key(edit_of(field), VK_RETURN);
    EXPECT_EQ(taken(wi_numfld_getstr(field)), "0.00") << "normalised before the callback";
    EXPECT_EQ(seen::last(), std::pair(field, 3));
    for (const char *text : {"", "no number"}) {
        wi_numfld_putstr(field, text);
        EXPECT_EQ(wi_numfld_getval(field), 0);
    }
    wi_numfld_putval(field, 2.0 / 3);
    wi_numfld_decimals(field, 20);
    EXPECT_EQ(taken(wi_numfld_getstr(field)), "0.670000000000") << "the text is the value";
    wi_set_decimals(field, 0);
    wi_set_value(field, 2.5e12);
    EXPECT_EQ(taken(wi_numfld_getstr(field)), "2e+12");
}

TEST(IncDecField, StepsUpToItsLimitsAndNotBeyond)
{
    wi_obj *field = wi_mk_incdecfld(new_area(), "i", 0.5, 1);
    const wi_updownbut *pair = field->obj.incdecfld->updownbut->obj.updownbut;
    const HWND number = field->obj.incdecfld->numfld->obj.numfld->editarea;
    const wi_obj *up = pair->upbut, *down = pair->downbut;
    const auto step = [&](const wi_obj *button) {
        click_on(button->handle);
        return taken(wi_incdecfld_getstr(field));
    };
    EXPECT_EQ(pair->downbut->obj.button->tag, 5024);
    EXPECT_EQ(step(up), "1.00");
    wi_incdecfld_toplim(field, 2);
    EXPECT_EQ(step(up), "2.00");
    EXPECT_EQ(step(up), "2.00");
    wi_set_inc(field, 0.75, 0);
    wi_incdecfld_putval(field, 1.5);
    EXPECT_EQ(step(up), "1.50") << "a step over the limit is refused whole";
    wi_incdecfld_botlim(field, 0);
    EXPECT_EQ(step(down), "0.75");
    EXPECT_EQ(step(down), "0.00");
    EXPECT_EQ(step(down), "0.00");
    wi_incdecfld_putstr(field, "junk");
    EXPECT_EQ(wi_get_value(field), 0);

    seen::reset();
    wi_incdecfld_set_cb(field, seen::callback, 11, nullptr, 0, seen::callback, 12);
    step(up);
    EXPECT_EQ(seen::last(), std::pair(field, 11));
    wi_incdecfld_putval(field, 1);
    EXPECT_EQ(step(down), "0.25") << "the default stays where no callback was given";
    press_key(number, VK_RETURN);
    EXPECT_EQ(seen::last(), std::pair(field, 12));
    wi_incdecfld_set_cb(field, nullptr, 0, nullptr, 0, nullptr, 0);
    seen::reset();
    press_key(number, VK_RETURN);
    EXPECT_EQ(seen::calls, 0);
    step(up);
    EXPECT_EQ(seen::tag, 11);
}

TEST(Focus, GoesThroughAllThatTakeItAndWrapsRound)
{
    wi_obj *form = wi_mk_form(nullptr, 100, 100);
    const auto area = [form] { return wi_form_parent(form, 0, 0, 50, 10); };
    wi_obj *nested = wi_mk_rectary(wi_form_parent(form, 0, 0, 100, 50), 2, 2, 0, 0);
    wi_mk_label(nested, "skipped", 0);
    wi_obj *first = wi_mk_strfld(nested, "1", 0.5);
    wi_mk_crop(nested, 0, 0, 0, 0);
    wi_obj *drect = wi_mk_drect(wi_mk_frame(wi_mk_crop(area(), 0, 0, 0, 0)), 0, 0.5);
    wi_obj *second = wi_mk_numfld(drect, "2", 0.5, 0), *stepped = wi_mk_incdecfld(drect, "3", 0.5, 1);
    wi_obj *empty = area(), *last = wi_mk_button(area(), "4", 0, nullptr, 0);
    wi_mk_label(area(), "skipped", 0);
    const char *const choices[] = {"A", nullptr};
    wi_obj *grid = wi_mk_rectary(area(), 6, 1, 0, 0);
    const wi_listsel *list = wi_mk_listsel(grid, "", 0.5, choices)->obj.listsel;
    wi_mk_icon(grid, 1);
    const wi_filesel *file = wi_mk_filesel(grid, "", "", 0.5)->obj.filesel;
    wi_obj *buttons = wi_mk_butary(grid, 1, 2), *color = wi_mk_colorbut(grid);
    wi_butary_blank(buttons);
    wi_butary_button(buttons, "2", 0, nullptr, 0);
    const wi_obj *toggle = wi_mk_togary(grid, choices, 0)->obj.togary->butary->obj.butary->ary[0].button;
    const HWND inner = stepped->obj.incdecfld->numfld->obj.numfld->editarea;
    wi_on(form);
    wi_activate_first(form);
    for (const HWND expected : {edit_of(first), edit_of(second), inner, last->handle, list->staticarea,
                                file->button->handle, edit_of(file->strfld), buttons->obj.butary->ary[1].button->handle,
                                color->handle, toggle->handle, edit_of(first)}) {
        ASSERT_EQ(GetFocus(), expected);
        press_key(expected, VK_TAB);
    }
    wi_activate_first(empty);
    EXPECT_EQ(GetFocus(), last->handle) << "an empty area passes the focus on";
    wi_activate_next(stepped->obj.incdecfld->numfld);
    EXPECT_EQ(GetFocus(), last->handle);
    SendMessageA(form->shell->handle, WM_ACTIVATE, WA_INACTIVE, 0);
    SetFocus(nullptr);
    SendMessageA(form->shell->handle, WM_SETFOCUS, 0, 0);
    EXPECT_EQ(GetFocus(), last->handle) << "a window that comes back gives the keyboard to the control that had it";
    wi_off(form);
}

TEST(Focus, WalkEndsWhereNothingTakesIt)
{
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    for (int i = 0; i < 20000; ++i)
        wi_form_parent(form, 0, 0, 1, 1);
    wi_mk_label(wi_form_parent(form, 0, 0, 1, 1), "only a label", 0);
    wi_activate_first(form);
    wi_activate_first(form->shell);
}

TEST(Controls, WithoutParentHaveAWindowOfTheirOwn)
{
    wi_obj *own[] = {wi_mk_label(nullptr, "l", 0),          wi_mk_button(nullptr, "b", 0, nullptr, 0),
                     wi_mk_strfld(nullptr, "s", 0.5),       wi_mk_numfld(nullptr, "n", 0.5, 0),
                     wi_mk_incdecfld(nullptr, "i", 0.5, 1), wi_mk_updownbut(nullptr, nullptr, 0, nullptr, 0)};
    const int height = GetSystemMetrics(SM_CYFULLSCREEN);
    for (wi_obj *wo : own) {
        ASSERT_NE(wo->shell, nullptr) << wo->type;
        RECT r;
        GetWindowRect(wo->shell->handle, &r);
        const int wanted = wo->type == wi_type_strfld ? 601 : 600;
        EXPECT_EQ(r.bottom - r.top, static_cast<int>(wanted * height * 1.25 / 768)) << wo->type;
        wi_on(wo);
        EXPECT_TRUE(IsWindowVisible(wo->shell->handle));
        wi_off(wo);
        EXPECT_FALSE(IsWindowVisible(wo->shell->handle));
    }
}

} // namespace
