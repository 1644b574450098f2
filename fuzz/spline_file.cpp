// Spline files: whatever the bytes, both ways to evaluate agree, and what was read is written and read as the same.

#include "fuzz.h"

#include "fileio/fileio.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

namespace {

using spline = std::unique_ptr<_espl, decltype(&espl_free)>;

bool is_same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool is_increasing(const _espl &e)
{
    return std::adjacent_find(e.brks, e.brks + e.nbrks, [](const _brkpoint &a, const _brkpoint &b) {
               return !(a.time < b.time);
           }) == e.brks + e.nbrks;
}

void check_evaluation(_espl &memory, _espl &file)
{
    const bool comparable = is_increasing(memory);
    for (int i = memory.nbrks - 1; i >= 0; i -= 1 + memory.nbrks / 16) {
        for (const double t : {memory.brks[i].time, std::nextafter(memory.brks[i].time, 0), 0.5}) {
            const double value = espl(&memory, t, i % 3);
            require(is_same(value, espl(&file, t, i % 3)) || !comparable);
        }
    }
}

void check_writing(const _espl &e, const std::string &name)
{
    require(espl_write(&e, name.c_str(), "text", "type", "x", "y", 0) == 1);
    const spline again(espl_read(name.c_str()), espl_free);
    require(again != nullptr && again->nbrks == e.nbrks && again->ncoe == e.ncoe);
    const auto size = static_cast<std::size_t>(e.ncoe) * sizeof(double);
    for (int i = 0; i < e.nbrks; ++i)
        require(std::memcmp(again->brks[i].coe, e.brks[i].coe, size) == 0 && again->brks[i].ncont == e.brks[i].ncont);
}

void check_operations(_espl &e)
{
    const int ncoe = e.ncoe;
    require(espl_integrate(&e, 1) == 1 && e.ncoe == ncoe + 1);
    const spline sum(espl_add(&e, &e), espl_free);
    require(sum != nullptr && sum->nbrks >= e.nbrks && sum->ncoe == e.ncoe);
    for (int i = 0; i < 2; ++i)
        require(espl_diff(&e) == 1);
    require(e.ncoe == std::max(ncoe - 1, 1));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::string name = (std::filesystem::temp_directory_path() / "spline_file_fuzz.spl").string();
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));

    _dovfiletype *p = openspl(name.c_str(), "Update", 0);
    if (p == nullptr)
        return 0;
    const spline memory(espl_init_with_file(p, 0), espl_free);
    spline file(espl_init_with_file(p, 1), espl_free);
    if (memory != nullptr && file != nullptr) {
        check_evaluation(*memory, *file);
        check_writing(*memory, name + ".2");
        check_operations(*memory);
    }
    double time = 0;
    u_lasttime(p, &time);
    u_timemove(p, time);
    u_close(p);
    return 0;
}
