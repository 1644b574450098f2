#include "wi/widovapp.h"

#include "wi/windowtable.h"
#include "wi/wiwindow.h"

namespace {

void place(wi_obj *wo, const wi_rect &r)
{
    onresize(wo->child, 0, 0, r.w, r.h);
}

wi_focus_step leave(wi_obj *window, wi_obj *)
{
    return wi_focus_into(window->child);
}

} // namespace

const wi_type wi_dovapp_row = {
    .place = place,
    .add_child = wi_one_child_add,
    .focus_enter = wi_container_enter,
    .focus_leave = leave,
    .set_label = wi_dovapp_label,
};

wi_obj *wi_mk_dovapp(wi_obj *, const char *label)
{
    if (!label)
        wi_exit("You tried to create a dovapp object without a title.  Please specify a title.");
    wi_obj *wo = wi_new_obj(wi_type_dovapp);
    auto *app = wi_new<wi_dovapp>();
    wo->obj.dovapp = app;
    app->title = c_mkstr(label);
    app->quit_enabled = 1;
    // Without WS_CLIPCHILDREN a resize would erase every control before it is drawn again.
    wo->handle =
        CreateWindowExA(WS_EX_CONTEXTHELP, "dovapp", label, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, getinstance(), nullptr);
    setwiobject(wo->handle, wo);
    wi_refont(wo);
    wo->shell = wo;
    return wo;
}

void wi_dovapp_quit(wi_obj *wo, int enable, const char *, wi_callback cbfunc, int tag)
{
    wi_check(wo, wi_type_dovapp, "PE 9, widovapp.c: bad arg.", "PE 10, widovapp.c: bad arg.");
    wi_dovapp *app = wo->obj.dovapp;
    app->quit_cb = cbfunc;
    app->quit_tag = tag;
    app->quit_enabled = enable != 0;
}

void wi_dovapp_label(wi_obj *wo, const char *label)
{
    wi_check(wo, label, wi_type_dovapp, "PE 11, widovapp.c bad arg.", "PE 12, widovapp.c: bad arg.");
    wi_replace_text(wo->obj.dovapp->title, label);
    SetWindowTextA(wo->handle, label);
}
