#include "wi/wihlpwin.h"

#include "wi/wibutton.h"
#include "wi/wieditpage.h"
#include "wi/wiform.h"
#include "wi/wihcmenu.h"
#include "wi/wihlplib.h"
#include "wi/wilabel.h"
#include "wi/wistrfld.h"
#include "wi/witype.h"
#include "wi/wiupdownbut.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// What the window's controls ask for.
enum action { save = -1, dismiss, hardcopy, help, up, search, next, previous };

struct keyword_matches {
    std::vector<std::string> keys;
    std::size_t at = 0; // the one that is shown
};
keyword_matches found;

std::string saved; // the text of the topic that is shown, as the library has it; empty when it cannot be edited

std::string text_of(char *text)
{
    return jmalloc_ptr<char>(text).get();
}

// ---- the key that is shown ----

void set_key(wi_hlp &hlp, const std::string &key)
{
    c_strncpy(hlp.srch_str, key.c_str(), sizeof hlp.srch_str);
}

bool drop_last_part(wi_hlp &hlp)
{
    const std::string key = hlp.srch_str;
    const auto colon = key.rfind(':');
    if (colon == key.npos)
        return false;
    set_key(hlp, key.substr(0, colon));
    return true;
}

// ---- keyword matches ----

void hide_matches(const wi_hlp_window &hlp)
{
    found = {};
    for (wi_obj *part : {hlp.wo_lbl1, hlp.wo_lbl2, hlp.wo_ud})
        wi_off(part);
}

void look_up(wi_hlp &hlp);

void show_match(wi_hlp &hlp)
{
    set_key(hlp, wi_hlp_lower(found.keys[found.at]));
    wi_strfld_putstr(hlp.wo_ss, hlp.srch_str);
    wi_label(hlp.wo_lbl2, ("- (" + std::to_string(found.at + 1) + "):").c_str());
    look_up(hlp);
}

void show_matches(wi_hlp &hlp, wi_hlp_answer &answer)
{
    found = {std::move(answer.matches)};
    const std::size_t count = found.keys.size();
    wi_label(hlp.wo_lbl1, count == 1 ? "One topic found" : (std::to_string(count) + " topics found").c_str());
    show_match(hlp);
    wi_on(hlp.wo_lbl1);
    if (count > 1) {
        wi_on(hlp.wo_lbl2);
        wi_on(hlp.wo_ud);
    }
    if (answer.too_many)
        wi_hlpmsg("> 40 topics. Try again w/more specific keyword");
}

void step_match(wi_hlp &hlp, bool forward)
{
    const std::size_t count = found.keys.size();
    if (count == 0)
        return;
    found.at = (found.at + (forward ? 1 : count - 1)) % count;
    show_match(hlp);
}

// ---- topics ----

void print(const std::string &text)
{
    std::FILE *file = std::fopen("tmp.hc", "w");
    const bool written = file && std::fputs(text.c_str(), file) >= 0;
    if ((file && std::fclose(file) != 0) || !written) {
        wi_hlpmsg("Hardcopy error: Unable to open file for writing!");
        return;
    }
    std::system("lpr -x -h tmp.hc");
}

void check_editing(const wi_hlp &hlp)
{
    if (c_iseq(hlp.lib_name, def_lib))
        wi_hlp_editable(0);
    wi_editpage_editable(hlp.wo_edpg, wi_hlp_iseditable());
    wi_hlp_iseditable() ? wi_on(hlp.wo_save) : wi_off(hlp.wo_save);
}

void show_text(wi_hlp &hlp, const wi_hlp_answer &answer)
{
    wi_editpage_putstr(hlp.wo_edpg, answer.text.c_str());
    wi_strfld_putstr(hlp.wo_ss, hlp.srch_str);
    // What the page does not give back as it was put, such as zero bytes, would be lost by saving.
    const std::string given_back = text_of(wi_editpage_getstr(hlp.wo_edpg));
    saved = given_back == answer.text ? answer.saved : "";
    if (hlp.print)
        print(answer.text);
    for (wi_obj *part : {hlp.hlp_win, hlp.wo_edpg, hlp.wo_sfld, hlp.wo_help, hlp.wo_hcpy, hlp.wo_dsmss, hlp.wo_save,
                         hlp.wo_up, hlp.wo_lbl1, hlp.wo_lbl2, hlp.wo_ud, hlp.wo_ss})
        wi_store(part, &hlp);
    check_editing(hlp);
    wi_on(hlp.hlp_win);
}

void look_up(wi_hlp &hlp)
{
    wi_hlp_answer answer = wi_hlp_lookup(hlp.lib_name, hlp.srch_str);
    if (answer.what == wi_hlp_answer::no_library || answer.what == wi_hlp_answer::no_contents) {
        wi_hlpmsg(answer.text.c_str());
        return;
    }
    const bool searching = found.keys.empty(); // a match whose key leads to no topic is not searched for again
    if (answer.what == wi_hlp_answer::by_keyword && searching) {
        show_matches(hlp, answer);
        return;
    }
    hlp.noinfo = answer.what != wi_hlp_answer::topic;
    set_key(hlp, wi_hlp_lower(answer.key));
    show_text(hlp, answer);
}

void save_help(const wi_hlp &hlp)
{
    if (saved.empty() || !wi_hlp_iseditable())
        return;
    const std::string edited = wi_hlp_edited_text(text_of(wi_editpage_getstr(hlp.wo_edpg)));
    if (edited == saved)
        return;
    std::string message;
    if (!wi_hlp_replace(hlp.lib_name, saved, edited, message)) {
        wi_hlpmsg(message.c_str());
        return;
    }
    saved = edited;
    mktofc(hlp.lib_name);
}

// ---- the window's callback ----

void go_up(wi_hlp &hlp)
{
    wi_strfld_putstr(hlp.wo_sfld, "");
    if (drop_last_part(hlp))
        look_up(hlp);
}

void search_for(wi_hlp &hlp, const std::string &typed)
{
    const std::string key = hlp.srch_str;
    if (hlp.noinfo) {
        drop_last_part(hlp);
        look_up(hlp);
    } else if (typed.empty()) {
        go_up(hlp);
    } else if (!typed.starts_with(':') && typed.find("::") == typed.npos &&
               std::count(key.begin(), key.end(), ':') <= 8) {
        set_key(hlp, key + ':' + typed);
        look_up(hlp);
    }
    wi_strfld_putstr(hlp.wo_sfld, "");
}

void hlpwin_cb(wi_obj *wo, int tag)
{
    auto &hlp = *static_cast<wi_hlp *>(wi_recall(wo));
    if (tag >= dismiss && tag <= search)
        hide_matches(hlp);
    switch (tag) {
    case save:
        save_help(hlp);
        break;
    case dismiss:
        wi_off(hlp.hlp_win);
        break;
    case hardcopy:
        hlp.print = 1;
        look_up(hlp);
        hlp.print = 0;
        break;
    case help:
        wi_strfld_putstr(hlp.wo_sfld, "");
        set_key(hlp, "help");
        look_up(hlp);
        break;
    case up:
        go_up(hlp);
        break;
    case search:
        search_for(hlp, text_of(wi_strfld_getstr(hlp.wo_sfld)));
        break;
    default:
        step_match(hlp, tag == next);
        break;
    }
}

} // namespace

wi_hlp_window wi_hlp_mk_window()
{
    wi_hlp_window w{};
    w.hlp_win = wi_mk_own_form("Help");
    wi_size(w.hlp_win, 480, 280);
    wi_position(w.hlp_win, 400, 400);
    const auto area = [form = w.hlp_win](double x0, double y0, double x1, double y1) {
        return wi_form_parent(form, x0, y0, x1, y1);
    };
    wi_mk_label(area(2, 3, 30, 11), "Help", -1);
    w.wo_dsmss = wi_mk_button(area(40, 2, 58, 10), "DISMISS", 0, hlpwin_cb, dismiss);
    w.wo_help = wi_mk_button(area(60, 2, 78, 10), "HELP", 0, hlpwin_cb, help);
    w.wo_save = wi_mk_button(area(80, 2, 98, 10), "SAVE", 0, hlpwin_cb, save);
    w.wo_edpg = wi_mk_editpage(area(2, 13, 98, 76));
    w.wo_up = wi_mk_button(area(2, 79, 14, 87), "UP", 0, hlpwin_cb, up);
    w.wo_sfld = wi_mk_strfld(area(17, 79, 78, 87), "Search string:", 0.25);
    wi_strfld_set_cb(w.wo_sfld, hlpwin_cb, search);
    w.wo_hcpy = wi_hc_menu(area(80, 79, 98, 87), "HARDCOPY", hlpwin_cb, hardcopy);
    w.wo_ss = wi_mk_strfld(area(2, 90, 56, 98), "Topic:", 0.14);
    wi_strfld_editable(w.wo_ss, 0);
    w.wo_lbl1 = wi_mk_label(area(58, 91, 78, 98), "", -1);
    w.wo_lbl2 = wi_mk_label(area(78, 91, 87, 98), "", -1);
    w.wo_ud = wi_mk_updownbut(area(88, 90, 98, 98), hlpwin_cb, next, hlpwin_cb, previous);
    hide_matches(w);
    if (!wi_hlp_iseditable()) {
        wi_off(w.wo_save);
        wi_editpage_editable(w.wo_edpg, 0);
    }
    return w;
}

void wi_hlp_show(wi_hlp &hlp)
{
    hide_matches(hlp);
    set_key(hlp, hlp.strt_str);
    hlp.print = hlp.noinfo = 0;
    look_up(hlp);
}
