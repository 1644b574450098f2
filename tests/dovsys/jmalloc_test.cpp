#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/allocator_watch.h"
#include "support/process.h"

#include <algorithm>
#include <climits>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

bool all_zero(const void *p, int n)
{
    const char *bytes = static_cast<const char *>(p);
    return std::all_of(bytes, bytes + n, [](char c) { return c == 0; });
}

bool aligned(const void *p, int nalign)
{
    return reinterpret_cast<std::uintptr_t>(p) % static_cast<std::uintptr_t>(nalign) == 0;
}

class Memory : public testing::Test {
protected:
    Memory() { restart(nullptr); }
    ~Memory() override { restart(nullptr); }

    // As if the process began with this value of JUSED.
    static void restart(const char *value)
    {
        jmalloc_reset();
        jmalloc_nomm_reset();
        set_environment("JUSED", value);
    }
};

class Accounting : public Memory {
protected:
    Accounting() { restart("no"); }
};

TEST_F(Memory, BlocksAreZeroedAndNotCounted)
{
    for (const int n : {INT_MIN, -1, 0, 3, 8, 4001}) {
        void *p = jmalloc(n);
        EXPECT_TRUE(all_zero(p, std::max(n, 8))) << n;
        p = jrealloc(p, -n / 2);
        EXPECT_TRUE(all_zero(p, 8)) << n;
        jfree(p);
    }
    jfree(nullptr);
    jfree(std::malloc(5));
    set_environment("JUSED", "1"); // too late
    const jmalloc_ptr<void> uncounted(jmalloc(5));
    EXPECT_EQ(jused(), 0);
    EXPECT_EQ(findslot(uncounted.get()), -1);
}

TEST_F(Accounting, BeginsAtTheFirstAllocationForGood)
{
    void *before = jjrealloc(std::malloc(20), 30); // does not ask yet
    void *counted = jjmalloc(3);
    set_environment("JUSED", nullptr);
    void *more = jjmalloc(0);
    EXPECT_EQ(jused(), 16);
    EXPECT_EQ(findslot(before), -1);
    jfree(counted);
    jfree(more);
    EXPECT_EQ(jused(), 0);
    std::free(before);
}

TEST_F(Accounting, ReusesTheLowestSlotAsAScanOfTheMapWould)
{
    std::vector<void *> map;
    std::vector<int> sizes;
    std::mt19937 random(2385);
    for (int step = 0; step < 40000; ++step) {
        const int n = static_cast<int>(random() % 300);
        std::size_t slot = random() % 4000;
        if (step < 10000 || slot >= map.size() || map[slot] == nullptr) {
            slot = static_cast<std::size_t>(std::find(map.begin(), map.end(), nullptr) - map.begin());
            map.resize(std::max(map.size(), slot + 1));
            sizes.resize(map.size());
            ASSERT_EQ(getslot(), static_cast<int>(slot));
            map[slot] = jmalloc(n);
        } else if (n % 2 == 0) {
            map[slot] = jrealloc(map[slot], n);
        } else {
            jfree(map[slot]);
            map[slot] = nullptr;
        }
        sizes[slot] = map[slot] != nullptr ? std::max(n, 8) : 0;
        ASSERT_EQ(findslot(map[slot]), map[slot] != nullptr ? static_cast<int>(slot) : -1);
    }
    EXPECT_EQ(jused(), std::accumulate(sizes.begin(), sizes.end(), 0));
    std::for_each(map.begin(), map.end(), jfree);
    EXPECT_EQ(jused(), 0);
}

TEST_F(Accounting, AFailureOnlyTakesAResizedBlockOutOfTheAccount)
{
    void *kept = jmalloc(40);
    void *other = jmalloc(60);
    const std::function<void *()> actions[] = {[] { return jjmalloc(50); }, [] { return jjrealloc(nullptr, 50); },
                                               [kept] { return jjrealloc(kept, 1000); }};
    for (const auto &action : actions) {
        EXPECT_EQ(jused(), 100);
        EXPECT_EQ(getslot(), 2);
        const allocator_watch watch(1);
        EXPECT_EQ(action(), nullptr);
    }
    EXPECT_EQ(jused(), 60);
    EXPECT_EQ(findslot(kept), -1);
    EXPECT_EQ(getslot(), 0);
    std::free(kept); // it still exists
    jfree(other);
}

TEST_F(Accounting, EndsTheProcessWithAMessage)
{
    struct row {
        int failing;
        std::function<void()> action;
        const char *message;
    };
    int foreign = 0;
    const auto fill_first_map = [] {
        std::vector<void *> blocks(501);
        std::generate(blocks.begin(), blocks.end(), [] { return jmalloc(8); });
    };
    const auto free_middle_twice = [] { // it is listed still
        jmalloc_align(8, 8);
        void *middle = jmalloc_align(8, 8);
        jmalloc_align(8, 8);
        jfree_align(middle);
        jfree_align(middle);
    };
    const row rows[] = {
        {0, [&] { jfree(&foreign); }, "Bad pointer in jfree\\(\\)\\."},
        {0, [&] { jfree(jmalloc(8)), jfree(&foreign); }, "Bad pointer in jfree\\(\\)\\."},
        {0, free_middle_twice, "Bad pointer in jfree\\(\\)\\."},
        {0, [&] { jrealloc(&foreign, 10); }, "Bad pointer in jjrealloc\\(\\)\\."},
        {1, [] { jmalloc(3); }, "Out of memory in jmalloc on request for 3 bytes\\."},
        {0, [] { jmalloc_align(INT_MAX, 16); }, "Out of memory in jmalloc on request for 2147483647 bytes\\."},
        {1, [] { jrealloc(nullptr, -7); }, "Out of memory in jrealloc request for -7 bytes\\."},
        {4, [] { jrealloc(jmalloc(8), 5); }, "Out of memory in jrealloc request for 5 bytes\\."},
        {0, [] { jrealloc_align(jmalloc_align(8, 8), INT_MAX, 8); },
         "Out of memory in jrealloc request for 2147483647 bytes\\."},
        {2, [] { jmalloc(8); }, "Out of memory while updating memory map\\."},
        {3, [] { jmalloc(8); }, "Out of memory while updating memory map\\."},
        {504, fill_first_map, "Out of memory while updating memory map\\."},
        {505, fill_first_map, "Out of memory while updating memory map\\."},
    };
    for (const row &r : rows) {
        const auto run = [&r] {
            getjenv();
            const allocator_watch watch(r.failing);
            r.action();
        };
        const std::string line = std::string("\nError: ").append(r.message).append("\r?\n");
        EXPECT_ENDS(run(), status_minus_one, line.c_str());
    }
}

TEST_F(Accounting, AlignedBlocksLieAtMultiplesOfTheAlignment)
{
    void *first = jmalloc_align(10, 16);
    EXPECT_TRUE(aligned(first, 16));
    EXPECT_TRUE(all_zero(first, 10));
    EXPECT_EQ(jused(), 2 * 100 * static_cast<int>(sizeof(void *)) + 26);
    for (const int nalign : {1, 3, 64, 1000, 4096}) {
        void *p = jmalloc_align(100, nalign);
        EXPECT_TRUE(aligned(p, nalign)) << nalign;
        EXPECT_TRUE(all_zero(p, 100));
        p = jrealloc_align(p, 20000, nalign);
        EXPECT_TRUE(aligned(p, nalign)) << nalign;
        std::fill_n(static_cast<char *>(p), 20000, 'x');
        jfree_align(p);
    }
    // Six calls, each of which made both tables 100 entries larger.
    EXPECT_EQ(jused(), 2 * 600 * static_cast<int>(sizeof(void *)) + 26);
    EXPECT_EQ(jrealloc_align(&first, 10, 16), nullptr);
    jfree_align(&first);
    jfree_align(first);
    void *guarded = jmalloc_align(-5, 0);
    EXPECT_NE(guarded, nullptr);
    jfree_align(guarded);
}

TEST_F(Memory, FreeingAnAlignedBlockInTheMiddleLosesTheOneBefore)
{
    constexpr int none = -1;
    using row = std::tuple<int, int>;
    for (const auto &[freed, lost] : {row{3, none}, row{0, none}, row{2, 1}, row{1, 0}}) {
        const allocator_watch watch;
        std::vector<void *> blocks(4);
        std::generate(blocks.begin(), blocks.end(), [] { return jmalloc_align(100, 32); });
        jfree_align(blocks[static_cast<std::size_t>(freed)]);
        for (int i = 0; i < 4; ++i) {
            if (i == freed)
                continue;
            void *p = jrealloc_align(blocks[static_cast<std::size_t>(i)], 200, 32);
            EXPECT_EQ(p == nullptr, i == lost) << i << " after freeing " << freed;
        }
        EXPECT_EQ(watch.live(), 2U + 3U); // the tables and the other blocks
        jmalloc_reset();
    }
}

} // namespace
