#include "support/dialog.h"
#include "support/wi_fixture.h"

#include <algorithm>

namespace {

const char *const abc[] = {"A", "B", "C", nullptr};

TEST(ListSelection, KeepsItsChoiceAsLongAsThereIsOne)
{
    using row = std::tuple<std::vector<const char *>, const char *, int>; // list, what is put, index
    wi_obj *wo = wi_mk_listsel(new_area(), "L & M", 0.5, nullptr);
    EXPECT_EQ(taken(wi_listsel_getstr(wo)) + taken(wi_get_label(wo)), "L & M");
    for (const int editable : {0, 1, 0}) {
        wi_set_editable(wo, editable);
        for (const auto &[list, put, index] :
             {row{{"A", "B", nullptr}, "x", 0}, row{{"A", "B", nullptr}, "B", 1},
              row{{"C", "A", "B", "B", nullptr}, "b", 2}, row{{"x", nullptr}, "", 0}, row{{nullptr}, "x", -1}}) {
            wi_listsel_setlist(wo, list.data());
            wi_set_string(wo, put);
            EXPECT_EQ(wi_listsel_getindex(wo), index) << put;
            EXPECT_EQ(taken(wi_get_string(wo)), index < 0 ? "" : list[size_t(index)]);
        }
    }
    const std::string text(150, 'x');
    std::vector<const char *> list(10000, text.c_str());
    list.push_back(nullptr);
    const DWORD start = GetTickCount();
    wi_listsel_setlist(wo, list.data());
    EXPECT_LT(GetTickCount() - start, 3000U) << "10000 choices";
    EXPECT_EQ(taken(wi_listsel_getstr(wo)), text.substr(0, 120));
}

TEST(ListSelection, TellsOfChoicesAndOfEnter)
{
    static std::string during;
    wi_obj *wo = wi_mk_listsel(new_area(), "L", 0.5, abc);
    const wi_listsel *sel = wo->obj.listsel;
    const HWND edit = FindWindowExA(sel->editarea, nullptr, "edit", nullptr);
    const auto tell = [](wi_obj *from, int tag) {
        during = taken(wi_get_string(from));
        seen::callback(from, tag);
    };
    seen::reset();
    wi_listsel_selchng_cb(wo, tell, 9);
    press_key(sel->staticarea, VK_DOWN);
    EXPECT_TRUE(seen::last() == std::pair(wo, 9) && during == "B") << during;
    wi_listsel_editable(wo, 1);
    press_key(edit, VK_DOWN);
    EXPECT_EQ(during, "C") << "told before the edit part shows it";
    type_text(edit, "D");
    press_key(edit, VK_RETURN);
    EXPECT_TRUE(seen::calls == 3 && during.find('D') != during.npos);
    SendMessageA(sel->editarea, CB_SETCURSEL, WPARAM(-1), 0);
    for (const HWND from : {sel->editarea, wi_mk_button(new_area(), "", 0, tell, 1)->handle})
        SendMessageA(wo->handle, WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), LPARAM(from));
    EXPECT_EQ(seen::calls, 3) << "nothing chosen; a button's notification of the same code";
}

TEST(ListSelection, FillsItsPlaceAndOpensBelowIt)
{
    wi_obj *wo = wi_mk_listsel(new_area(), "L", 0.25, nullptr);
    const HWND lists[] = {wo->obj.listsel->staticarea, wo->obj.listsel->editarea};
    const auto dropped = [&](int i) { return SendMessageA(lists[i], CB_GETDROPPEDSTATE, 0, 0) != 0; };
    for (const int height : {31, 18, 0, 25})
        onresize(wo, 10, 20, 200, height);
    for (const int i : {0, 1, 0}) {
        wi_listsel_setlist(wo, nullptr);
        wi_listsel_editable(wo, i);
        wi_listsel_popup_on(wo);
        EXPECT_FALSE(dropped(0) || dropped(1)) << "an empty list does not open";
        wi_listsel_setlist(wo, std::vector<const char *>{"1", "2", "3", "4", "5", "6", "7", "8", "9", nullptr}.data());
        wi_listsel_popup_on(wo);
        RECT open;
        SendMessageA(lists[i], CB_GETDROPPEDCONTROLRECT, 0, LPARAM(&open));
        EXPECT_GE(open.bottom - open.top, 9 * SendMessageA(lists[i], CB_GETITEMHEIGHT, 0, 0));
        const RECT line = place_of(lists[i]), wanted{60, 20, 210, 45};
        EXPECT_TRUE(dropped(i) && EqualRect(&line, &wanted)) << line.bottom;
    }
    wi_off(wo);
    wi_listsel_editable(wo, 1);
    for (const HWND list : lists)
        EXPECT_FALSE(GetWindowLongA(list, GWL_STYLE) & WS_VISIBLE) << "what is switched off stays off";
}

TEST(FileSelection, StartsInTheDataDirectory)
{
    const std::string standard = "d:\\zolt0\\zolt\\data\\", longest(300, 'p');
    using row = std::tuple<const char *, std::string, std::string>; // ZOLT, "" is not set; path; what it becomes
    for (const auto &[zolt, path, completed] :
         {row{"c:\\z\\", "*.iq", "c:\\z\\data\\*.iq"}, row{"c:\\z", "\\*.iq", "c:\\z\\data\\*.iq"},
          row{"", "*.iq", standard + "*.iq"}, row{"", "c:\\data\\*.iq", "c:\\data\\*.iq"}, row{"", "\\\\x", "\\\\x"},
          row{"", longest, (standard + longest).substr(0, 255)},
          row{"", "d\\" + longest, "d\\" + longest.substr(0, 253)}}) {
        _putenv_s("ZOLT", zolt);
        wi_obj *wo = wi_mk_filesel(new_area(), "F", path.c_str(), 0.5);
        EXPECT_EQ(wo->obj.filesel->filebox->obj.filebox->defdir, completed);
    }
    _putenv_s("ZOLT", "");
    wi_obj *wo = wi_mk_filesel(nullptr, "File", nullptr, 0.5);
    EXPECT_FALSE(answered([&] { click_on(wo->obj.filesel->button->handle); }, press(IDCANCEL)).buttons.empty());
    wi_filesel_chng_cb(wo, seen::callback, 3);
    seen::reset();
    press_key(wo->obj.filesel->strfld->obj.strfld->editarea, VK_RETURN);
    EXPECT_EQ(seen::last(), std::pair(wo, 3));
}

TEST(ButtonArray, IsFilledRowByRowAndAddressedByName)
{
    wi_obj *wo = wi_mk_butary(new_area(), 2, 2);
    const wi_butary *array = wo->obj.butary;
    wi_butary_button(wo, "t", 1, seen::callback, 1);
    wi_butary_blank(wo);
    wi_butary_button(wo, "t", 1, seen::callback, 2);
    wi_butary_button(wo, "T", 7, seen::callback, 3);
    onresize(array->rectanglearray, 0, 0, 100, 60);
    EXPECT_EQ(place_of(array->ary[2].button->handle).top, 30) << "the blank keeps its place";
    seen::reset();
    click_on(array->ary[2].button->handle);
    EXPECT_EQ(seen::last(), std::pair(wo, 2));
    EXPECT_EQ(wi_butary_getstate(wo, "t"), 0) << "the first of the name is off";
    wi_butary_setstate(wo, "t", 1);
    EXPECT_EQ(wi_get_state(array->ary[0].button) + wi_get_state(array->ary[2].button), 2);
    for (wi_obj *full : {wo, wi_mk_butary(new_area(), 0, 3), wi_mk_butary(nullptr, -2, -3)})
        for (const auto more : {wi_butary_blank, +[](wi_obj *to) { wi_butary_button(to, "x", 0, nullptr, 0); }})
            EXPECT_EQ(exit_message([=] { more(full); }), "PE 7, wibutary.c: button array full.");
}

TEST(ToggleArray, FollowsTheRuleOfItsMode)
{
    const struct {
        int mode;
        std::string before; // under mode 3
        std::string kept;   // when the mode is set
        int index;          // of the toggle that is clicked or set off; 3 has none
        std::string clicked, put_off;
    } table[] = {
        {0, "000", "100", 2, "001", "100"}, {0, "011", "010", 1, "100", "100"}, {0, "010", "010", 0, "100", "110"},
        {0, "100", "100", 0, "100", "100"}, {1, "011", "010", 1, "000", "000"}, {1, "000", "000", 2, "001", "000"},
        {2, "000", "100", 0, "100", "100"}, {2, "011", "011", 1, "001", "001"}, {2, "001", "001", 2, "100", "100"},
        {2, "001", "001", 3, "001", "001"}, {3, "001", "001", 2, "000", "000"}, {0, "010", "010", 3, "010", "110"}};
    wi_obj *wo = wi_mk_togary(new_area(), abc, 0);
    const wi_butary *array = wo->obj.togary->butary->obj.butary;
    const auto set = [&](int mode, const std::string &states) {
        wi_togary_setmode(wo, 3);
        for (int i = 0; i < 3; ++i)
            wi_set_state(array->ary[i].button, states[size_t(i)] == '1');
        wi_togary_setmode(wo, mode);
    };
    const auto states = [&] {
        int ary[3];
        wi_togary_getary(wo, ary);
        return std::to_string(ary[0]) + std::to_string(ary[1]) + std::to_string(ary[2]);
    };
    EXPECT_EQ(states(), "100");
    for (const auto &row : table) {
        set(row.mode, row.before);
        EXPECT_EQ(states(), row.kept) << row.mode << row.before;
        EXPECT_EQ(wi_togary_getindex(wo), static_cast<int>(row.kept.find('1')));
        if (row.index < 3)
            click_on(array->ary[row.index].button->handle);
        EXPECT_EQ(states(), row.clicked) << row.mode << row.before;
        set(row.mode, row.before);
        wi_togary_setstate(wo, row.index, 2);
        wi_togary_setstate(wo, row.index, 0);
        EXPECT_EQ(states(), row.put_off) << row.mode << row.before;
    }
    set(0, "010");
    wi_togary_setary(wo, std::vector{2, 0, 0}.data());
    EXPECT_EQ(states(), "010") << "toggle 0 gives way again";
    wi_set_editable(wo, 0);
    click_on(array->ary[2].button->handle);
    EXPECT_EQ(states(), "010") << "a click is undone";
}

// The colours at the points of what the frame lets an owner-drawn control draw into (10, 20, 110, 80).
std::vector<COLORREF> drawn(const wi_obj *wo, const std::vector<POINT> &points)
{
    static const HDC dc = CreateCompatibleDC(nullptr);
    static const HGDIOBJ bitmap = SelectObject(dc, CreateBitmap(150, 150, 1, 32, nullptr));
    EXPECT_TRUE(bitmap && PatBlt(dc, 0, 0, 150, 150, BLACKNESS));
    DRAWITEMSTRUCT item{};
    item.hwndItem = wo->handle;
    item.hDC = dc;
    item.rcItem = {10, 20, 110, 80};
    SendMessageA(GetParent(wo->handle), WM_DRAWITEM, 1, LPARAM(&item));
    std::vector<COLORREF> colors;
    for (const POINT &p : points)
        colors.push_back(GetPixel(dc, p.x, p.y));
    return colors;
}

TEST(ColorButton, StepsThroughTheColorsThatMayBeChosen)
{
    wi_obj *wo = wi_mk_colorbut(new_area());
    const int some[10] = {0, 0, 0, 1, 0, 0, 0, 5, 0, 0}, none[10] = {};
    wi_colorbut_setcolor(wo, 3);
    wi_colorbut_setary(wo, some);
    wi_colorbut_chng_cb(wo, seen::callback, 4);
    seen::reset();
    for (const int index : {7, 3, 7}) {
        click_on(wo->handle);
        EXPECT_EQ(wi_colorbut_getcolor(wo), index);
    }
    EXPECT_EQ(seen::last(), std::pair(wo, 4));
    wi_colorbut_colorstate(wo, 7, 0);
    EXPECT_EQ(wi_colorbut_getcolor(wo), 3) << "the forbidden colour gives way";
    // 100 by 60: edges of 3 pixels
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT), dark = GetSysColor(COLOR_BTNSHADOW), blue = 0xff0000;
    EXPECT_EQ(drawn(wo, {{9, 50}, {10, 50}, {12, 76}, {50, 22}, {13, 23}, {106, 76}, {107, 20}, {10, 77}, {110, 50}}),
              (std::vector<COLORREF>{0, light, light, light, blue, blue, dark, dark, 0}));
    wi_colorbut_setary(wo, none);
    click_on(wo->handle);
    EXPECT_EQ(drawn(wo, {{60, 50}})[0], GetSysColor(COLOR_BTNFACE));
    wi_colorbut_setcolor(wo, 99);
    wi_set_editable(wo, 0);
    click_on(wo->handle);
    EXPECT_TRUE(drawn(wo, {{60, 50}})[0] == GetSysColor(COLOR_BTNFACE) && wi_colorbut_getcolor(wo) == -1);
    wi_set_editable(wo, 1);
    int states[10];
    wi_colorbut_getary(wo, states);
    EXPECT_TRUE(wi_colorbut_getcolor(wo) == 9 && std::count(states, states + 10, 1) == 1 && seen::calls == 3);
}

TEST(Icon, ShowsItsBitmapUnscaledInTheCorner)
{
    wi_obj *wo = wi_mk_icon(new_area(), 2);
    const COLORREF face = GetSysColor(COLOR_BTNFACE), frame = 0x404040, paper = 0xffe4d0, wood = 0x2080c0;
    const std::vector<POINT> points{{10, 20}, {57, 67}, {58, 67}, {40, 50}};
    EXPECT_EQ(drawn(wo, points), (std::vector<COLORREF>{frame, frame, face, paper}));
    wi_icon(wo, 1);
    EXPECT_EQ(drawn(wo, points), (std::vector<COLORREF>{frame, frame, face, wood}));
    wi_icon(wo, 4);
    EXPECT_EQ(drawn(wo, points), std::vector<COLORREF>(4, face));
}

} // namespace
