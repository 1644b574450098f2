// The journal of user actions: what the user did, and the values of the program's fields at that moment, in a binary
// file that can be replayed, forward, entry by entry, or backward by starting again and replaying up to an entry.
//
// Off until wi_journal_init. Objects are known by the order in which they were made: a program that is to replay a
// journal makes its objects in the same order in every run. Failures are told in the journal's message window and leave
// the journal as it was.
//
// A journal file. Integers are signed, of 32 bits, little-endian; texts have no terminating zero.
//
//   stamp length    4    before the first record only
//   stamp           n    before the first record only: which program wrote it; an empty one is accepted by any
//   per record:
//   value count     4    number of saved values + 1
//     object index  4    per saved value: place of its object among the registered ones
//     length        4    less than 1 is an empty value
//     value         m
//   object index    4    of the object that acted; the number of objects when it is not a registered one
//   action code     4
//   mouse x, y      8    of a drawing area only
//   buttons        12    of a drawing area only: left, middle, right
//   own length      4    of the value of the object that acted
//   own value       k
//   record number   4    1 for the first; so the last four bytes of a file are the number of its records
//
// The bytes are stored as text mode stores them, on every system: each byte 10 as 13 10. Reading takes the 13 before
// each 10 away again, and 26 is a byte as any other, so that each number and each value comes back as it was; a file
// that another program wrote in text mode reads the same.
//
//   04 00 00 00  d e m o  01 00 00 00  03 00 00 00  01 00 00 00  00 00 00 00  01 00 00 00
//   program "demo", no values, object 3 acted with code 1 (a toggle button), has no value itself, record 1
//
// Files are read up to 256 MB. A file that is cut or damaged serves up to its last sound record: the lengths fit, the
// record number is right, the indexes are those of objects, and only objects with a value have one.
#pragma once

#include "wi/wiobj.h"

constexpr int wi_journal_most_objects = 500; // registered; more are refused, as in the lists of the same size
constexpr int wi_journal_most_ignored = 100; // by wi_journal_ignore_cb
constexpr int wi_journal_stamp_limit = 100;  // characters of a stamp; more is cut
constexpr int wi_journal_value_limit = 399;  // characters of a value on replay; more is cut

// ---- life ----

// Turns journalling on, forgets everything that the functions below were told before, and builds the journal's windows.
// Objects made earlier are not registered. `pstamp` names the program and may be null. `fname` is the file to write,
// which the first action starts anew; nothing is written when it is null or empty. `func` (may be null) puts the
// program into the state that it starts in; it is called before a journal is replayed from its beginning. The texts are
// copied.
void wi_journal_init(const char *pstamp, const char *fname, void (*func)());

// A callback: with tag 0 it shows the Journal Manager window, which is told of new records while it is shown.
void wi_journal_on(wi_obj *wo, int tag);

// The number of records in the journal that is being written.
int wi_journal_new();

// 1 while a journal is replayed backward, when drawing is of no use yet.
int wi_journal_back_on();

// ---- objects ----
//
// Null is ignored, and so is an object for which a list has no room.

// Registers an object; file selections and string, numeric and increment/decrement fields have their value saved with
// each record. The makers call it.
void wi_journal_add_wo(wi_obj *wo);

// Has the value of the object saved with each record.
void wi_journal_add_fo(wi_obj *wo);

// Never saves the value of the object; nor that of the field in a file selection or increment/decrement field.
void wi_journal_ignore_fo(wi_obj *wo);

// Does not record what the object does.
void wi_journal_ignore_cb(wi_obj *wo);

// While `flag` is nonzero objects that are made are not registered, and what they do is not recorded.
void wi_journal_nojournal(int flag);

// Shows a window or a standard plot again after the next backward replay: a window by wi_on, a plot by the function
// that who draws such plots has set. There is none at first.
void wi_journal_store_win(wi_obj *wo);
void wi_journal_store_stdplt(wi_obj *wo);
void wi_journal_render_cb(void (*render)(wi_obj *wo));

// ---- recording ----

// Records that `wo` acted, just before its callback is called. `icb` is 0 for Enter, an accepted file and a push
// button; the type of a button; for a drawing area 1 mouse down, 2 up, 3 moved, 4 moved with no button held, 5 expose,
// 6 resize. A record that cannot be written whole is taken back; the ones before it stay. During a replay only the
// journal itself records: each action that it replays, once.
void wi_journal_write(wi_obj *wo, int icb);

// For the frame: the text of this edit window is another one, however that came about.
void wi_journal_text_changed(wi_window edit);

// The mouse for the next record of a drawing area: the place, and the states of the left, middle and right button.
void wi_journal_mouse(int ix, int iy, const int *buts);

// For debugging: from now on each record is written to this file as text, too; null ends that. 0 when it cannot be
// opened.
int wi_journal_mirror(const char *fname);
