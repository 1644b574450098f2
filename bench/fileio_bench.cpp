// fileio_bench CASE REPS   Measurement files, for the cases file-read, convert, file-write and, on Windows,
// win-numbers.
//
// Prints lines `case peer n metric value` (tabs). Every sample is of the same amount of bytes as the other programs of
// the case: 10 million elements of two numbers (PEERS_RECORDS), as they are in files in the folder of temporary files,
// which are in the page cache. "ours" reads or writes blocks, "ours-getiq" and "ours-putiq" one element a call.

#include "fileio/fileio.h"
#include "measure.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

const char *const records_wanted = std::getenv("PEERS_RECORDS");
const int records = records_wanted != nullptr ? std::atoi(records_wanted) : 10000000;
int reps = 3;

struct sample_line {
    std::string name;
    const char *peer;
    std::size_t n;
    const char *metric;
    double bytes;
};

// Once unmeasured, then so many times.
template <typename action>
void sample(const sample_line &line, action act)
{
    for (int i = 0; i <= reps; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        act();
        const double seconds = seconds_since(begin);
        if (i > 0)
            std::printf("%s\t%s\t%zu\t%s\t%.9g\n", line.name.c_str(), line.peer, line.n, line.metric,
                        line.bytes / seconds / 1e9);
    }
}

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "fileio_bench: %s failed\n", what);
    std::exit(1);
}

struct folder {
    folder() : path(std::filesystem::temp_directory_path() / "fileio_bench")
    {
        std::filesystem::create_directories(path);
    }
    ~folder() { std::filesystem::remove_all(path); }
    std::string operator()(const char *name) const { return (path / name).string(); }
    std::filesystem::path path;
};

template <typename T>
std::vector<T> numbers(std::size_t n)
{
    std::vector<T> all(n);
    std::uint32_t seed = 5;
    for (T &x : all)
        x = static_cast<T>(next_random(seed) * 200 - 100);
    return all;
}

// Values of which D_floating keeps every bit.
std::vector<double> long_numbers(std::size_t n)
{
    std::vector<double> all(n);
    const std::vector<float> short_ones = numbers<float>(n);
    for (std::size_t i = 0; i < n; ++i)
        all[i] = static_cast<double>(short_ones[i]) * 1.000000001;
    return all;
}

void make_file(const dov_type &type, const std::string &name, int machine, const void *elements)
{
    std::vector<char> head(static_cast<std::size_t>(type.headsize));
    dov_init_head(type, head.data());
    if (const dov_field *count = dov_find_field(type.header, "nvec")) {
        const std::int32_t two = 2;
        std::memcpy(head.data() + count->offset, &two, sizeof two);
    }
    _dovfiletype *p = dov_create(type, name.c_str(), head.data(), machine, ressize);
    require(p != nullptr && dovfilewriteblock(p, elements, records) == 1 && dovfileclose(p) == 1, "making a file");
}

void read_all(const std::string &name, void *buf)
{
    int code = 0;
    _dovfiletype *p = dov_open_any(name.c_str(), "R", &code);
    require(p != nullptr && u_getnelem(p, records, buf) == 1, "reading");
    u_close(p);
}

void read_blocks(const dov_type &type, const folder &place, int machine, const sample_line &line, const void *expected,
                 void *buf)
{
    const std::string name = place(line.metric + 5);
    make_file(type, name, machine, expected);
    sample(line, [&] { read_all(name, buf); });
    require(std::memcmp(buf, expected, static_cast<std::size_t>(line.bytes)) == 0, "comparing");
}

void read_records(const std::string &name, std::vector<float> &samples)
{
    _dovfiletype *iq = openiq(name.c_str(), "R");
    double t;
    double i;
    double q;
    for (std::size_t at = 0; getiq(iq, &t, &i, &q) == 1; at += 2) {
        samples[at] = static_cast<float>(i);
        samples[at + 1] = static_cast<float>(q);
    }
    u_close(iq);
}

void file_read(const std::string &name)
{
    const folder place;
    const auto n = static_cast<std::size_t>(records);
    const auto bytes = 8.0 * records;
    const std::vector<float> samples = numbers<float>(2 * n);
    std::vector<float> read(2 * n);
    read_blocks(iq_type, place, mcvt_pc, {name, "ours", n, "GB/s-native", bytes}, samples.data(), read.data());
    sample({name, "ours-getiq", n, "GB/s-native", bytes}, [&] { read_records(place("native"), read); });
    require(samples == read, "comparing");
    if (name != "file-read")
        return;
    read_blocks(iq_type, place, mcvt_sun, {name, "ours", n, "GB/s-bigendian", bytes}, samples.data(), read.data());
    read_blocks(iq_type, place, mcvt_vax, {name, "ours", n, "GB/s-vaxF", bytes}, samples.data(), read.data());
    const std::vector<double> vectors = long_numbers(2 * n);
    std::vector<double> vectors_read(2 * n);
    read_blocks(vec_type, place, mcvt_vax, {name, "ours", n, "GB/s-vaxD", 2 * bytes}, vectors.data(),
                vectors_read.data());
}

// In place, as the files are converted.
void convert(const std::string &name)
{
    const std::size_t all = 2 * static_cast<std::size_t>(records);
    std::vector<double> values = long_numbers(all);
    for (const std::size_t n : {std::size_t{100000}, all}) {
        const auto times = static_cast<int>(1 + all / n / 4);
        const auto measure = [&](const char *metric, int machine, void (*run)(void *, std::size_t), double size) {
            setmcvt(machine, mcvt_pc);
            sample({name, "ours", n, metric, size * static_cast<double>(n) * times}, [&] {
                for (int i = 0; i < times; ++i)
                    run(values.data(), n);
            });
        };
        measure("GB/s-bigendian", mcvt_sun, mcvt_run_f4, 4);
        measure("GB/s-vaxF", mcvt_vax, mcvt_run_f4, 4);
        measure("GB/s-vaxD", mcvt_vax, mcvt_run_f8, 8);
    }
}

void write_records(const std::string &file)
{
    _dovfiletype *iq = openiq(file.c_str(), "N");
    for (int i = 0; i < records; ++i)
        putiq(iq, i, i + 1);
    require(u_close(iq) == 1, "writing");
}

void write_blocks(const std::string &file)
{
    constexpr int block = 4096;
    std::vector<_iqelement> elements(block);
    _dovfiletype *iq = openiq(file.c_str(), "N");
    for (int i = 0; i < records; i += block) {
        for (int k = 0; k < block; ++k)
            elements[static_cast<std::size_t>(k)] = {static_cast<float>(i + k), static_cast<float>(i + k + 1)};
        dovfilewriteblock(iq, elements.data(), std::min(block, records - i));
    }
    require(u_close(iq) == 1, "writing");
}

void file_write(const std::string &name, const char *metric)
{
    const folder place;
    const auto n = static_cast<std::size_t>(records);
    sample({name, "ours-putiq", n, metric, 8.0 * records}, [&] { write_records(place("out.iq")); });
    sample({name, "ours", n, metric, 8.0 * records}, [&] { write_blocks(place("out.iq")); });
}

} // namespace

int main(int argc, char **argv)
{
    const std::string name = argc > 1 ? argv[1] : "";
    reps = argc > 2 ? std::atoi(argv[2]) : reps;
    if (name == "file-read") {
        file_read(name);
    } else if (name == "convert") {
        convert(name);
    } else if (name == "file-write") {
        file_write(name, "GB/s");
    } else if (name == "win-numbers") {
        file_write("file-io-win", "GB/s-write");
        file_read("file-io-win");
    }
    return 0;
}
