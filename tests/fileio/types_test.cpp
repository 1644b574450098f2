#include "file_bytes.h"
#include "fileio/fileio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

const test_folder &folder()
{
    static const test_folder made("fileio_types_test");
    return made;
}

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

// Values that every machine's format can hold, different in every field.
void fill(std::span<const dov_field> fields, char *record, int seed)
{
    for (const dov_field &field : fields) {
        const int value = seed * 64 + field.offset / 2 + 1;
        const auto put = [&](auto v) { std::memcpy(record + field.offset, &v, sizeof v); };
        switch (field.form) {
        case dov_form::i2:
            put(static_cast<std::int16_t>(value));
            break;
        case dov_form::i4:
            put(value);
            break;
        case dov_form::f4:
            put(static_cast<float>(value) / 8);
            break;
        case dov_form::f8:
            put(value / 8.0);
            break;
        default:
            std::copy_n("text", 4, record + field.offset);
        }
    }
}

std::string filled_element(const dov_layout &layout, int seed)
{
    std::string element(static_cast<std::size_t>(layout.size), '\0');
    fill(layout.fields, element.data(), seed);
    for (int i = 0; i < layout.nitems; ++i)
        fill(layout.group, element.data() + layout.group_at + std::ptrdiff_t{i} * layout.group_size, seed + i);
    return element;
}

TEST(FileTypes, ReadWhatTheyWroteForEveryMachine)
{
    using count = std::pair<const char *, int>;
    for (const auto &[type, counts] : {std::pair{&iq_type, std::vector<count>{}},
                                       {&rea_type, {}},
                                       {&pks_type, {{"npks", 3}}},
                                       {&dop_type, {{"namp", 5}}},
                                       {&spl_type, {{"ncoe", 3}}},
                                       {&gat_type, {{"ngat", 7}, {"dattype", 1}}},
                                       {&gat_type, {{"ngat", 2}, {"dattype", 2}}},
                                       {&img_type, {{"nsamp", 9}}},
                                       {&vec_type, {{"nvec", 3}}}}) {
        for (int machine = 1; machine <= 5; ++machine) {
            const std::string name = folder()(type->name);
            std::string head(static_cast<std::size_t>(type->headsize), '\0');
            fill(type->header, head.data(), 2);
            dov_mend_head(*type, head.data());
            for (const auto &[field, value] : counts)
                std::memcpy(head.data() + dov_find_field(type->header, field)->offset, &value, 4);
            const dov_layout layout = type->layout(head.data());
            const int reserve = machine == 2 ? 0 : ressize;
            _dovfiletype *p = dov_create(*type, name.c_str(), head.data(), machine, reserve);
            ASSERT_NE(p, nullptr) << type->name << type->state->error;
            std::string elements;
            for (int i = 0; i < 5; ++i)
                elements += filled_element(layout, i);
            EXPECT_EQ(u_putelem(p, elements.data()), 1);
            EXPECT_EQ(dovfilewriteblock(p, elements.data() + layout.size, 4), 1);
            EXPECT_EQ(u_kwput_d(p, "x", 0.375), reserve > 0 ? 1 : -1);
            EXPECT_EQ(u_close(p), 1);

            int code = 0;
            p = dov_open_any(name.c_str(), "R", &code);
            ASSERT_NE(p, nullptr) << type->name << code;
            EXPECT_EQ(p->commonstuff.machine * 1000 + p->commonstuff.kw.filetype, machine * 1000 + type->code);
            std::string read(elements.size(), '\0');
            std::string head_read(head.size(), '\0');
            std::int32_t n = 0;
            double x = 0;
            EXPECT_EQ(u_gethead(p, head_read.data()) + u_getnelem(p, 5, read.data()) + u_nelem(p, &n), 3);
            EXPECT_EQ(read, elements) << type->name << machine;
            EXPECT_EQ(head_read, head) << type->name << machine;
            EXPECT_EQ(n, 5);
            u_kwget_d(p, "x", &x);
            EXPECT_EQ(x, reserve > 0 ? 0.375 : 0);
            // Times increase, and moving to one finds its element.
            for (int i = 0; i < 5; ++i) {
                double time = 0;
                std::int32_t next = 0;
                EXPECT_EQ(u_elemmove(p, i) + u_nexttime(p, &time), 2);
                EXPECT_EQ(u_timemove(p, time) + u_nextelem(p, &next), 2);
                EXPECT_EQ(next, i) << type->name;
                EXPECT_EQ(u_timemove(p, time + 0.01) + u_nextelem(p, &next), 2);
                EXPECT_EQ(next, i + 1) << type->name;
                EXPECT_EQ(u_getelem(p, read.data()), i < 4 ? 1 : -2);
            }
            std::int32_t items = 0;
            EXPECT_EQ(u_nitems(p, &items), 1);
            EXPECT_EQ(items, std::max(layout.nitems, 1));
            EXPECT_EQ(u_close(p), 1);
        }
    }
}

TEST(FileTypes, AreListedByTheirHeaderSizes)
{
    std::string listing;
    for (const dov_type *type : dov_types()) {
        const dov_field &last = type->header.back();
        EXPECT_EQ(last.offset + last.size, type->headsize);
        for (const char *keyword : type->keywords)
            EXPECT_NE(dov_find_field(type->header, keyword), nullptr) << keyword;
        listing += std::to_string(type->code) + type->name + std::to_string(type->headsize) + " ";
    }
    EXPECT_EQ(listing, "101iq144 102pks184 103rea144 105dop152 106spl192 109gat32 110img8 111vec8 ");
}

TEST(IqFile, OpensByModeTypeAndSizes)
{
    const std::string name = folder()("modes.iq");
    for (const auto &[mode, code] : {std::pair{"", -13}, {"x", -13}, {nullptr, -13}, {"o", -4}, {"Update", -4}}) {
        EXPECT_EQ(openiq(name.c_str(), mode), nullptr);
        EXPECT_EQ(getiqerror(), code) << mode;
    }
    for (const char *mode : {"New", "c", "Old", "read", "U"}) {
        _dovfiletype *iq = openiq(name.c_str(), mode);
        ASSERT_NE(iq, nullptr) << mode;
        EXPECT_EQ(getiqerror(), 1);
        EXPECT_EQ(u_close(iq), 1);
    }
    EXPECT_EQ(read_bytes(name), from_hex("04016500 00040000 90000000 08000000 00000000") + '\1' +
                                    std::string(1023, '\0') + from_hex("01000000 00000000") + std::string(103, ' ') +
                                    '\0' +
                                    from_hex("0000000000000000 000000000000f03f 0000000000000000 000000000000f03f"));
    const std::string good = iq_file(4);
    using row = std::tuple<std::size_t, std::string, int>;
    for (const auto &[offset, hex, code] :
         {row{2, "66", -12}, row{8, "8f000000", -11}, row{12, "04000000", -12}, row{180, "0000000000000000", -16},
          row{180, "000000000000f0bf", -16}, row{180, "000000000000f87f", -16}, row{196, "0000000000000080", -16},
          row{180, "000000000000f07f", 1}, row{60, "99999999", 1}}) {
        std::string bytes = good;
        bytes.replace(offset, hex.size() / 2, from_hex(hex));
        write_bytes(name, bytes);
        _dovfiletype *iq = openiq(name.c_str(), "R");
        EXPECT_EQ(iq != nullptr, code == 1);
        EXPECT_EQ(getiqerror(), code) << offset << " " << hex;
        if (iq != nullptr)
            u_close(iq);
    }
}

TEST(IqFile, IsDrivenThroughItsServices)
{
    const std::string name = folder()("services.iq");
    _dovfiletype *iq = openiq(name.c_str(), "New");
    const double t0 = 10;
    const double tbias = 0.5;
    const double zero = 0;
    EXPECT_EQ(putiqkeys(iq, &t0, &tbias, &zero, &not_a_number), 1);
    double time = 0;
    double keys[4];
    EXPECT_EQ(getiqkeys(iq, &keys[0], &keys[1], &keys[2], &keys[3]), 1);
    EXPECT_EQ(std::vector(keys, keys + 4), std::vector({10.0, 0.5, 1.0, 1.0}));
    EXPECT_EQ(u_lasttime(iq, &time), 1);
    EXPECT_EQ(time, 9);
    EXPECT_EQ(u_kwput_d(iq, "PRF ", 3) + u_timemove(iq, 100), 2);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(putiq(iq, i, -i), 1);
    std::int32_t n = 0;
    using move = std::pair<double, std::int32_t>;
    for (const auto &[t, element] : {move{-1e308, 0}, move{10, 0}, move{10.01, 1}, move{10 + 1 / 3.0, 1},
                                     move{10 + 2 / 3.0, 2}, move{12.999, 9}, move{13, 9}, move{13.01, 10},
                                     move{1e300, 10}, move{HUGE_VAL, 10}, move{-HUGE_VAL, 0}, move{not_a_number, 10}}) {
        EXPECT_EQ(u_timemove(iq, t) + u_nextelem(iq, &n), 2);
        EXPECT_EQ(n, element) << t;
    }
    for (const auto &[to, element] : {std::pair{-5, 0}, {7, 7}, {10, 10}, {2000000000, 10}}) {
        EXPECT_EQ(u_elemmove(iq, to) + u_nextelem(iq, &n), 2);
        EXPECT_EQ(n, element);
    }
    EXPECT_EQ(getiq(iq, &time, &keys[0], &keys[1]), -2);
    EXPECT_EQ(u_elemmove(iq, 8) + u_nexttime(iq, &time), 2);
    EXPECT_DOUBLE_EQ(time, 10 + 8 / 3.0);
    std::array<float, 4> samples{};
    EXPECT_EQ(u_getnelem(iq, 0, samples.data()), 1);
    EXPECT_EQ(u_getnelem(iq, -1, samples.data()), -13);
    EXPECT_EQ(u_getnelem(iq, 3, samples.data()), -2);
    EXPECT_EQ(u_getnelem(iq, 2, samples.data()), 1);
    EXPECT_EQ(samples, (std::array<float, 4>{8, -8, 9, -9}));
    std::array<std::int32_t, 5> sizes{};
    EXPECT_EQ(u_elemsize(iq, &sizes[0]) + u_headsize(iq, &sizes[1]) + u_nitems(iq, &sizes[2]) + u_type(iq, &sizes[3]) +
                  u_canwrite(iq, &sizes[4]),
              5);
    EXPECT_EQ(sizes, (std::array<std::int32_t, 5>{8, 144, 1, 101, 1}));
    char file[256];
    EXPECT_EQ(u_filename(iq, file), 1);
    EXPECT_EQ(file, name);
    for (const int opcode : {0, 20, -1})
        EXPECT_EQ(iq_service(iq, opcode, &n), -13);
    EXPECT_EQ(u_nelem(nullptr, &n) * 100 + u_error(), -1010);
    EXPECT_EQ(u_nelem(iq, nullptr) * 100 + u_error(), -1313);
    EXPECT_EQ(u_nelem(iq, &n) * 100 + u_error(), 101);
    EXPECT_EQ(u_reg(iq, nullptr) + u_nelem(iq, &n), -12);
    EXPECT_EQ(u_reg(iq, iq_service) + u_close(iq), 2);
}

TEST(IqFile, HasKeywordsOfItsHeaderFirst)
{
    const std::string name = folder()("keywords.iq");
    _dovfiletype *iq = openiq(name.c_str(), "New");
    std::int32_t n = 0;
    double x = 9;
    char text[128];
    EXPECT_EQ(u_kwget_n(iq, &n), 1);
    EXPECT_EQ(n, 5);
    EXPECT_EQ(u_kwget_s(iq, "text", text), 1);
    EXPECT_EQ(text, std::string(103, ' '));
    EXPECT_EQ(u_kwput_s(iq, "TEXT", std::string(200, 't').c_str()) + u_kwput_s(iq, "Text", "short"), 2);
    EXPECT_EQ(u_kwput_i(iq, "n", -3) + u_kwput_d(iq, "Real", 2.5) + u_kwput_s(iq, "word", "a b"), 3);
    for (const char *header : {"text", "t0", "TBIAS", "prf", "Xlam"})
        EXPECT_EQ(u_kwput_i(iq, header, 1) + u_kwdelete(iq, header), -2);
    EXPECT_EQ(u_kwput_d(iq, "xlam", -1) + u_kwput_d(iq, "t0", 4.75), 2);
    EXPECT_EQ(u_kwget_i(iq, "t0", &n) + u_kwget_d(iq, "XLAM", &x), 2);
    EXPECT_EQ(n + x, 5);
    EXPECT_EQ(u_kwget_d(iq, "absent", &x) + u_kwget_i(iq, "absent", &n) + u_kwget_s(iq, "absent", text), -3);
    EXPECT_EQ(std::to_string(x + n) + text, "0.000000");
    std::string listing;
    for (int i = -1; i < 9; ++i) {
        char keyword[64] = "unset";
        n = 9;
        listing += std::to_string(u_kwindx(iq, i, keyword, &n));
        listing += keyword + std::to_string(n) + " ";
    }
    EXPECT_EQ(listing, "-10 1text3 1t02 1tbias2 1prf2 1xlam2 1n1 1Real2 1word3 -10 ");
    const std::string longer(70, 'k');
    EXPECT_EQ(u_kwput_i(iq, longer.c_str(), 1) + u_kwexist(iq, longer.substr(0, 60).c_str(), &n), 2);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(u_kwdelete(iq, "REAL ") + u_kwexist(iq, "real", &n), 2);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(iq_keyword_service(iq, 12, text, &n), -1);
    EXPECT_EQ(u_close(iq), 1);
    iq = openiq(name.c_str(), "R");
    EXPECT_EQ(u_kwget_s(iq, "text", text) + u_kwget_i(iq, "n", &n), 2);
    EXPECT_EQ(text + std::to_string(n), "short-3");
    EXPECT_EQ(u_kwput_d(iq, "prf", 5), -15);
    EXPECT_EQ(u_kwput_d(iq, "other", 5), -1);
    EXPECT_EQ(u_close(iq), 1);
}

TEST(FileTypes, KeepTheCountsThatFixAnElement)
{
    for (const int count : {0, -1, 1 << 30})
        EXPECT_EQ(openpks(folder()("bad.pks").c_str(), "N", count), nullptr) << getpkserror();
    EXPECT_EQ(getiq(nullptr, nullptr, nullptr, nullptr) * 100 + putiq(nullptr, 0, 0), -1010);
    EXPECT_EQ(opengat(folder()("bad.gat").c_str(), "N", 1, 3), nullptr);
    EXPECT_EQ(getpkserror() * 100 + getgaterror(), -1313);
    const std::string name = folder()("counts.pks");
    _dovfiletype *pks = openpks(name.c_str(), "N", 3);
    EXPECT_EQ(putiq(pks, 0, 0) + getiqkeys(pks, nullptr, nullptr, nullptr, nullptr), -24);
    _pksheader head;
    EXPECT_EQ(u_gethead(pks, &head), 1);
    head.npks = 5;
    head.nfft = 512;
    head.prf = -1;
    EXPECT_EQ(u_puthead(pks, &head) + u_kwput_i(pks, "npks", 5) + u_kwput_i(pks, "lag", 4), 1);
    EXPECT_EQ(u_gethead(pks, &head), 1);
    EXPECT_EQ(std::vector({head.npks, head.nfft, head.lag, static_cast<int>(head.prf)}), std::vector({3, 512, 4, 1}));
    EXPECT_EQ(u_close(pks), 1);
    std::string bytes = read_bytes(name);
    bytes[1044 + 108] = 4;
    write_bytes(name, bytes);
    EXPECT_EQ(openpks(name.c_str(), "R", 0), nullptr);
    EXPECT_EQ(getpkserror(), -12);
    int code = 0;
    EXPECT_EQ(dov_open_any(name.c_str(), "R", &code), nullptr);
    EXPECT_EQ(code, -12);
}

TEST(GeneralFiles, ShowOtherTypesAsIqOrTrack)
{
    const std::string dop_name = folder()("view.dop");
    const std::string gat_name = folder()("view.gat");
    _dovfiletype *p = opendop(dop_name.c_str(), "N", 2);
    const std::array<_dopsample, 4> samples = {{{1, 2}, {3, 4}, {5, 6}, {7, -8}}};
    EXPECT_EQ(u_kwput_d(p, "scale", 0.5) + dovfilewriteblock(p, samples.data(), 2) + u_kwput_i(p, "n", 6) + u_close(p),
              4);
    p = opengat(gat_name.c_str(), "N", 2, gat_amplitudes);
    const struct {
        _gatlook look;
        float amp[2];
    } gates = {{7.5, 100, 0.25, 0.75}, {11, 12}};
    EXPECT_EQ(u_kwput_d(p, "prf", 8) + u_kwput_d(p, "incrng", 2.5) + u_putelem(p, &gates), 3);
    double incrng = 0;
    EXPECT_EQ(u_kwget_d(p, "incrng", &incrng) + u_close(p), 2);
    EXPECT_EQ(incrng, 2.5);

    p = opengeniq(dop_name.c_str());
    ASSERT_NE(p, nullptr) << getgeniqerror();
    std::array<_iqelement, 2> iq;
    std::int32_t n = 0;
    EXPECT_EQ(u_kwput_i(p, "iprime", 2), -1);
    EXPECT_EQ(u_kwput_i(p, "iprime", 1) + u_getnelem(p, 2, iq.data()) + u_kwget_i(p, "n", &n), 3);
    EXPECT_EQ(std::vector({iq[0].i, iq[0].q, iq[1].i, iq[1].q}), std::vector<float>({1.5, 2, 3.5, -4}));
    EXPECT_EQ(n, 6);
    char name[64];
    EXPECT_EQ(u_kwindx(p, 3, name, &n) + u_getelem(p, iq.data()), -1);
    EXPECT_EQ(name + std::to_string(n), "iprime1");
    EXPECT_EQ(u_putelem(p, iq.data()), -15);
    EXPECT_EQ(u_close(p), 1);

    p = opengeniq(gat_name.c_str());
    _iqheader head;
    EXPECT_EQ(u_kwput_d(p, "scale", 2) + u_getelem(p, iq.data()) + u_gethead(p, &head), 3);
    EXPECT_EQ(std::vector<double>({iq[0].i, iq[0].q, head.prf, head.xlam}), std::vector<double>({22, 0, 8, 1}));
    EXPECT_EQ(u_close(p), 1);

    p = opengenrea(gat_name.c_str());
    _reaelement track;
    EXPECT_EQ(u_getelem(p, &track), 1);
    EXPECT_EQ(std::vector<double>({track.time, track.range, track.elevation, track.azimuth, double(track.flag)}),
              std::vector<double>({7.5, 100, 0.25, 0.75, 1}));
    EXPECT_EQ(u_close(p), 1);
    EXPECT_EQ(opengenrea(dop_name.c_str()), nullptr);
    EXPECT_EQ(opengeniq("none"), nullptr);
    EXPECT_EQ(getgenreaerror() * 100 + getgeniqerror(), -1204);
}

} // namespace
