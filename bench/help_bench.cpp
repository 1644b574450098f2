// Look-up in a help library of 10000 topics beside reading its table of contents once, and making that table.

#include "wi/wihlpfile.h"
#include "wi/wihlplib.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <string>

namespace {

constexpr int topics = 10000;
constexpr std::size_t text_length = 480; // of each topic, about 5 MB in all

// "help:bench:topic 00003" to "help:bench:topic 09999", in the temporary directory.
const std::string &library()
{
    static const std::string name = [] {
        const char *directory = std::getenv("TMPDIR");
        std::string file = std::string(directory ? directory : "/tmp") + "/help_bench.hlp";
        std::string text = "\n0 HELP\nEverything.\n\n1 BENCH\nOne program.\n\n";
        for (int i = 2; i < topics; ++i) {
            const std::string number = std::to_string(100000 + i).substr(1);
            const std::size_t start = text.size();
            text.append("2 TOPIC ").append(number).append("\n");
            while (text.size() < start + text_length)
                text.append("A line of sixty characters that tells a little of topic ").append(number).append("\n");
            text.append("\n");
        }
        wi_hlp_write(file, text);
        mktofc(file.c_str());
        return file;
    }();
    return name;
}

void read_table(benchmark::State &state)
{
    wi_hlp_bytes bytes;
    while (state.KeepRunning())
        benchmark::DoNotOptimize(wi_hlp_read_all((library() + ".tofc").c_str(), bytes));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size) * state.iterations());
}

void read_table_by_lines(benchmark::State &state)
{
    while (state.KeepRunning()) {
        const wi_hlp_file file(std::fopen((library() + ".tofc").c_str(), "r"));
        std::array<char, 200> line;
        while (std::fgets(line.data(), static_cast<int>(line.size()), file.get()))
            benchmark::DoNotOptimize(line);
    }
}

void look_up(benchmark::State &state, const char *key, wi_hlp_answer::kind expected)
{
    while (state.KeepRunning())
        if (wi_hlp_lookup(library().c_str(), key).what != expected)
            state.SkipWithError("another answer");
}

void make_table(benchmark::State &state)
{
    wi_hlp_bytes bytes;
    wi_hlp_read_all(library().c_str(), bytes);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(mktofc(library().c_str()));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size) * state.iterations());
}

BENCHMARK(read_table);
BENCHMARK(read_table_by_lines);
BENCHMARK_CAPTURE(look_up, first_topic, "help", wi_hlp_answer::topic);
BENCHMARK_CAPTURE(look_up, last_topic, "help:bench:topic 09999", wi_hlp_answer::topic);
BENCHMARK_CAPTURE(look_up, keyword_of_last, "help:other:topic 09999", wi_hlp_answer::by_keyword);
BENCHMARK_CAPTURE(look_up, keyword_of_digits, "help:bench:9999", wi_hlp_answer::by_keyword);
BENCHMARK_CAPTURE(look_up, nothing, "help:bench:topic 0999x", wi_hlp_answer::nothing);
BENCHMARK(make_table);

} // namespace
