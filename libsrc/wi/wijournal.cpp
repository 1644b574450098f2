#include "wi/wijournal.h"

#include "wi/wifilesel.h"
#include "wi/wigeneric.h"
#include "wi/wiincdecfld.h"
#include "wi/wijournalstate.h"
#include "wi/wistate.h"
#include "wi/witype.h"

#include <algorithm>
#include <utility>

wi_journal_state wi_jrl;

namespace {

constexpr std::size_t most_objects = wi_journal_most_objects;

void add(std::vector<wi_obj *> &list, wi_obj *wo, std::size_t most = most_objects)
{
    if (wo && list.size() < most)
        list.push_back(wo);
    wi_jrl.wo_fo_known = false;
}

bool is_on(const std::vector<wi_obj *> &list, const wi_obj *wo)
{
    return std::find(list.begin(), list.end(), wo) != list.end();
}

wi_journal_kind kind_of(const wi_obj *wo)
{
    if (wo->type == wi_type_drawarea)
        return wi_journal_kind::with_mouse;
    return wi_row(wo).value_window ? wi_journal_kind::with_value : wi_journal_kind::plain;
}

// ---- composing ----

std::int32_t place_of(const wi_obj *wo)
{
    const auto found = wi_jrl.places.find(wo);
    return found == wi_jrl.places.end() ? static_cast<std::int32_t>(wi_jrl.wo_all.size()) : found->second;
}

std::vector<wi_journal_saved> &saved_objects()
{
    if (wi_jrl.wo_fo_known)
        return wi_jrl.wo_fo;
    wi_jrl.wo_fo.clear();
    wi_jrl.wo_fo_of.clear();
    for (wi_obj *wo : wi_jrl.wo_tfo)
        if (!is_on(wi_jrl.wo_ifo, wo))
            wi_jrl.wo_fo.push_back({wo, place_of(wo), {}});
    for (wi_journal_saved &saved : wi_jrl.wo_fo)
        if (const auto value_window = wi_row(saved.wo).value_window)
            wi_jrl.wo_fo_of.emplace(value_window(saved.wo), &saved);
    wi_jrl.wo_fo_known = true;
    return wi_jrl.wo_fo;
}

// The object's value; empty when it has none.
std::string value_of(wi_obj *wo)
{
    return kind_of(wo) == wi_journal_kind::with_value ? jmalloc_ptr<char>(wi_get_string(wo)).get() : "";
}

// `own_value` is kept by the caller, who needs it for as long as the record.
wi_journal_record compose(wi_obj *wo, int icb, std::string &own_value)
{
    wi_journal_record record;
    for (wi_journal_saved &saved : saved_objects()) {
        if (!saved.value_known)
            saved.value = value_of(saved.wo);
        saved.value_known = true;
        record.values.push_back({saved.place, saved.value});
    }
    record.object = place_of(wo);
    record.action = icb;
    if (kind_of(wo) == wi_journal_kind::with_mouse)
        record.mouse = wi_jrl.mouse;
    record.own_value = own_value = value_of(wo);
    record.number = wi_jrl.indx_w + 1;
    return record;
}

bool store(const wi_journal_record &record)
{
    const bool anew = wi_jrl.indx_w == 0;
    std::string bytes;
    if (anew)
        wi_journal_put_stamp(bytes, wi_jrl.program_stamp);
    wi_journal_put_record(bytes, record);
    return wi_journal_append(wi_jrl.fname_w.c_str(), anew, wi_journal_text_mode(bytes));
}

void mirror(const wi_journal_record &record)
{
    if (!wi_jrl.mirror)
        return;
    const std::string text = wi_journal_mirror_text(record);
    std::fwrite(text.data(), 1, text.size(), wi_jrl.mirror.get());
    std::fflush(wi_jrl.mirror.get());
}

// ---- the manager ----

// The line of the action in the list of what is written; empty when there is none.
std::string_view put_epg_entry(wi_obj *wo)
{
    if (wi_jrl.indx_w == 0)
        wi_jrl.list_w = wi_journal_list_head;
    const jmalloc_ptr<char> label(wi_get_label(wo));
    return label ? wi_journal_list_add(wi_jrl.list_w, wi_jrl.indx_w, label.get()) : std::string_view();
}

void show_written()
{
    wi_jwin_show_file("");
    wi_jwin_show_entry(wi_jrl.indx_w);
    wi_jwin_show_total(wi_jrl.indx_w);
}

// From here on the manager refers to the journal that is being written. Its windows cost more than the record, so one
// that is hidden is told when it is shown.
void tell_manager(std::string_view line)
{
    const bool whole_list = wi_jrl.indx_w == 1 || !wi_jrl.fname_r.empty();
    wi_jrl.fname_r.clear();
    wi_jrl.manager_behind = !wi_jwin_is_shown();
    if (wi_jrl.manager_behind)
        return;
    if (whole_list)
        wi_jwin_show_list(wi_jrl.list_w);
    else
        wi_jwin_add_to_list(line);
    show_written();
}

} // namespace

void wi_journal_init(const char *pstamp, const char *fname, void (*func)())
{
    wi_journal_state fresh;
    fresh.on = true;
    fresh.program_stamp = std::string_view(pstamp ? pstamp : "").substr(0, wi_journal_stamp_limit);
    fresh.fname_w = fname ? fname : "";
    fresh.restart = func;
    wi_jrl = std::move(fresh);
    wi_jrlmsg_init();
    wi_jwin_init(wi_jwin_cb);
}

void wi_journal_on(wi_obj *, int tag)
{
    if (!wi_jrl.on || tag != 0)
        return;
    wi_journal_update_manager();
    wi_jwin_show(true);
}

int wi_journal_new()
{
    return wi_jrl.indx_w;
}

int wi_journal_back_on()
{
    return wi_jrl.jrl_back;
}

void wi_journal_add_wo(wi_obj *wo)
{
    if (!wi_jrl.on || !wo)
        return;
    if (wi_jrl.nojournal) {
        wi_journal_ignore_cb(wo);
        return;
    }
    if (wi_jrl.wo_all.size() == most_objects)
        return;
    wi_jrl.places.emplace(wo, static_cast<std::int32_t>(wi_jrl.wo_all.size()));
    wi_jrl.kinds.push_back(kind_of(wo));
    add(wi_jrl.wo_all, wo);
    if (kind_of(wo) == wi_journal_kind::with_value)
        wi_journal_add_fo(wo);
}

void wi_journal_add_fo(wi_obj *wo)
{
    add(wi_jrl.wo_tfo, wo);
}

void wi_journal_ignore_fo(wi_obj *wo)
{
    add(wi_jrl.wo_ifo, wo);
    if (wo && wo->type == wi_type_filesel)
        add(wi_jrl.wo_ifo, wo->obj.filesel->strfld);
    if (wo && wo->type == wi_type_incdecfld)
        add(wi_jrl.wo_ifo, wo->obj.incdecfld->numfld);
}

void wi_journal_ignore_cb(wi_obj *wo)
{
    add(wi_jrl.wo_icb, wo, wi_journal_most_ignored);
}

void wi_journal_nojournal(int flag)
{
    wi_jrl.nojournal = flag;
}

void wi_journal_store_win(wi_obj *wo)
{
    add(wi_jrl.wo_win, wo);
}

void wi_journal_store_stdplt(wi_obj *wo)
{
    add(wi_jrl.wo_stdplt, wo);
}

void wi_journal_render_cb(void (*render)(wi_obj *))
{
    wi_jrl.render = render;
}

void wi_journal_write(wi_obj *wo, int icb)
{
    if (!wi_jrl.on || wi_jrl.fname_w.empty() || !wo || is_on(wi_jrl.wo_icb, wo))
        return;
    if (wi_jrl.replaying && !wi_jrl.mtr_call) // what a replayed action's callback records is in the journal already
        return;
    std::string own_value;
    const wi_journal_record record = compose(wo, icb, own_value);
    if (!store(record)) {
        wi_jrlmsg("Unable to open file " + wi_jrl.fname_w + " for writing");
        return;
    }
    mirror(record);
    const std::string_view line = put_epg_entry(wo);
    ++wi_jrl.indx_w;
    if (!wi_jrl.mtr_call)
        tell_manager(line);
}

void wi_journal_text_changed(wi_window edit)
{
    const auto [first, last] = wi_jrl.wo_fo_of.equal_range(edit);
    std::for_each(first, last, [](const auto &of) { of.second->value_known = false; });
}

void wi_journal_update_manager()
{
    if (!std::exchange(wi_jrl.manager_behind, false))
        return;
    wi_jwin_show_list(wi_jrl.list_w);
    show_written();
}

void wi_journal_mouse(int ix, int iy, const int *buts)
{
    wi_jrl.mouse = {ix, iy, {buts[0], buts[1], buts[2]}};
}

int wi_journal_mirror(const char *fname)
{
    wi_jrl.mirror.reset(fname ? std::fopen(fname, "w") : nullptr);
    return wi_jrl.mirror != nullptr;
}

void wi_reset_journal()
{
    wi_jrl = {};
}
