// A measurement file of any type and machine: all of it is read, then it is updated, and what was written is read
// again. Nothing is left allocated.

#include "fuzz.h"
#include "memory_file.h"

#include "fileio/fileio.h"
#include "support/allocator_watch.h"

#include <vector>

namespace {

void read_keywords(_dovfiletype *p)
{
    std::int32_t n = 0;
    require(u_kwget_n(p, &n) == 1 && n >= 0);
    for (int i = 0; i < std::min(n, 50); ++i) {
        char name[64];
        char text[dov_kw_string_size];
        std::int32_t type = 0;
        std::int32_t integer = 0;
        double real = 0;
        if (u_kwindx(p, i, name, &type) != 1)
            continue;
        require(std::strlen(name) < sizeof name && type >= 1 && type <= 3);
        u_kwget_d(p, name, &real);
        u_kwget_i(p, name, &integer);
        u_kwget_s(p, name, text);
        require(std::strlen(text) < sizeof text);
    }
}

void read_all()
{
    int code = 0;
    _dovfiletype *p = dov_open_any("file", "R", &code);
    if (p == nullptr) {
        require(code < 0 && std::string(dovfileerrortext(code)) != "unknown error");
        return;
    }
    read_keywords(p);
    std::int32_t size = 0;
    std::int32_t n = 0;
    double from = 0;
    double to = 0;
    require(u_elemsize(p, &size) == 1 && u_nelem(p, &n) == 1 && size > 0);
    std::vector<char> element(static_cast<std::size_t>(size));
    for (int i = 0; i < n; ++i)
        require(u_getelem(p, element.data()) == 1);
    require(u_getelem(p, element.data()) == -2);
    u_firsttime(p, &from);
    u_lasttime(p, &to);
    require(u_timemove(p, from / 2 + to / 2) == 1 && u_nextelem(p, &n) == 1 && n >= 0);
    require(u_close(p) == 1);
}

void read_views()
{
    _iqelement sample;
    _reaelement track;
    if (_dovfiletype *p = opengeniq("file")) {
        u_kwput_i(p, "iprime", 1);
        while (u_getelem(p, &sample) == 1) {
        }
        u_close(p);
    }
    if (_dovfiletype *p = opengenrea("file")) {
        while (u_getelem(p, &track) == 1) {
        }
        u_close(p);
    }
}

void update()
{
    int code = 0;
    _dovfiletype *p = dov_open_any("file", "U", &code);
    if (p == nullptr)
        return;
    std::int32_t size = 0;
    std::int32_t n = 0;
    u_elemsize(p, &size);
    u_nelem(p, &n);
    const std::vector<char> element(static_cast<std::size_t>(size));
    std::int32_t exists = 0;
    u_kwexist(p, "fuzzed", &exists);
    const bool put = u_kwput_i(p, "fuzzed", 2385) == 1 && exists == 0;
    require(u_elemmove(p, n) == 1 && u_putelem(p, element.data()) == 1 && u_close(p) == 1);
    p = dov_open_any("file", "R", &code);
    require(p != nullptr && p->commonstuff.nelements == n + 1);
    std::int32_t value = 0;
    require(!put || (u_kwget_i(p, "fuzzed", &value) == 1 && value == 2385));
    u_close(p);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    use_memory_file();
    const allocator_watch watch;
    memory_file.assign(data, data + size);
    read_all();
    read_views();
    update();
    require(watch.live() == 0);
    return 0;
}
