// What the parts of the journal share: recording (wijournal.cpp), replay (wijournalplay.cpp) and their windows
// (wijournalwin.cpp, wijournalmsg.cpp).
#pragma once

#include "wi/wijournalfile.h"
#include "wi/wiobj.h"

#include <unordered_map>

// An object whose value is saved with each record.
struct wi_journal_saved {
    wi_obj *wo;
    std::int32_t place;
    std::string value;
    bool value_known = false; // the text has not changed since it was read
};

// The one journal of the process.
struct wi_journal_state {
    bool on = false;
    int nojournal = 0;
    std::string program_stamp;
    std::string fname_w;         // being written; empty when none is
    std::string fname_r;         // being replayed; empty when the manager refers to the one being written
    void (*restart)() = nullptr; // or null

    // Registered objects, their kinds, and the place of each.
    std::vector<wi_obj *> wo_all;
    std::vector<wi_journal_kind> kinds;
    std::unordered_map<const wi_obj *, std::int32_t> places;

    std::vector<wi_obj *> wo_tfo, wo_ifo, wo_icb;                    // value saved, never saved, action not recorded
    std::vector<wi_journal_saved> wo_fo;                             // wo_tfo less wo_ifo
    bool wo_fo_known = false;                                        // no list has changed since it was made
    std::unordered_multimap<wi_window, wi_journal_saved *> wo_fo_of; // by the window that has the value
    std::vector<wi_obj *> wo_win, wo_stdplt;

    std::int32_t indx_w = 0, indx_r = 0; // records written; records replayed of fname_r
    std::int32_t total_r = 0;            // records that can be replayed of fname_r
    std::string list_w;                  // the list of what is written
    bool manager_behind = false;         // the manager's window does not show all that was written
    wi_journal_file file;                // fname_r, from the next record on
    wi_journal_mouse_state mouse;
    bool replaying = false; // the manager is at work
    bool jrl_back = false;  // backward
    bool mtr_call = false;  // a replayed action is being written

    void (*render)(wi_obj *) = nullptr;
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> mirror{nullptr, std::fclose};
};
extern wi_journal_state wi_jrl;

// Shows in the manager's window what was written while it was hidden.
void wi_journal_update_manager();

// ---- the manager's window (wijournalwin.cpp) ----

// Builds it, hidden. `cb` is called with one of these tags.
enum wi_jwin_tag { wi_jwin_close, wi_jwin_up, wi_jwin_down, wi_jwin_enter, wi_jwin_load };
void wi_jwin_init(wi_callback cb);
void wi_jwin_show(bool on);
bool wi_jwin_is_shown();

double wi_jwin_entry();
std::string wi_jwin_file();
void wi_jwin_show_entry(std::int32_t entry);
void wi_jwin_show_total(std::int32_t total);
void wi_jwin_show_file(const std::string &name);
void wi_jwin_show_list(const std::string &list);
void wi_jwin_add_to_list(std::string_view line); // behind what is shown

// ---- the message window (wijournalmsg.cpp) ----

void wi_jrlmsg_init();
void wi_jrlmsg(const std::string &message);

// ---- replay (wijournalplay.cpp) ----

// The manager's callback.
void wi_jwin_cb(wi_obj *wo, int tag);
