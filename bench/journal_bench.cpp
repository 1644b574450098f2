// Listing a journal of 100000 records beside reading its file.

#include "wi/wijournalfile.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>

namespace {

constexpr std::array kinds = {wi_journal_kind::plain, wi_journal_kind::with_value, wi_journal_kind::with_value,
                              wi_journal_kind::with_mouse};
const std::array<std::optional<std::string>, kinds.size()> labels = {"Go", "Name:", "Size:", std::nullopt};

// In the temporary directory: presses of a button, each with the values of two fields.
const std::string &journal()
{
    static const std::string name = [] {
        const char *directory = std::getenv("TMPDIR");
        std::string file = std::string(directory ? directory : "/tmp") + "/journal_bench.jrl";
        std::string bytes;
        wi_journal_put_stamp(bytes, "bench");
        for (std::int32_t i = 1; i <= 100000; ++i)
            wi_journal_put_record(bytes, {{{1, "some text value"}, {2, "2.500000"}}, 0, 0, {}, "", i});
        wi_journal_append(file.c_str(), true, wi_journal_text_mode(bytes));
        return file;
    }();
    return name;
}

void read_file(benchmark::State &state)
{
    wi_hlp_bytes bytes;
    while (state.KeepRunning())
        benchmark::DoNotOptimize(wi_hlp_read_all(journal().c_str(), bytes));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size) * state.iterations());
}

void list(benchmark::State &state)
{
    wi_journal_file file;
    std::string_view stamp;
    while (state.KeepRunning()) {
        wi_journal_open(journal().c_str(), file);
        wi_journal_read_stamp(file, stamp);
        if (!wi_journal_list(file, kinds, labels).sound || file.read != 100000)
            state.SkipWithError("another list");
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(file.bytes.size) * state.iterations());
}

BENCHMARK(read_file);
BENCHMARK(list);

} // namespace
