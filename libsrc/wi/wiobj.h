// The toolkit's object: every element of an interface, from a window to a label, is one wi_obj.
//
// An object has a type code, a record of its type, a parent and children. Objects are made by the
// wi_mk_<type> functions, linked with addchild, and live until the process ends; nobody frees them.
// A wrong argument of any operation is a program error: wi_exit shows the message and ends the process.
#pragma once

struct HWND__;
struct wi_hlp;
struct wi_obj;

// A window of the platform (its HWND), declared so that applications need not include the platform's headers.
using wi_window = HWND__ *;

// What an interactive object calls: `wo` is the object that acted (for the parts of a composite object the
// composite), `tag` the number given with the callback.
using wi_callback = void (*)(wi_obj *wo, int tag);

enum wi_type_code : int {
    wi_type_form = 2,
    wi_type_button = 3,
    wi_type_drawarea = 4,
    wi_type_dovapp = 5,
    wi_type_frame = 6,
    wi_type_drect = 7,
    wi_type_butary = 8,
    wi_type_stdplt = 9,
    wi_type_togary = 11,
    wi_type_crop = 12,
    wi_type_status = 13,
    wi_type_filebox = 14,
    wi_type_editbox = 15,
    wi_type_msgbox = 16,
    wi_type_ynbox = 17,
    wi_type_rectary = 18,
    wi_type_label = 19,
    wi_type_filesel = 20,
    wi_type_listsel = 21,
    wi_type_updownbut = 22,
    wi_type_incdecfld = 23,
    wi_type_strfld = 24,
    wi_type_numfld = 25,
    wi_type_null = 26, // an area of a form
    wi_type_editpage = 27,
    wi_type_icon = 28,
    wi_type_colorbut = 29,
    wi_type_menubar = 31,
    wi_type_codes = 32
};

// The record of the object's type; the member named after the type is the meaningful one.
union dovunion {
    struct wi_form *form;
    struct wi_null *null;
    struct wi_dovapp *dovapp;
    struct wi_icon *icon;
    struct wi_button *button;
    struct wi_colorbut *colorbut;
    struct wi_strfld *strfld;
    struct wi_numfld *numfld;
    struct wi_butary *butary;
    struct wi_updownbut *updownbut;
    struct wi_incdecfld *incdecfld;
    struct wi_rectary *rectary;
    struct wi_frame *frame;
    struct wi_crop *crop;
    struct wi_drect *drect;
    struct wi_drawarea *drawarea;
    struct wi_editlist *editlist;
    struct wi_togary *togary;
    struct wi_editpage *editpage;
    struct wi_filesel *filesel;
    struct wi_listsel *listsel;
    struct wi_status *status;
    struct wi_stdplt *stdplt;
    struct wi_filebox *filebox;
    struct wi_editbox *editbox;
    struct wi_ynbox *ynbox;
    struct wi_msgbox *msgbox;
    struct wi_menubar *menubar;
};

struct wi_obj {
    int type;         // a wi_type_code
    wi_window handle; // the object's window; of a container, the window in which its children are drawn
    int ison;         // 1 when meant to be visible, whatever its ancestors are
    wi_hlp *hlp;      // help key, or null
    void *point;      // the application's own (wi_store, wi_recall)
    dovunion obj;     // the record of the type
    wi_obj *child;    // first or only child
    wi_obj *shell;    // the application window made for an object without a parent, else null
    wi_obj *parent;   // set by addchild
};

// ---- tree ----

// Links `child` under `parent`. A window, frame, crop or form area takes one child, a double rectangle two,
// a rectangle array as many as it has cells; everything else, a null parent included, is a program error.
void addchild(wi_obj *child, wi_obj *parent);

// The platform window in which children of `parent` are created.
wi_window getparenthandle(const wi_obj *parent);

// ---- visibility ----

// Shows the object and all below it that was not itself switched off. An object with a window of its own
// (`shell`) shows that window and brings it to the foreground.
void wi_on(wi_obj *wo);

// Hides the object and all below it.
void wi_off(wi_obj *wo);

// The work of wi_on and wi_off below the object itself; null is ignored.
void wi_onrecursive(wi_obj *wo);
void wi_offrecursive(wi_obj *wo);

// Sets the title of the window of an object that has a shell; nothing for the others.
void wi_settitle(wi_obj *wo, const char *title);

// ---- geometry ----

// Both work on the shell's window in units of a 1024 x 768 reference screen, scaled to the usable screen.
// wi_size takes a quarter more than that, and keeps the top-left corner; wi_position keeps the size.
void wi_size(wi_obj *wo, int x, int y);
void wi_position(wi_obj *wo, int x, int y);

// Lays out `wo` and all below it: `wo` gets the rectangle at (x, y) of w by h pixels of its window. Fractions
// are truncated toward zero. Null is ignored.
void onresize(wi_obj *wo, int x, int y, int w, int h);

// ---- application data ----

// Keeps one pointer of the application's with the object; wi_store returns `wo`.
wi_obj *wi_store(wi_obj *wo, void *p);
void *wi_recall(const wi_obj *wo);
