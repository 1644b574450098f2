// The gallery's window: a menu bar, a button for each page, the page, and a status line that tells what happens.
//
// gallery journal FILE   Records what the user does in the file; the Journal Manager replays it.

#include "dovsys/dovsys.h"
#include "gallery.h"

#include <vector>

namespace {

wi_obj *status;
std::vector<wi_obj *> forms; // one per page

void show_page(wi_obj * /*wo*/, int page)
{
    for (wi_obj *form : forms)
        wi_off(form);
    wi_on(forms[static_cast<std::size_t>(page)]);
    gallery_say(std::string("Page: ") + gallery_pages()[static_cast<std::size_t>(page)].name);
}

} // namespace

void gallery_say(const std::string &what)
{
    wi_status(status, what.c_str());
}

int main(int argc, char **argv)
{
    wi_main_init(&argc, argv);
    if (argc > 1 && c_iseq(argv[1], "journal")) // before the objects, which are known by their order
        wi_journal_init("gallery", argv[2], gallery_restart);
    wi_hlp_setprognm("gallery");
    wi_hlp_setlib_of_program("wi.hlp");
    wi_set_window_name("Gallery");
    wi_obj *window = wi_mk_form(nullptr, 100, 100);
    wi_size(window, 480, 310);
    wi_position(window, 260, 60); // beside the Journal Manager
    const auto pages = gallery_pages();
    gallery_build_menu(wi_form_parent(window, 0, 0, 40, 6));
    wi_obj *buttons = wi_mk_butary(wi_form_parent(window, 1, 8, 17, 89), static_cast<int>(pages.size()), 1);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        wi_butary_button(buttons, pages[i].name, 0, show_page, static_cast<int>(i));
        forms.push_back(wi_mk_form(wi_form_parent(window, 19, 8, 99, 89), 100, 100));
        pages[i].build(forms.back());
    }
    status = wi_mk_status(wi_form_parent(window, 1, 92, 99, 98), "Status:", 0.1);
    wi_dovapp_quit(window->shell, 1, " ", nullptr, 0);
    show_page(buttons, 0);
    wi_on(window);
    wi_run();
    return 0;
}
