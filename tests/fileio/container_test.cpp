#include "file_bytes.h"
#include "fileio/dovstream.h"
#include "fileio/fileio.h"
#include "fileio/iqfile.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace {

const test_folder &folder()
{
    static const test_folder made("fileio_container_test");
    return made;
}

int open_code(const std::string &name, bool update = false)
{
    int type = 0;
    int headsize = 0;
    int elemsize = 0;
    _dovfiletype *p = update ? dovfileupdate(name.c_str(), &type, &headsize, &elemsize)
                             : dovfileopen(name.c_str(), &type, &headsize, &elemsize);
    if (p == nullptr)
        return dovfileerror();
    EXPECT_EQ(dovfileerror(), 1);
    return dovfileclose(p);
}

TEST(Container, IsCreatedWholeAndNative)
{
    const std::string name = folder()("new.dov");
    _dovfiletype *p = dovfilecreate(name.c_str(), 200, 3, 5);
    ASSERT_NE(p, nullptr);
    const std::string header = from_hex("0401c800 00040000 03000000 05000000 00000000") + '\1';
    const std::string at_once = read_bytes(name);
    EXPECT_EQ(at_once, header + std::string(1023 + 3, '\0'));
    EXPECT_EQ(dovfilewriteblock(p, "11111222223333344444", 4), 1);
    EXPECT_EQ(dovfileputhead(p, "abc"), 1);
    EXPECT_EQ(dovfilewriteelement(p, "55555", 1), 1);
    EXPECT_EQ(p->commonstuff.curpos * 100 + p->commonstuff.nextelem * 10 + p->commonstuff.lastoper, 221);
    std::array<char, 20> block{};
    EXPECT_EQ(dovfilereadblock(p, block.data(), 2), 1);
    EXPECT_EQ(std::string(block.data()), "3333344444");
    EXPECT_EQ(dovfilereadblock(p, block.data(), 1), -2);
    EXPECT_EQ(p->commonstuff.curpos * 100 + p->commonstuff.nextelem * 10 + p->commonstuff.lastoper, 442);
    const std::vector<char> many(1500000, 'm');
    EXPECT_EQ(dovfilewriteblock(p, many.data(), 300000), 1); // past the buffer
    EXPECT_EQ(dovfilereadelement(p, block.data(), 300003), 1);
    EXPECT_EQ(dovfilewriteelement(p, "66666", 0), 1);
    std::int32_t last = 0;
    std::int32_t next = 0;
    int mode = 7;
    EXPECT_EQ(dovfilemaxelement(p, &last) + dovfilenextelement(p, &next) + dovfilemode(p, &mode), 3);
    EXPECT_EQ(last * 100 + next * 10 + mode, 30000310);
    EXPECT_EQ(dovfileclose(p), 1);
    EXPECT_EQ(read_bytes(name), from_hex("0401c800 00040000 03000000 05000000 e4930400") + '\1' +
                                    std::string(1023, '\0') + "abc66666555553333344444" + std::string(1500000, 'm'));
    int machine = 0;
    EXPECT_EQ(dovfiletype(name.c_str()) * 10 + dovfilemachine(name.c_str(), &machine), 2001);
    EXPECT_EQ(machine, 4);
    EXPECT_EQ(dovfiletype("none") * 10 + dovfilemachine("none", &machine), -10);
}

TEST(Container, RefusesWhatCannotBeDone)
{
    const std::string name = folder()("limits.dov");
    int n = 0;
    EXPECT_EQ(dovfileclose(nullptr), -10);
    for (const int code :
         {dovfileseek(nullptr, 0), dovfilereadblock(nullptr, &n, 1), dovfilewriteblock(nullptr, &n, 1),
          dovfilegethead(nullptr, &n), dovfileputhead(nullptr, &n), dovfilemode(nullptr, &n),
          dovfileconvert(nullptr, nullptr, nullptr, 0, 0), dovfilereadelement(nullptr, &n, 0), dovfileerror()})
        EXPECT_EQ(code, -10);
    EXPECT_EQ(dovfilecreate(folder()("none/x").c_str(), 1, 0, 1), nullptr);
    EXPECT_EQ(dovfileerror(), -4);
    EXPECT_EQ(open_code(folder()("")), -4) << "a directory";
    _dovfiletype *p = dovfilecreate(name.c_str(), 200, 0, 4);
    EXPECT_EQ(dovfilewriteblock(p, "aaaabbbb", 2), 1);
    using row = std::pair<int, int>;
    for (const auto &[to, code] : {row{2, 1}, row{3, -9}, row{-1, -9}, row{0, 1}})
        EXPECT_EQ(dovfileseek(p, to), code) << to;
    EXPECT_EQ(dovfilereadblock(p, &n, -1), -13);
    EXPECT_EQ(dovfilewriteblock(p, &n, -1), -13);
    EXPECT_EQ(dovfilereadblock(p, nullptr, 0) + dovfilewriteblock(p, nullptr, 0), 2);
    EXPECT_EQ(dovfilereadblock(p, &n, 3), -2);
    EXPECT_EQ(p->commonstuff.nextelem, 0);
    EXPECT_EQ(dovfileconvert(p, nullptr, nullptr, 0, 3), -13);
    EXPECT_EQ(dovfileconvert(p, nullptr, nullptr, 0, 6), 1); // wider in memory: converters are needed now
    std::array<char, 6> wide;
    EXPECT_EQ(dovfilereadblock(p, wide.data(), 1), -14);
    EXPECT_EQ(p->commonstuff.nextelem, 1) << "it was read";
    EXPECT_EQ(dovfilewriteblock(p, wide.data(), 1), -14);
    EXPECT_EQ(dovfilegethead(p, wide.data()), -14);
    EXPECT_EQ(dovfileputhead(p, wide.data()), -14);
    EXPECT_EQ(dovfileclose(p), 1);

    const std::string before = read_bytes(name);
    int type = 0;
    p = dovfileopen(name.c_str(), &type, &n, &n);
    EXPECT_EQ(dovfilewriteblock(p, "cccc", 1), -15);
    EXPECT_EQ(dovfileputhead(p, ""), -15);
    EXPECT_EQ(dovfile_res_put_int(p, "n", 1) + dovfile_res_delete(p, "n"), -2);
    dovfile_res_new(p);
    EXPECT_EQ(dovfileclose(p), 1);
    EXPECT_EQ(read_bytes(name), before);
}

// Elements of 3 bytes in the file, 5 in memory: the converters put a frame around them.
TEST(Container, WidensElements)
{
    const std::string name = folder()("wide.dov");
    _dovfiletype *p = dovfilecreate(name.c_str(), 200, 0, 3);
    const auto head = [](_dovfiletype *, void *, int) {};
    const auto element = [](_dovfiletype *, void *buffer, int direction) {
        auto *c = static_cast<char *>(buffer);
        if (direction == dov_to_file) {
            std::memmove(c, c + 1, 3);
        } else {
            std::memmove(c + 1, c, 3);
            c[0] = '<';
            c[4] = '>';
        }
    };
    EXPECT_EQ(dovfileconvert(p, head, element, 0, 5), 1);
    EXPECT_EQ(dovfilewriteblock(p, "<abc><def><ghi>", 3), 1);
    std::array<char, 16> elements{};
    EXPECT_EQ(dovfileseek(p, 0), 1);
    EXPECT_EQ(dovfilereadblock(p, elements.data(), 3), 1);
    EXPECT_STREQ(elements.data(), "<abc><def><ghi>");
    EXPECT_EQ(dovfileclose(p), 1);
    EXPECT_EQ(read_bytes(name).substr(1044), "abcdefghi");
}

TEST(Container, OpensOnlyWhatIsWhole)
{
    const std::string name = folder()("damaged.dov");
    const std::string good = iq_file(4);
    using row = std::tuple<std::size_t, const char *, int>; // offset, bytes put there, code
    for (const auto &[offset, bytes, code] :
         {row{0, "04", 1},         row{0, "00", -14},       row{0, "06", -14},        row{0, "ff", -14},
          row{0, "0002", -14},     row{1, "02", -5},        row{1, "00", -5},         row{4, "ffffff7f", -6},
          row{4, "ffffffff", -9},  row{4, "00000080", -9},  row{4, "39000000", -6},   row{8, "a1000000", -6},
          row{8, "ffffff7f", -6},  row{8, "ffffffff", -9},  row{12, "00000000", -6},  row{12, "ffffffff", -6},
          row{12, "ffffff7f", -6}, row{16, "03000000", -6}, row{16, "ffffffff", -12}, row{16, "00000080", -12},
          row{16, "ffffff7f", -6}, row{16, "01000000", 1},  row{3, "55", 1}}) {
        std::string damaged = good;
        damaged.replace(offset, std::strlen(bytes) / 2, from_hex(bytes));
        write_bytes(name, damaged);
        for (const bool update : {false, true})
            EXPECT_EQ(open_code(name, update), code) << offset << ": " << bytes;
        EXPECT_EQ(read_bytes(name), damaged);
    }
    for (std::size_t size = 0; size <= good.size(); ++size) {
        write_bytes(name, good.substr(0, size));
        EXPECT_EQ(open_code(name), size == good.size() ? 1 : -6) << size;
    }
    write_bytes(name, good + "tail");
    EXPECT_EQ(open_code(name), 1);
}

TEST(Container, KeepsTheFormatOfAForeignFile)
{
    for (const int machine : {1, 3, 4, 5}) {
        const std::string name = folder()("foreign.iq");
        const std::string bytes = iq_file(machine);
        write_bytes(name, bytes);
        _dovfiletype *iq = openiq(name.c_str(), "Update");
        ASSERT_NE(iq, nullptr) << machine;
        double t0 = 0;
        double tbias = 0;
        double prf = 0;
        double xlam = 0;
        EXPECT_EQ(getiqkeys(iq, &t0, &tbias, &prf, &xlam), 1);
        EXPECT_EQ(std::vector({t0, tbias, prf, xlam}), std::vector({10.0, 0.25, 4.0, 2.0}));
        std::vector<double> read(6);
        for (std::size_t i = 0; i < 6; i += 3)
            EXPECT_EQ(getiq(iq, &read[i], &read[i + 1], &read[i + 2]), 1);
        EXPECT_EQ(read, std::vector({10.0, 1.0, -2.0, 10.25, 0.5, 3.0}));
        std::int32_t n = 0;
        double x = 0;
        EXPECT_EQ(u_kwget_i(iq, "N", &n) + u_kwget_d(iq, "x  ", &x), 2);
        EXPECT_EQ(n + x, 8.5);
        // The same again leaves the same bytes; more elements have the file's format too.
        EXPECT_EQ(putiqkeys(iq, &t0, &tbias, &prf, &xlam), 1);
        EXPECT_EQ(u_kwput_i(iq, "n", 8) + u_kwput_d(iq, "x", 1.5) + u_kwput_i(iq, "n", 7) + u_kwdelete(iq, "none"), 4);
        EXPECT_EQ(u_kwput_d(iq, "x", 1.5), 1);
        EXPECT_EQ(u_elemmove(iq, 0), 1);
        EXPECT_EQ(putiq(iq, 1, -2) + putiq(iq, 0.5, 3) + putiq(iq, -2, 0.5), 3);
        EXPECT_EQ(u_close(iq), 1);
        std::string expected = bytes + bytes.substr(bytes.size() - 12, 4) + bytes.substr(bytes.size() - 8, 4);
        expected[machine == 3 ? 19 : 16] = 3;
        EXPECT_EQ(read_bytes(name), expected) << machine;
    }
}

TEST(ReservedArea, IsAbsentOrReplaced)
{
    const std::string name = folder()("reserved.iq");
    for (const char *first : {"01", "02"}) {
        std::string bytes = iq_file(4);
        bytes.replace(20, 1, from_hex(first));
        write_bytes(name, bytes);
        const int present = bytes[20] == 1 ? 1 : -1;
        _dovfiletype *p = openiq(name.c_str(), "u");
        std::int32_t n = 9;
        std::int32_t type = 9;
        double x = 9;
        char text[128] = "9";
        EXPECT_EQ(dovfile_res_get_n(p, &n), 1);
        EXPECT_EQ(n, present == 1 ? 2 : 0);
        EXPECT_EQ(dovfile_res_get_int(p, "n", &n), present);
        EXPECT_EQ(dovfile_res_get_dbl(p, "x", &x), present);
        EXPECT_EQ(dovfile_res_get_str(p, "n", text), -1);
        EXPECT_EQ(std::to_string(n) + std::to_string(x) + text, present == 1 ? "71.500000" : "00.000000");
        EXPECT_EQ(dovfile_res_exist(p, "X", &n), present);
        EXPECT_EQ(n, present == 1 ? 1 : 0);
        EXPECT_EQ(dovfile_res_get_indx(p, 1, text, &type), present);
        EXPECT_EQ(text + std::to_string(type), present == 1 ? "x2" : "0");
        EXPECT_EQ(dovfile_res_get_indx(p, 2, text, &type), -1);
        EXPECT_EQ(dovfile_res_delete(p, "absent"), present);
        EXPECT_EQ(dovfile_res_put_str(p, "much", std::string(50, 'm').c_str()), -1);
        EXPECT_EQ(dovfile_res_new(p), 1);
        EXPECT_EQ(dovfile_res_put_str(p, "new", "text"), 1);
        EXPECT_EQ(dovfileclose(p), 1);
        EXPECT_EQ(read_bytes(name).substr(20, 13), std::string("\1\x0c\3\5text\0new\0", 13));
    }
    for (const int opcode : {0, 12, -1})
        EXPECT_EQ(dovkwdef(nullptr, opcode, nullptr, nullptr), -10);
}

TEST(Container, HandlesFilesBeyondTwoGigabytes)
{
    const std::string name = folder()("large.dov");
    constexpr int megabyte = 1 << 20;
    constexpr std::int32_t n = 2500;
    write_bytes(name, from_hex("0401c800 00000000 00000000 00001000 c4090000"));
    std::filesystem::resize_file(name, 20 + std::uintmax_t{n} * megabyte);
    int type = 0;
    int size = 0;
    _dovfiletype *p = dovfileupdate(name.c_str(), &type, &size, &size);
    ASSERT_NE(p, nullptr) << dovfileerror();
    std::vector<char> element(megabyte, 'e');
    EXPECT_EQ(dovfilewriteelement(p, element.data(), n - 1), 1);
    element.assign(megabyte, '\0');
    EXPECT_EQ(dovfilereadelement(p, element.data(), n - 1), 1);
    EXPECT_EQ(element[megabyte - 1], 'e');
    EXPECT_EQ(dovfilereadelement(p, element.data(), n - 2), 1);
    EXPECT_EQ(element[megabyte - 1], '\0');
    EXPECT_EQ(dovfileclose(p), 1);
    EXPECT_EQ(std::filesystem::file_size(name), 20 + std::uintmax_t{n} * megabyte);
}

} // namespace
