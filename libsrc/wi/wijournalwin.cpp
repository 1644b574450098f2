#include "wi/wibutton.h"
#include "wi/wieditpage.h"
#include "wi/wifilesel.h"
#include "wi/wiform.h"
#include "wi/wiframe.h"
#include "wi/wihlp.h"
#include "wi/wiincdecfld.h"
#include "wi/wijournal.h"
#include "wi/wijournalstate.h"
#include "wi/wilabel.h"
#include "wi/witype.h"
#include "wi/wiwindow.h"

namespace {

wi_obj *form, *file, *entry, *total, *page;

void help(wi_obj *wo, int /*tag*/)
{
    wi_hlp_srch(wo);
}

} // namespace

void wi_jwin_init(wi_callback cb)
{
    form = wi_mk_own_form("Journal Manager");
    wi_size(form, 200, 200);
    wi_position(form, 0, 0);
    wi_obj *close = wi_mk_button(wi_form_parent(form, 2, 2, 26, 11), "Close", 0, cb, wi_jwin_close);
    wi_mk_label(wi_form_parent(form, 28, 2, 72, 11), "Journal Manager", 0);
    wi_obj *about = wi_mk_button(wi_form_parent(form, 74, 2, 98, 11), "Help", 0, help, 0);
    wi_obj *inside = wi_mk_form(wi_mk_frame(wi_form_parent(form, 2, 13, 98, 98)), 100, 100);
    file = wi_mk_filesel(wi_form_parent(inside, 3, 3, 97, 14), "File:", "*.jrl*", 0.2);
    wi_filesel_chng_cb(file, cb, wi_jwin_load);
    entry = wi_mk_incdecfld(wi_form_parent(inside, 3, 16, 50, 27), "Entry:", 0.6, 1);
    wi_incdecfld_decimals(entry, 0);
    wi_incdecfld_set_cb(entry, cb, wi_jwin_up, cb, wi_jwin_down, cb, wi_jwin_enter);
    total = wi_mk_label(wi_form_parent(inside, 53, 16, 97, 27), "", -1);
    page = wi_mk_editpage(wi_form_parent(inside, 3, 30, 97, 97));
    wi_editpage_editable(page, 0);
    wi_editpage_putstr(page, "No Entries");
    for (wi_obj *control : {close, about, file, entry})
        wi_journal_ignore_cb(control);
    for (wi_obj *value : {file, entry})
        wi_journal_ignore_fo(value);
    wi_jwin_show_entry(0);
    wi_jwin_show_total(0);
    wi_jwin_show(false);
}

void wi_jwin_show(bool on)
{
    on ? wi_on(form) : wi_off(form);
}

bool wi_jwin_is_shown()
{
    return form->ison != 0;
}

double wi_jwin_entry()
{
    return wi_incdecfld_getval(entry);
}

std::string wi_jwin_file()
{
    return jmalloc_ptr<char>(wi_filesel_getstr(file)).get();
}

void wi_jwin_show_entry(std::int32_t number)
{
    wi_incdecfld_putval(entry, number);
}

void wi_jwin_show_total(std::int32_t number)
{
    wi_label(total, ("Total Entries: " + std::to_string(number)).c_str());
}

void wi_jwin_show_file(const std::string &name)
{
    wi_filesel_putstr(file, name.c_str());
}

// Labels are texts of windows, so the list is put into the page as one, not in the character set of pages.
void wi_jwin_show_list(const std::string &list)
{
    SetWindowTextA(page->obj.editpage->editarea, wi_journal_text_mode(list).c_str());
}

void wi_jwin_add_to_list(std::string_view line)
{
    const HWND edit = page->obj.editpage->editarea;
    const int end = GetWindowTextLengthA(edit);
    SendMessageA(edit, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageA(edit, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(wi_journal_text_mode(line).c_str()));
}
