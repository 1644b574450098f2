#include "wi/wigeneric.h"
#include "wi/wijournal.h"
#include "wi/wijournalstate.h"
#include "wi/witype.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

void damaged(std::int32_t sound)
{
    wi_jrlmsg("Journal file " + wi_jrl.fname_r + " is damaged after entry " + std::to_string(sound) + "!");
}

// ---- reading from the start ----

// Opens a journal that this program may replay; `before` and `after` its name are what to say when it cannot be read.
bool open(const std::string &name, const char *before, const char *after, wi_journal_file &file)
{
    if (!wi_journal_open(name.c_str(), file)) {
        wi_jrlmsg(before + name + after);
        return false;
    }
    std::string_view stamp;
    if (!wi_journal_read_stamp(file, stamp)) {
        wi_jrlmsg("Journal file " + name + " is damaged after entry 0!");
        return false;
    }
    if (stamp.empty() || stamp == wi_jrl.program_stamp)
        return true;
    const std::string shown(stamp.substr(0, wi_journal_stamp_limit));
    wi_jrlmsg("This journal file was written by the program " + shown + " and cannot be used by " +
              wi_jrl.program_stamp + "!");
    return false;
}

bool open_again()
{
    wi_journal_file file;
    if (!open(wi_jrl.fname_r, "Error opening journal file ", " for reading!", file))
        return false;
    wi_jrl.file = std::move(file);
    return true;
}

void restart()
{
    if (wi_jrl.restart)
        wi_jrl.restart();
}

// ---- replay ----

wi_obj *object_at(std::int32_t place)
{
    const auto at = static_cast<std::size_t>(place);
    return at < wi_jrl.wo_all.size() ? wi_jrl.wo_all[at] : nullptr;
}

void set_value(std::int32_t place, std::string_view text)
{
    wi_obj *wo = object_at(place);
    if (wo && wi_row(wo).value_window)
        wi_set_string(wo, std::string(text).c_str());
}

void do_callback(wi_obj *wo, int icb)
{
    const wi_journal_mouse_state &mouse = wi_jrl.mouse;
    if (const auto replay = wi_row(wo).replay)
        replay(wo, {icb, mouse.x, mouse.y, {mouse.buttons[0], mouse.buttons[1], mouse.buttons[2]}});
}

// Everything of the record is used before its action runs, which may do anything.
bool replay_next()
{
    wi_journal_record record;
    if (!wi_journal_next(wi_jrl.file, wi_jrl.kinds, static_cast<std::int32_t>(wi_jrl.kinds.size()), record))
        return false;
    for (const wi_journal_value &value : record.values)
        set_value(value.object, value.text);
    if (record.mouse)
        wi_jrl.mouse = *record.mouse;
    set_value(record.object, record.own_value);
    ++wi_jrl.indx_r;
    wi_obj *wo = object_at(record.object);
    if (!wo)
        return true;
    do_callback(wo, record.action);
    wi_jrl.mtr_call = true;
    wi_journal_write(wo, record.action);
    wi_jrl.mtr_call = false;
    return true;
}

void move_to_rec(std::int32_t target)
{
    while (wi_jrl.indx_r < target)
        if (!replay_next()) {
            damaged(wi_jrl.indx_r);
            return;
        }
}

// ---- what the manager is asked for ----

wi_journal_listing list(wi_journal_file &file)
{
    std::vector<std::optional<std::string>> labels(wi_jrl.wo_all.size());
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (const jmalloc_ptr<char> label{wi_get_label(wi_jrl.wo_all[i])})
            labels[i] = label.get();
    return wi_journal_list(file, wi_jrl.kinds, labels);
}

bool load(const std::string &name)
{
    wi_journal_file file;
    if (!open(name, "Unable to open journal file ", " for reading!\n", file))
        return false;
    restart();
    const wi_journal_listing listing = list(file);
    wi_jrl.fname_r = name;
    wi_jrl.indx_r = 0;
    wi_jrl.total_r = file.read;
    wi_jwin_show_list(listing.text);
    wi_jwin_show_entry(0);
    wi_jwin_show_total(file.read);
    wi_jwin_show_file(name);
    if (!listing.sound)
        damaged(file.read);
    return true;
}

// Copies what is written beside it, since the replay writes that file anew, and loads the copy.
bool load_copy()
{
    const std::string &from = wi_jrl.fname_w;
    const std::string copy = from.substr(0, from.find_last_of("\\/:") + 1) + "tmp.jrl";
    const bool differ = !c_iseqx(from.c_str(), copy.c_str());
    if (differ) {
        std::remove(copy.c_str()); // the command would ask
        std::system(wi_journal_copy_command(from, copy).c_str());
    }
    if (differ && dovsys_is_file(copy.c_str()))
        return load(copy);
    wi_jrlmsg("Unable to copy " + from + " to " + copy + "!");
    return false;
}

void show_again()
{
    for (wi_obj *wo : std::exchange(wi_jrl.wo_win, {}))
        wi_on(wo);
    for (wi_obj *wo : std::exchange(wi_jrl.wo_stdplt, {}))
        if (wi_jrl.render)
            wi_jrl.render(wo);
}

void move_back(std::int32_t target)
{
    const bool loaded = !wi_jrl.fname_r.empty();
    if ((!loaded && !load_copy()) || !open_again())
        return;
    if (loaded)
        restart(); // loading has done so
    wi_jrl.indx_r = wi_jrl.indx_w = 0;
    wi_jrl.jrl_back = true;
    move_to_rec(target);
    wi_jrl.jrl_back = false;
    show_again();
}

void move(int step)
{
    const bool loaded = !wi_jrl.fname_r.empty();
    const std::int32_t total = loaded ? wi_jrl.total_r : wi_jrl.indx_w;
    if (total == 0)
        return;
    const double wanted = std::fmin(std::fmax(wi_jwin_entry() + step, 0), total);
    const auto target = static_cast<std::int32_t>(wanted);
    if (loaded && target > wi_jrl.indx_r) {
        if (wi_jrl.indx_r > 0 || open_again())
            move_to_rec(target);
    } else if (target < total) {
        move_back(target);
    } else {
        wi_jrlmsg("End of journal!");
    }
    wi_jwin_show_entry(wi_jrl.indx_r);
}

void act(int tag)
{
    switch (tag) {
    case wi_jwin_close:
        wi_jwin_show(false);
        break;
    case wi_jwin_load:
        load(wi_jwin_file());
        break;
    default:
        move(tag == wi_jwin_up ? 1 : tag == wi_jwin_down ? -1 : 0);
        break;
    }
}

} // namespace

void wi_jwin_cb(wi_obj *, int tag)
{
    if (wi_jrl.replaying) // what is replayed shows a dialog, behind which the manager can be used
        return;
    wi_jrl.replaying = true;
    wi_journal_update_manager();
    act(tag);
    wi_jrl.replaying = false;
}
