// The services of an IQ file: each byte, with what follows it, is one operation. A list of samples beside the file says
// what must be read, for files of every machine.

#include "fuzz.h"
#include "memory_file.h"

#include "fileio/fileio.h"
#include "support/allocator_watch.h"

#include <cmath>
#include <vector>

namespace {

struct operations {
    const std::uint8_t *at;
    const std::uint8_t *end;
    int next() { return at != end ? *at++ : 0; }
};

struct model {
    std::vector<_iqelement> samples;
    std::size_t place = 0;
};

void put(_dovfiletype *iq, model &m, int value)
{
    const _iqelement sample = {static_cast<float>(value), static_cast<float>(-value) / 2};
    require(u_putelem(iq, &sample) == 1);
    m.samples.resize(std::max(m.samples.size(), m.place + 1));
    m.samples[m.place++] = sample;
}

void get(_dovfiletype *iq, model &m, std::size_t n)
{
    std::vector<_iqelement> read(n + 1); // never without memory
    const bool there = n <= m.samples.size() - m.place;
    require(u_getnelem(iq, static_cast<int>(n), read.data()) == (there ? 1 : -2));
    for (std::size_t i = 0; there && i < n; ++i) {
        const _iqelement &expected = m.samples[m.place++];
        require(read[i].i == expected.i && read[i].q == expected.q);
    }
}

void keyword(_dovfiletype *iq, operations &ops)
{
    constexpr const char *names[] = {"text", "t0", "prf", "xlam", "a", "b"};
    const char *name = names[ops.next() % 6];
    const int value = ops.next();
    char text[dov_kw_string_size];
    std::int32_t integer = 0;
    double real = 0;
    switch (ops.next() % 6) {
    case 0:
        u_kwput_d(iq, name, value - 100);
        break;
    case 1:
        u_kwput_i(iq, name, value);
        break;
    case 2:
        u_kwput_s(iq, name, std::string(static_cast<std::size_t>(value), 't').c_str());
        break;
    case 3:
        u_kwdelete(iq, name);
        break;
    case 4:
        u_kwindx(iq, value - 1, text, &integer);
        break;
    default:
        u_kwget_d(iq, name, &real);
        u_kwget_i(iq, name, &integer);
        u_kwget_s(iq, name, text);
    }
    double keys[4];
    require(getiqkeys(iq, &keys[0], &keys[1], &keys[2], &keys[3]) == 1 && keys[2] > 0 && keys[3] > 0);
}

void step(_dovfiletype *iq, model &m, operations &ops)
{
    std::int32_t place = 0;
    switch (ops.next() % 6) {
    case 0:
        put(iq, m, ops.next());
        break;
    case 1:
        get(iq, m, static_cast<std::size_t>(ops.next()));
        break;
    case 2:
        require(u_elemmove(iq, ops.next() - 10) == 1);
        break;
    case 3:
        require(u_timemove(iq, ops.next() / 4.0 - 10) == 1);
        break;
    case 4:
        keyword(iq, ops);
        break;
    default:
        for (int i = ops.next() * 16; i-- > 0;)
            put(iq, m, i);
    }
    require(u_nextelem(iq, &place) == 1 && place >= 0 && static_cast<std::size_t>(place) <= m.samples.size());
    m.place = static_cast<std::size_t>(place);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    use_memory_file();
    const allocator_watch watch;
    operations ops = {data, data + size};
    model m;
    _iqheader head;
    dov_init_head(iq_type, &head);
    _dovfiletype *iq = dov_create(iq_type, "file", &head, 1 + ops.next() % 5, ressize);
    while (ops.at != ops.end) {
        step(iq, m, ops);
        if (ops.next() % 16 == 0) {
            require(u_close(iq) == 1);
            iq = openiq("file", "U");
            require(iq != nullptr);
            m.place = 0;
        }
    }
    m.place = 0;
    require(u_elemmove(iq, 0) == 1);
    get(iq, m, m.samples.size());
    require(u_close(iq) == 1 && watch.live() == 0);
    return 0;
}
