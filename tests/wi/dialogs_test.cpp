#include "support/dialog.h"
#include "support/wi_fixture.h"

#include <filesystem>
#include <fstream>

namespace {

wi_obj *new_area()
{
    return wi_form_parent(wi_mk_form(nullptr, 1, 1), 0, 0, 1, 1);
}

HICON system_icon(LPCSTR name)
{
    return LoadIconA(nullptr, name);
}

TEST(Boxes, ShowAMessageOf98Characters)
{
    wi_obj *box = wi_mk_msgbox(nullptr, (std::string(97, 'm') + "nop").c_str());
    const dialog d = answered([&] { wi_on(box); }, press(IDOK));
    EXPECT_EQ(d.caption, "Message:");
    EXPECT_EQ(d.text, std::string(97, 'm') + "n");
    EXPECT_EQ(d.buttons.size(), 1U);
    EXPECT_EQ(d.icon, system_icon(LPCSTR(IDI_INFORMATION)));
    EXPECT_EQ(d.owner, nullptr);
    wi_set_message(box, "Done.");
    EXPECT_EQ(answered([&] { wi_msgbox_popup(box); }, press(IDOK)).text, "Done.");
    EXPECT_EQ(answered([] { wi_popmsg("bare"); }, press(IDOK)).text, "bare");
    wi_off(box); // leaves it alone
}

TEST(Boxes, CallTheAnswerThatWasGiven)
{
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    wi_on(form);
    wi_obj *box = wi_mk_ynbox(form, "Really?", seen::callback, 7, seen::callback, 8);
    seen::reset();
    const dialog d = answered([&] { wi_on(box); }, press(IDYES));
    EXPECT_EQ(d.caption + d.text, "Question:Really?");
    EXPECT_EQ(d.buttons.size(), 2U);
    EXPECT_EQ(d.icon, system_icon(LPCSTR(IDI_QUESTION)));
    EXPECT_EQ(d.owner, form->handle);
    EXPECT_TRUE(seen::wo == box && seen::tag == 7);
    answered([&] { wi_ynbox_popup(box); }, press(IDNO));
    EXPECT_TRUE(seen::wo == box && seen::tag == 8);
    seen::reset();
    answered([&] { wi_ynbox_popup(box); }, [](HWND window) { SendMessageA(window, WM_CLOSE, 0, 0); });
    EXPECT_TRUE(seen::wo == box && seen::tag == 8 && seen::calls == 1);
    wi_off(form);
}

// Chooses in the dialog of a file box; the entries of its list of file kinds go to `kinds`.
dialog choose(wi_obj *box, const std::string &name, int button, std::vector<std::string> &kinds)
{
    constexpr int kind_list = 0x470, name_field = 0x47c;
    return answered([&] { wi_on(box); },
                    [&](HWND window) {
                        const HWND list = GetDlgItem(window, kind_list);
                        for (int i = 0; i < SendMessageA(list, CB_GETCOUNT, 0, 0); ++i) {
                            char text[300] = "";
                            SendMessageA(list, CB_GETLBTEXT, WPARAM(i), LPARAM(text));
                            kinds.emplace_back(text);
                        }
                        SetDlgItemTextA(window, name_field, name.c_str());
                        press(button)(window);
                    });
}

TEST(Boxes, AskForAFile)
{
    const std::filesystem::path start = std::filesystem::current_path();
    const std::string place = std::filesystem::temp_directory_path().string(), file = place + "kept.rea";
    std::ofstream(file) << 1;
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    wi_on(form);
    wi_obj *box = wi_mk_filebox(form, "Which one?", (place + "*.rea").c_str(), seen::callback, nullptr);
    std::vector<std::string> kinds;
    seen::reset();
    EXPECT_EQ(choose(box, "kept.rea", IDCANCEL, kinds).caption, "Which one?");
    EXPECT_EQ(kinds, (std::vector<std::string>{"REA Files (*.REA)", "DOV Files", "All Files (*.*)"}));
    EXPECT_EQ(taken(wi_get_string(box)), "");
    EXPECT_EQ(seen::calls, 0);
    choose(box, "kept.rea", IDOK, kinds);
    EXPECT_EQ(taken(wi_filebox_getname(box)), file) << "it starts in the directory of its default path";
    EXPECT_TRUE(seen::wo == box && seen::tag == 0 && seen::calls == 1);

    wi_obj *selection = wi_mk_filesel(wi_form_parent(form, 0, 0, 1, 1), "File:", (place + "*.*").c_str(), 0.3);
    wi_filesel_chng_cb(selection, seen::callback, 5);
    choose(selection->obj.filesel->filebox, "kept.rea", IDOK, kinds);
    EXPECT_EQ(taken(wi_filesel_getstr(selection)), file);
    EXPECT_TRUE(seen::wo == selection && seen::tag == 5);
    wi_off(form);
    std::filesystem::current_path(start);
}

TEST(EditPage, GivesBackWhatWasPutAndTyped)
{
    wi_obj *page = wi_mk_editpage(new_area());
    const HWND window = page->obj.editpage->editarea;
    const std::string lines(600'000, '\n'), full(2'000'000, 'x');
    const struct {
        std::string put, got;
    } table[] = {{"a\nb", "a\nb"},
                 {"", ""},
                 {"\n\n a\tb \n", "\n\n a\tb \n"},
                 {"1\r\n2", "1\n\n2"},
                 {"1\r", "1\n"},
                 {full, full.substr(0, 999'998)},
                 {lines, lines.substr(0, 499'999)}};
    for (const auto &[put, got] : table) {
        wi_set_string(page, put.c_str());
        EXPECT_TRUE(taken(wi_get_string(page)) == got) << put.substr(0, 20);
    }
    wi_editpage_putstr(page, "");
    type_text(window, "a\rb");
    EXPECT_EQ(taken(wi_editpage_getstr(page)), "a\nb");
    if (GetOEMCP() == 437 || GetOEMCP() == 850) {
        wi_editpage_putstr(page, "caf\x82");
        wchar_t shown[8] = L"";
        GetWindowTextW(window, shown, 8);
        EXPECT_STREQ(shown, L"caf\u00e9");
        EXPECT_EQ(taken(wi_editpage_getstr(page)), "caf\x82");
    }
}

TEST(EditPage, LetsTheUserTypeWhenItIsEditable)
{
    wi_obj *page = wi_mk_editpage(new_area());
    const HWND window = page->obj.editpage->editarea;
    EXPECT_EQ(reinterpret_cast<HGDIOBJ>(SendMessageA(window, WM_GETFONT, 0, 0)), GetStockObject(SYSTEM_FIXED_FONT));
    EXPECT_EQ(getwiobject(window), nullptr) << "what happens in the page is not the frame's";
    for (const int editable : {1, 0, 1}) {
        wi_set_editable(page, editable);
        EXPECT_EQ(!(GetWindowLongA(window, GWL_STYLE) & ES_READONLY), editable);
        EXPECT_EQ(page->obj.editpage->editable, editable);
    }
    wi_off(page);
    EXPECT_FALSE(GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE);
}

TEST(EditBox, HandsItselfToTheCallbackOfDone)
{
    wi_obj *box = wi_mk_editbox(nullptr, "Edit this", "one\ntwo", seen::callback, 3);
    wi_on(box);
    const HWND window = box->shell->handle;
    const HWND page = box->obj.editbox->editarea->obj.editpage->editarea,
               done = FindWindowExA(window, nullptr, "button", "Done");
    EXPECT_EQ(window_text(window) + window_text(box->obj.editbox->title->handle), "Edit BoxEdit this");
    RECT client;
    GetClientRect(window, &client);
    const long first = client.bottom / 10, second = (client.bottom - first) * 9 / 10;
    EXPECT_NEAR(place_of(page).top, first, 1);
    EXPECT_NEAR(place_of(page).bottom, first + second, 1);
    EXPECT_GE(place_of(done).top, first + second);
    wi_set_message(box, "And now?");
    EXPECT_EQ(window_text(box->obj.editbox->title->handle), "And now?");
    seen::reset();
    SendMessageA(done, BM_CLICK, 0, 0);
    EXPECT_TRUE(seen::wo == box && seen::tag == 3);
    EXPECT_EQ(taken(wi_get_string(box)), "one\ntwo");
    wi_set_string(box, "x");
    EXPECT_EQ(taken(wi_editbox_getstr(box)), "x");
    wi_off(box);
}

TEST(StatusLine, ShowsAtOnceWhatIsGoingOn)
{
    wi_obj *form = wi_mk_form(nullptr, 1, 1);
    wi_obj *first = wi_mk_status(wi_form_parent(form, 0, 0, 1, 0.5), "Then:", 0.2);
    wi_obj *status = wi_mk_status(wi_form_parent(form, 0, 0.5, 1, 1), "Now:", 0.2);
    EXPECT_NE(wi_status_latest(), first);
    EXPECT_EQ(wi_status_latest(), status);
    wi_on(form);
    pump();
    const wi_strfld *field = status->obj.status->strfld->obj.strfld;
    wi_set_string(status, "half done");
    EXPECT_FALSE(GetUpdateRect(field->editarea, nullptr, FALSE));
    EXPECT_EQ(taken(wi_get_string(status)), "half done");
    EXPECT_TRUE(GetWindowLongA(field->editarea, GWL_STYLE) & ES_READONLY);
    wi_set_label(status, "Later:");
    EXPECT_EQ(window_text(field->labelarea), "Later:");
    wi_off(form);
}

} // namespace
