// What differs by type of object: one row of functions per type, defined by the type's module.
//
// A generic operation looks the row of its object up and calls the row's function; an empty slot means that the
// type does not have the operation. A new type is one module and one line in witype.cpp.
#pragma once

#include "dovsys/dovsys.h"
#include "wi/wiexit.h"
#include "wi/wiobj.h"

struct HDC__;

// A rectangle in pixels of the window that the object lies in.
struct wi_rect {
    int x, y, w, h;
};

// Where a walk of the keyboard focus goes on.
struct wi_focus_step {
    enum { taken, into, past } what;
    wi_obj *container; // past: the container to go on in
    wi_obj *wo;        // into: the object to enter; past: the child to move on from
};
wi_focus_step wi_focus_into(wi_obj *wo);
wi_focus_step wi_focus_past(wi_obj *wo); // in the object's parent

// What the journal recorded of an action: its code, and for a drawing area the mouse.
struct wi_action {
    int code;
    int x, y;
    int buttons[3];
};

struct wi_type {
    bool pops_up = false;                      // showing it shows a dialog, whatever window it lives in
    bool is_part = false;                      // shown and hidden with its container only
    void (*show)(wi_obj *, bool on) = nullptr; // shows or hides what the object consists of
    void (*place)(wi_obj *, const wi_rect &) = nullptr;
    void (*add_child)(wi_obj *parent, wi_obj *child) = nullptr;

    wi_focus_step (*focus_enter)(wi_obj *) = nullptr;
    wi_focus_step (*focus_leave)(wi_obj *container, wi_obj *from) = nullptr;

    void (*clicked)(wi_obj *, int id) = nullptr;                // the control of the object with that id was clicked
    void (*selected)(wi_obj *) = nullptr;                       // another line of its list was selected
    void (*draw)(wi_obj *, HDC__ *, const wi_rect &) = nullptr; // an owner-drawn control is to be drawn
    void (*replay)(wi_obj *, const wi_action &) = nullptr;      // what the object did is to be done again

    // The edit window whose text is the object's string, which the journal saves.
    wi_window (*value_window)(const wi_obj *) = nullptr;

    void (*set_message)(wi_obj *, const char *) = nullptr;
    void (*set_label)(wi_obj *, const char *) = nullptr;
    void (*set_split)(wi_obj *, double) = nullptr;
    void (*set_decimals)(wi_obj *, int) = nullptr;
    void (*set_inc)(wi_obj *, double) = nullptr;
    void (*set_string)(wi_obj *, const char *) = nullptr;
    void (*set_value)(wi_obj *, double) = nullptr;
    void (*set_state)(wi_obj *, int) = nullptr;
    void (*set_dir)(wi_obj *, const char *) = nullptr;
    void (*set_editable)(wi_obj *, int) = nullptr;
    char *(*get_string)(wi_obj *) = nullptr;
    double (*get_value)(wi_obj *) = nullptr;
    int (*get_state)(wi_obj *) = nullptr;
    char *(*get_label)(wi_obj *) = nullptr;
};

extern const wi_type wi_butary_row, wi_button_row, wi_colorbut_row, wi_crop_row, wi_dovapp_row, wi_drawarea_row,
    wi_drect_row, wi_editbox_row, wi_editpage_row, wi_filebox_row, wi_filesel_row, wi_form_row, wi_frame_row,
    wi_icon_row, wi_incdecfld_row, wi_label_row, wi_listsel_row, wi_menubar_row, wi_msgbox_row, wi_null_row,
    wi_numfld_row, wi_rectary_row, wi_status_row, wi_strfld_row, wi_togary_row, wi_updownbut_row, wi_ynbox_row;

// The row of the object's type; a row of empty slots for codes that no module has claimed.
const wi_type &wi_row(const wi_obj *wo);

// A new zeroed object of the type, switched on.
wi_obj *wi_new_obj(int type);

// A new zeroed record, or an array of them.
template <class Record>
Record *wi_new(int count = 1)
{
    return static_cast<Record *>(jmalloc(count * static_cast<int>(sizeof(Record))));
}

// An object made without a parent lives in an application window of its own, which becomes its shell and cannot be
// closed by the user. Returns the parent to use: that window, or `parent` when there is one. The first leaves the size
// of the window to the platform.
wi_obj *wi_with_own_shell(wi_obj *wo, wi_obj *parent, const char *title = " ");
wi_obj *wi_with_shell(wi_obj *wo, wi_obj *parent, const char *title = " ");

// A form of 100 by 100 in a window of its own, as the toolkit's services have it. A pending wi_set_window_name is not
// used: it is the application's.
wi_obj *wi_mk_own_form(const char *title);

// Takes the window of `parent` for a new object that has none of its own, and links the object below it.
void wi_attach(wi_obj *wo, wi_obj *parent);

// Ends the program with the first message when `wo` (or, in the second form, `needed`) is null, and with the second
// when it is not of the type.
void wi_check(const wi_obj *wo, int type, const char *null_message, const char *type_message);
void wi_check(const wi_obj *wo, const void *needed, int type, const char *null_message, const char *type_message);

// Replaces an owned text by a copy of `s`.
void wi_replace_text(char *&text, const char *s);

// Containers with at most one child share these.
void wi_one_child_show(wi_obj *wo, bool on);
void wi_one_child_add(wi_obj *parent, wi_obj *child);
wi_focus_step wi_container_enter(wi_obj *wo);
wi_focus_step wi_container_leave(wi_obj *container, wi_obj *from);
