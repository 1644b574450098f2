#include "wi/wihcmenu.h"

#include "wi/wibutton.h"
#include "wi/wiform.h"
#include "wi/wihlp.h"
#include "wi/wijournal.h"
#include "wi/wimenubar.h"
#include "wi/wistate.h"
#include "wi/wistrfld.h"
#include "wi/witype.h"

#include <utility>

namespace {

struct printer {
    const char *name; // in the menu, and in the environment
    vghardcopy_type type;
};

// In the order of the menu; the last is that of who names none.
constexpr printer printers[] = {
    {"PS", vghardcopy_ps}, {"CPS", vghardcopy_cps}, {"HPGL", vghardcopy_hpgl}, {"TEK", vghardcopy_tek}};
constexpr int last_printer = static_cast<int>(std::size(printers)) - 1;

wi_obj *win; // null until it is built, as its parts
wi_obj *wo_type, *wo_doprt, *wo_queue, *wo_path, *wo_user;
int hc_usr_flag;

wi_obj *area(double x0, double y0, double x1, double y1)
{
    return wi_form_parent(win, x0, y0, x1, y1);
}

void set_type_item(wi_obj *menu, int item, int state)
{
    menu->obj.menubar->ary[0].ibut = item;
    wi_menubar_setstate(menu, state);
}

// A menu of which one item is marked.
void type_cb(wi_obj *wo, int tag)
{
    for (int item = 0; item <= last_printer; ++item)
        set_type_item(wo, item, 0);
    set_type_item(wo, tag, 1);
}

int printer_of_environment()
{
    const char *name = get_logical("ZOLTHCTYPE", nullptr);
    int item = 0;
    while (item < last_printer && !c_iseqx(name, printers[item].name))
        ++item;
    return item;
}

wi_obj *mk_type_menu(wi_obj *parent)
{
    wi_obj *menu = wi_mk_menubar(parent);
    wi_menubar_pulldown(menu, "Printer Type");
    for (int item = 0; item <= last_printer; ++item)
        wi_menubar_button(menu, printers[item].name, 1, type_cb, item);
    type_cb(menu, printer_of_environment());
    return menu;
}

wi_obj *mk_field(wi_obj *parent, const char *label, const char *logical, const char *otherwise)
{
    wi_obj *field = wi_mk_strfld(parent, label, 0.2);
    const char *value = get_logical(logical, nullptr);
    wi_strfld_putstr(field, value ? value : otherwise);
    return field;
}

void build_window()
{
    win = wi_mk_own_form("Printing Options");
    wi_size(win, 310, 180);
    wi_position(win, 600, 400);
    wi_obj *dismiss = wi_mk_button(area(3, 5, 30, 18), "DISMISS", 0, win_cb, 1);
    wo_type = mk_type_menu(area(35, 5, 66, 18));
    wo_doprt = wi_mk_button(area(72, 5, 97, 18), "Do Print", 1, nullptr, 0);
    wi_button_setstate(wo_doprt, 1);
    wo_queue = mk_field(area(3, 29, 97, 41), "Queue:", "ZOLTHCQUEUE", "lp");
    wo_path = mk_field(area(3, 54, 97, 66), "Path:", "ZOLTHCPATH", "");
    wo_user = mk_field(area(3, 79, 97, 91), "User:", "ZOLTHCUSER", "");
    for (wi_obj *field : {wo_queue, wo_path, wo_user})
        wi_journal_ignore_fo(field);
    for (wi_obj *part : {dismiss, wo_type, wo_doprt, wo_queue, wo_path, wo_user})
        wi_journal_ignore_cb(part);
}

// The window belongs to no program: its help keys are those of programs without a name.
void owin_init()
{
    if (win)
        return;
    const jmalloc_ptr<char> prognm(wi_hlp_getprognm());
    if (prognm)
        wi_hlp_setprognm("default");
    build_window();
    wi_hlp_setprognm(prognm.get());
}

// False when the field is empty; the text is then left alone.
bool take_text(wi_obj *field, char (&text)[vghardcopy_text])
{
    const jmalloc_ptr<char> typed(wi_strfld_getstr(field));
    if (!typed.get()[0])
        return false;
    strlimcpy(text, typed.get(), vghardcopy_text);
    return true;
}

std::int32_t chosen_type()
{
    int &item = wo_type->obj.menubar->ary[0].ibut;
    item = 0;
    while (item < last_printer && !wi_menubar_getstate(wo_type))
        ++item;
    return printers[item].type;
}

} // namespace

wi_obj *wi_hc_menu(wi_obj *parent, const char *label, wi_callback cbfunc, int tag)
{
    wi_obj *button = wi_mk_button(parent, label, 0, cbfunc, tag);
    owin_init();
    return button;
}

void win_cb(wi_obj *, int tag)
{
    owin_init();
    if (tag == 0)
        wi_on(win);
    else if (tag == 1)
        wi_off(win);
}

void wi_hc_set_usr()
{
    hc_usr_flag = 1;
}

int wi_hc_getenv(vghardcopy *hc)
{
    if (std::exchange(hc_usr_flag, 0) || !hc)
        return 0;
    owin_init();
    hc->type = chosen_type();
    hc->dousr = wi_button_getstate(wo_doprt);
    if (!take_text(wo_queue, hc->queue))
        strlimcpy(hc->queue, "lp", vghardcopy_text);
    hc->path[0] = '\0';
    take_text(wo_path, hc->path);
    c_ridedgews(hc->path);
    if (!take_text(wo_user, hc->usrcmd))
        hc->dousr = 0;
    return 1;
}

void wi_reset_hardcopy()
{
    win = nullptr;
    hc_usr_flag = 0;
}
