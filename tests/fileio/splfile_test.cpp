#include "cu/splines.h"
#include "file_bytes.h"
#include "fileio/fileio.h"
#include "fileio/splfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace {

const test_folder &folder()
{
    static const test_folder made("fileio_splfile_test");
    return made;
}

std::string padded(std::string text, std::size_t size, char with)
{
    text.resize(size, with);
    return text;
}

// Breakpoints 1, 2.5 and 4 of order 2, as a PC writes them; the type header begins with byte 1044.
std::string spl_file()
{
    std::string bytes = from_hex("04016a00 00040000 c0000000 00010000 03000000 01") + std::string(1023, '\0') +
                        padded("two pieces", 103, ' ') + '\0' + from_hex("01000000 02000000") +
                        padded("range", 24, '\0') + padded("s", 24, '\0') + padded("km", 24, '\0') +
                        from_hex("01000000 00000000");
    for (const char *element : {"000000000000f03f 00000000 07000000 0000000000000040 000000000000e03f",
                                "0000000000000440 ffffffff 00000000 000000000000f0bf 0000000000000000",
                                "0000000000001040 00000000 feffffff 000000000000f0bf 0000000000000000"})
        bytes += padded(from_hex(element), 256, '\0');
    return bytes;
}

TEST(SplineFile, IsWrittenAndReadByItsBytes)
{
    const std::string name = folder()("bytes.spl");
    const spline e = make({1, 2.5, 4}, 2, {2, 0.5, -1, 0, -1, 0});
    for (const auto &[i, ncont, flg2] : {std::tuple{0, 0, 7}, {1, -1, 0}, {2, 0, -2}}) {
        e->brks[i].ncont = ncont;
        e->brks[i].flg2 = flg2;
    }
    EXPECT_EQ(espl_write(e.get(), name.c_str(), padded("two pieces", 103, ' ').c_str(), "range", "s", "km", 1), 1);
    EXPECT_EQ(read_bytes(name), spl_file());
    _dovfiletype *p = openspl(name.c_str(), "Old", 0);
    ASSERT_NE(p, nullptr) << getsplerror();
    for (const int mode : {0, 1}) {
        const spline read(espl_init_with_file(p, mode));
        ASSERT_NE(read, nullptr) << espl_error();
        EXPECT_EQ((std::vector{read->mode, read->ncoe, read->nbrks}), (std::vector{mode, 2, 3}));
        for (const double t : {-3.0, 1.0, 2.0, 2.5, 3.0, 4.0, 9.0})
            EXPECT_EQ(espl(read.get(), t, 0), t < 2.5 ? 2 + 0.5 * (t - 1) : -1) << t;
        const spline copy(espl_copy(read.get()));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(copy->brks[i].ncont * 100 + copy->brks[i].flg2, e->brks[i].ncont * 100 + e->brks[i].flg2);
    }
    int ncoe = 0;
    int ider = 0;
    char texts[3][spl_units_size];
    EXPECT_EQ(getsplkeys(p, &ncoe, texts[0], texts[1], texts[2], &ider), 1);
    EXPECT_EQ(std::string(texts[0]) + texts[1] + texts[2] + std::to_string(ncoe * 10 + ider), "rangeskm21");
    EXPECT_EQ(espl_init_with_file(p, 2), nullptr);
    EXPECT_EQ(espl_error(), -13);
    u_close(p);
}

TEST(SplineFile, IsRefusedWhereItIsDamaged)
{
    const std::string name = folder()("damaged.spl");
    constexpr std::size_t head = 1044;
    using row = std::tuple<std::size_t, const char *, int>; // offset, bytes, what reading them gives
    for (const auto &[offset, hex, code] :
         {row{2, "65", -12}, row{8, "bf000000", -11}, row{12, "80000000", -12}, row{head + 108, "03000000", -12},
          row{head + 108, "00000000", -12}, row{head + 108, "000000ff", -12}, row{head + 104, "0200000003000000", -5},
          row{16, "01000000", -16}, row{16, "00000000", -16}, row{16, "04000000", -6},
          row{head + 112, "414141414141414141414141414141414141414141414141", 1},
          row{head + 192, "000000000000f87f", 1}}) {
        std::string bytes = spl_file();
        bytes.replace(offset, from_hex(hex).size(), from_hex(hex));
        write_bytes(name, bytes);
        const spline e(espl_read(name.c_str()));
        EXPECT_EQ(espl_error(), code) << offset << " " << hex;
        EXPECT_EQ(getsplerror(), code == -16 ? 1 : code) << offset << " " << hex;
        EXPECT_EQ(e != nullptr, code == 1);
    }
    for (const auto &[mode, ncoe] : {std::pair{"New", 0}, {"C", -4}, {"N", 1 << 26}, {"x", 4}}) {
        EXPECT_EQ(openspl(name.c_str(), mode, ncoe), nullptr);
        EXPECT_EQ(getsplerror(), -13) << mode << ncoe;
    }
    double number = 0;
    int flag = 0;
    EXPECT_EQ((std::vector{getspl(nullptr, &number, &flag, &flag, &number), putspl(nullptr, 0, 0, 0, &number),
                           putsplkeys(nullptr, nullptr, "", "", "", nullptr)}),
              (std::vector(3, -10)));
    EXPECT_TRUE(espl_read(folder()("none").c_str()) == nullptr && espl_error() == -4);
    EXPECT_EQ(espl_write(make({1, 2}, 1, {1, 1}).get(), folder()("none/x").c_str(), "", "", "", "", 0), -4);
}

TEST(SplineFile, IsUpdatedUnderASplineThatReadsIt)
{
    const std::string name = folder()("update.spl");
    write_bytes(name, spl_file());
    _dovfiletype *p = openspl(name.c_str(), "Update", 0);
    spline on_file(espl_init_with_file(p, 1));
    double first = 0;
    double last = 0;
    EXPECT_EQ(u_firsttime(p, &first) + u_lasttime(p, &last) + u_kwput_i(p, "IDER", 3), 3);
    EXPECT_EQ((std::vector{first, last}), (std::vector{1.0, 4.0}));
    EXPECT_EQ(u_kwput_i(p, "ncoe", 3), -1);
    const double coe[] = {8, 0.25};
    EXPECT_EQ(u_timemove(p, 2) + putspl(p, 2.5, 1, 2, coe) + espl_rehash(on_file.get()), 3);
    EXPECT_EQ(espl(on_file.get(), 3, 0), 8.125);
    const std::string other = folder()("other.spl");
    EXPECT_EQ(espl_write(on_file.get(), other.c_str(), nullptr, std::string(99, 'x').c_str(), nullptr, nullptr, 0), 1);
    EXPECT_EQ(u_close(p), 1);
    EXPECT_EQ(read_bytes(name).substr(1044 + 184, 4), from_hex("03000000"));
    EXPECT_EQ(read_bytes(name).substr(1044 + 192 + 256, 32),
              from_hex("0000000000000440 01000000 02000000 0000000000002040 000000000000d03f"));
    EXPECT_EQ(read_bytes(other).substr(1044, 136),
              std::string(103, ' ') + '\0' + from_hex("01000000 02000000") + std::string(23, 'x') + '\0');
    EXPECT_EQ(espl(spline(espl_read(other.c_str())).get(), 3, 1), 0.25);
}

} // namespace
