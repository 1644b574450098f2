#include "wi/witype.h"

#include "wi/widovapp.h"

#include <array>

namespace {

struct entry {
    int code;
    const wi_type *row;
};

constexpr entry entries[] = {
    {wi_type_form, &wi_form_row},           {wi_type_button, &wi_button_row},
    {wi_type_dovapp, &wi_dovapp_row},       {wi_type_frame, &wi_frame_row},
    {wi_type_drect, &wi_drect_row},         {wi_type_crop, &wi_crop_row},
    {wi_type_rectary, &wi_rectary_row},     {wi_type_label, &wi_label_row},
    {wi_type_updownbut, &wi_updownbut_row}, {wi_type_incdecfld, &wi_incdecfld_row},
    {wi_type_strfld, &wi_strfld_row},       {wi_type_numfld, &wi_numfld_row},
    {wi_type_null, &wi_null_row},           {wi_type_status, &wi_status_row},
    {wi_type_filebox, &wi_filebox_row},     {wi_type_editbox, &wi_editbox_row},
    {wi_type_msgbox, &wi_msgbox_row},       {wi_type_ynbox, &wi_ynbox_row},
    {wi_type_editpage, &wi_editpage_row},   {wi_type_butary, &wi_butary_row},
    {wi_type_togary, &wi_togary_row},       {wi_type_filesel, &wi_filesel_row},
    {wi_type_listsel, &wi_listsel_row},     {wi_type_icon, &wi_icon_row},
    {wi_type_colorbut, &wi_colorbut_row},   {wi_type_drawarea, &wi_drawarea_row},
    {wi_type_menubar, &wi_menubar_row},
};

constexpr wi_type unclaimed{};

constexpr auto rows_by_code = [] {
    std::array<const wi_type *, wi_type_codes> rows{};
    rows.fill(&unclaimed);
    for (const entry &e : entries)
        rows[static_cast<std::size_t>(e.code)] = e.row;
    return rows;
}();

} // namespace

const wi_type &wi_row(const wi_obj *wo)
{
    const bool known = wo->type >= 0 && wo->type < wi_type_codes;
    return known ? *rows_by_code[static_cast<std::size_t>(wo->type)] : unclaimed;
}

wi_obj *wi_new_obj(int type)
{
    auto *wo = wi_new<wi_obj>();
    wo->type = type;
    wo->ison = 1;
    return wo;
}

wi_obj *wi_with_own_shell(wi_obj *wo, wi_obj *parent, const char *title)
{
    if (parent)
        return parent;
    wo->shell = wi_mk_dovapp(nullptr, title);
    wi_dovapp_quit(wo->shell, 0, " ", nullptr, 5);
    return wo->shell;
}

wi_obj *wi_with_shell(wi_obj *wo, wi_obj *parent, const char *title)
{
    wi_obj *used = wi_with_own_shell(wo, parent, title);
    if (wo->shell)
        wi_size(wo, 600, 600);
    return used;
}

void wi_attach(wi_obj *wo, wi_obj *parent)
{
    wo->handle = getparenthandle(parent);
    addchild(wo, parent);
}

void wi_check(const wi_obj *wo, int type, const char *null_message, const char *type_message)
{
    if (!wo)
        wi_exit(null_message);
    if (wo->type != type)
        wi_exit(type_message);
}

void wi_check(const wi_obj *wo, const void *needed, int type, const char *null_message, const char *type_message)
{
    if (!needed)
        wi_exit(null_message);
    wi_check(wo, type, null_message, type_message);
}

void wi_replace_text(char *&text, const char *s)
{
    char *copy = c_mkstr(s); // before the old text goes: `s` may be it
    jfree(text);
    text = copy;
}

wi_focus_step wi_focus_into(wi_obj *wo)
{
    return {wi_focus_step::into, nullptr, wo};
}

wi_focus_step wi_focus_past(wi_obj *wo)
{
    return {wi_focus_step::past, wo->parent, wo};
}

void wi_one_child_show(wi_obj *wo, bool on)
{
    on ? wi_onrecursive(wo->child) : wi_offrecursive(wo->child);
}

void wi_one_child_add(wi_obj *parent, wi_obj *child)
{
    if (parent->child)
        wi_exit("You attempted to add a child to an object, but it already has a child.  "
                "The object only supports one child.");
    parent->child = child;
}

wi_focus_step wi_container_enter(wi_obj *wo)
{
    return wo->child ? wi_focus_into(wo->child) : wi_focus_past(wo);
}

wi_focus_step wi_container_leave(wi_obj *container, wi_obj *)
{
    return wi_focus_past(container);
}
