// Journal files: records are read within their bytes, what was read is written again as the same bytes, and the list,
// the mirror and the messages of it stay within their limits.
#include "fuzz.h"

#include "wi/wijournal.h"
#include "wi/wijournalfile.h"

#include <filesystem>
#include <fstream>

namespace {

using kind = wi_journal_kind;
constexpr kind kinds[] = {kind::plain, kind::with_value, kind::with_mouse, kind::with_value};
constexpr std::int32_t most = 6;

void check(const wi_journal_record &record, const wi_journal_file &file)
{
    require(record.number == file.read && record.object >= 0 && record.object <= most);
    require(record.mouse.has_value() == (record.object == 2));
    require(record.own_value.size() <= wi_journal_value_limit);
    for (const wi_journal_value &value : record.values)
        require(value.object >= 0 && value.object <= most && value.text.size() <= wi_journal_value_limit);
    require(wi_journal_mirror_text(record).ends_with("\nEND OF RECORD\n\n"));
}

// What the record is written as; shorter than what was read when a value was cut.
void check_writing(const wi_journal_record &record, std::string_view bytes)
{
    std::string again;
    wi_journal_put_record(again, record);
    require(again.size() <= bytes.size() && again.substr(again.size() - 4) == bytes.substr(bytes.size() - 4));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::string name = (std::filesystem::temp_directory_path() / "wi_journal_fuzz.jrl").string();
    const std::string bytes(data, data + size);
    std::ofstream(name, std::ios::binary) << bytes;

    wi_journal_file file;
    std::string_view stamp;
    require(wi_journal_open(name.c_str(), file));
    if (!wi_journal_read_stamp(file, stamp))
        return 0;
    wi_journal_record record;
    for (std::size_t from = file.at; wi_journal_next(file, kinds, most, record); from = file.at) {
        check(record, file);
        check_writing(record, file.bytes.view().substr(from, file.at - from));
    }

    const std::optional<std::string> labels[] = {"Go", std::nullopt, "", bytes.substr(0, 300)};
    wi_journal_file listed;
    require(wi_journal_open(name.c_str(), listed) && wi_journal_read_stamp(listed, stamp));
    const wi_journal_listing listing = wi_journal_list(listed, kinds, labels);
    require(listing.text.size() <= wi_journal_list_limit && listing.text.starts_with(wi_journal_list_head));
    require(listed.read >= 0 && listing.sound == listed.at_end());

    const std::string message = wi_journal_add_message(stamp, bytes);
    require(message.size() < 2000 || message == bytes);
    const wi_journal_wrapped wrapped = wi_journal_wrap(message);
    require(wrapped.text.size() == message.size());
    require(wrapped.lines == 1 + std::count(wrapped.text.begin(), wrapped.text.end(), '\n'));
    return 0;
}
