#include "file_bytes.h"
#include "fileio/dovstream.h"
#include "fileio/fileio.h"
#include "support/allocator_watch.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <vector>

namespace {

namespace fs = std::filesystem;

const test_folder &folder()
{
    static const test_folder made("fileio_damage_test");
    return made;
}

// Everything a file holds, or the code with which it is refused.
std::string contents(const std::string &name)
{
    int code = 0;
    _dovfiletype *p = dov_open_any(name.c_str(), "R", &code);
    if (p == nullptr)
        return std::to_string(code);
    std::string all(static_cast<std::size_t>(dov_type_of(p->commonstuff.kw.filetype)->headsize), '\0');
    EXPECT_EQ(u_gethead(p, all.data()), 1);
    std::int32_t n = 0;
    EXPECT_EQ(u_kwget_n(p, &n), 1);
    for (int i = 0; i < n; ++i) {
        char keyword[64];
        char text[dov_kw_string_size];
        std::int32_t value = 0;
        double real = 0;
        u_kwindx(p, i, keyword, &value);
        all += keyword + std::to_string(value);
        u_kwget_d(p, keyword, &real);
        u_kwget_i(p, keyword, &value);
        u_kwget_s(p, keyword, text);
        all += std::to_string(real) + std::to_string(value) + text;
    }
    std::vector<char> element(static_cast<std::size_t>(p->commonstuff.elemsize));
    while (u_getelem(p, element.data()) == 1)
        all.append(element.data(), element.size());
    EXPECT_EQ(p->commonstuff.nextelem, p->commonstuff.nelements);
    EXPECT_EQ(u_timemove(p, 10.25), 1);
    EXPECT_EQ(u_close(p), 1);
    return all;
}

// In place, which is a hundred times faster than writing the file anew.
void put_byte(const std::string &name, std::size_t offset, char byte)
{
    std::fstream file(name, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(offset));
    file.put(byte);
}

bool is_named_error(const std::string &outcome)
{
    return outcome.size() < 4 && std::string(dovfileerrortext(std::stoi(outcome))) != "unknown error";
}

// A file of a type with counted items, in a foreign format, with a reserved area.
std::string made_file(const dov_type &type, int machine)
{
    const std::string name = folder()("made");
    std::vector<char> head(static_cast<std::size_t>(type.headsize));
    dov_init_head(type, head.data());
    for (const char *count : type.counts)
        head[static_cast<std::size_t>(dov_find_field(type.header, count)->offset)] = 2;
    _dovfiletype *p = dov_create(type, name.c_str(), head.data(), machine, 40);
    const std::vector<char> elements(static_cast<std::size_t>(3 * type.layout(head.data()).size), '\0');
    EXPECT_EQ(u_kwput_s(p, "word", "text") + u_kwput_d(p, "x", 2.5) + dovfilewriteblock(p, elements.data(), 3), 3);
    EXPECT_EQ(u_close(p), 1);
    return read_bytes(name);
}

TEST(DamagedFiles, GiveTheirValuesOtherValuesOrANamedError)
{
    const std::string name = folder()("damaged");
    const allocator_watch watch;
    for (const std::string &good : {iq_file(1), iq_file(3), iq_file(4), iq_file(5), made_file(gat_type, 5),
                                    made_file(dop_type, 3), made_file(vec_type, 1)}) {
        write_bytes(name, good);
        const std::string whole = contents(name);
        EXPECT_FALSE(is_named_error(whole));
        std::map<bool, int> outcomes;
        for (std::size_t bit = 0; bit < 8 * good.size(); ++bit) {
            put_byte(name, bit / 8, static_cast<char>(good[bit / 8] ^ (1 << bit % 8)));
            const std::string outcome = contents(name);
            const bool refused = outcome.size() < 4;
            EXPECT_EQ(refused, is_named_error(outcome)) << bit;
            ++outcomes[refused];
            put_byte(name, bit / 8, good[bit / 8]);
        }
        EXPECT_GT(outcomes[true], 100);
        EXPECT_GT(outcomes[false], 100);
        EXPECT_EQ(contents(name), whole);
        for (std::size_t size = good.size(); size-- > 0;) {
            fs::resize_file(name, size);
            EXPECT_EQ(contents(name), "-6") << size;
        }
    }
    EXPECT_EQ(watch.live(), 0U);
}

// The nth of all calls to the system fails, or for writes does half of what it was to do.
int calls_until_failure = 0;
bool half_done = false;
const dov_system standard_io = dov_io;

bool fails()
{
    return --calls_until_failure == 0;
}

struct failing_system {
    failing_system(int nth, bool half)
    {
        calls_until_failure = nth;
        half_done = half;
        dov_io = {[](const char *name, bool update) { return fails() ? -1 : standard_io.open(name, update); },
                  [](const char *name) { return fails() ? -1 : standard_io.create(name); },
                  [](int handle, void *buf, std::int64_t n) { return fails() ? -1 : standard_io.read(handle, buf, n); },
                  [](int handle, const void *buf, std::int64_t n) {
                      if (calls_until_failure > 1 || calls_until_failure < 0)
                          return --calls_until_failure, standard_io.write(handle, buf, n);
                      if (calls_until_failure-- == 1 && half_done && n > 1) {
                          ++calls_until_failure; // and the rest of it fails
                          half_done = false;
                          return standard_io.write(handle, buf, n / 2);
                      }
                      return std::int64_t{-1};
                  },
                  [](int handle, std::int64_t offset, int origin) {
                      return fails() ? -1 : standard_io.seek(handle, offset, origin);
                  },
                  standard_io.close};
    }
    ~failing_system() { dov_io = standard_io; }
};

// Appends to an IQ file, returning whether everything went well.
bool append(const std::string &name, int n)
{
    _dovfiletype *iq = openiq(name.c_str(), "U");
    if (iq == nullptr)
        return false;
    bool good = u_timemove(iq, 1e9) == 1;
    for (int i = 0; good && i < n; ++i)
        good = putiq(iq, i, 0.5) == 1;
    const std::vector<float> block(400000, 0.25F); // more than the buffer holds
    good = good && dovfilewriteblock(iq, block.data(), 200000) == 1;
    double sample[3];
    good = good && u_elemmove(iq, 1) == 1 && getiq(iq, &sample[0], &sample[1], &sample[2]) == 1;
    good = good && u_kwput_i(iq, "n", 7) == 1 && u_kwput_d(iq, "tbias", 0.25) == 1;
    return u_close(iq) == 1 && good;
}

TEST(FailingSystem, LeavesWhatWasThereBefore)
{
    const std::string name = folder()("failing");
    for (const int machine : {3, 4}) {
        write_bytes(name, iq_file(machine));
        const std::string before = contents(name);
        for (const bool half : {false, true}) {
            bool good = false;
            for (int nth = 1; !good; ++nth) {
                ASSERT_LT(nth, 200);
                write_bytes(name, iq_file(machine));
                const allocator_watch watch;
                {
                    const failing_system system(nth, half);
                    good = append(name, 20000) && calls_until_failure > 0;
                }
                EXPECT_EQ(watch.live(), 0U) << nth;
                const std::string after = contents(name);
                const std::size_t samples = before.size() - 16;
                EXPECT_EQ(after.substr(0, 144), before.substr(0, 144)) << nth; // the order of keywords may differ
                EXPECT_NE(after.find(before.substr(samples)), std::string::npos) << nth;
                EXPECT_TRUE(!good || after.size() == before.size() + 1760000);
            }
        }
        bool good = false;
        for (int nth = 1; !good; ++nth) {
            ASSERT_LT(nth, 100);
            write_bytes(name, iq_file(machine));
            const allocator_watch watch(nth);
            good = append(name, 10);
            EXPECT_EQ(watch.live(), 0U) << nth;
        }
    }
}

// A copy of the file at any moment is what a process that is killed then leaves.
TEST(KilledProcess, LeavesAFileThatOpens)
{
    const std::string name = folder()("killed");
    const std::string copy = folder()("copy");
    const auto elements_there = [&] {
        write_bytes(copy, read_bytes(name));
        _dovfiletype *p = openiq(copy.c_str(), "R");
        EXPECT_NE(p, nullptr) << getiqerror();
        std::int32_t n = -1;
        u_nelem(p, &n);
        u_close(p);
        return n;
    };
    for (const int before : {0, 2}) {
        if (before == 2)
            write_bytes(name, iq_file(3));
        _dovfiletype *iq = openiq(name.c_str(), before == 2 ? "U" : "N");
        ASSERT_NE(iq, nullptr);
        EXPECT_EQ(u_timemove(iq, 1e9), 1);
        for (int i = 0; i < 300000; ++i) {
            EXPECT_EQ(putiq(iq, i, i), 1);
            EXPECT_TRUE(i % 50000 != 1 || elements_there() == before);
        }
        EXPECT_EQ(u_kwput_d(iq, "prf", 5), 1);
        EXPECT_EQ(elements_there(), before);
        EXPECT_EQ(u_close(iq), 1);
        EXPECT_EQ(elements_there(), before + 300000);
    }
}

// A disk with room for some elements only keeps those.
TEST(FullDisk, KeepsTheElementsThatFit)
{
    const std::string name = folder()("full");
    static std::int64_t room;
    for (const int machine : {1, 4}) {
        write_bytes(name, iq_file(machine));
        _dovfiletype *iq = openiq(name.c_str(), "U");
        room = 1100003; // bytes, not whole elements
        dov_io.write = [](int handle, const void *buf, std::int64_t n) {
            const std::int64_t some = std::min(n, room);
            room -= some;
            return some > 0 ? standard_io.write(handle, buf, some) : -1;
        };
        EXPECT_EQ(u_timemove(iq, 1e9), 1);
        int code = 1;
        int written = 0;
        for (; code == 1 && written < 1000000; ++written)
            code = putiq(iq, written, 0.5);
        EXPECT_EQ(code, -7);
        EXPECT_EQ(iq->commonstuff.nelements, 2 + 1100003 / 8);
        EXPECT_EQ(iq->commonstuff.nextelem, 2 + 1100003 / 8);
        room = 1064;
        EXPECT_EQ(u_close(iq), 1);
        dov_io = standard_io;
        iq = openiq(name.c_str(), "R");
        ASSERT_NE(iq, nullptr);
        double sample[3];
        EXPECT_EQ(u_elemmove(iq, 137501) + getiq(iq, &sample[0], &sample[1], &sample[2]), 2);
        EXPECT_EQ(sample[1], 137499);
        EXPECT_EQ(getiq(iq, &sample[0], &sample[1], &sample[2]), -2);
        EXPECT_EQ(u_close(iq), 1);
    }
}

} // namespace
