#include "dovsys/dovsys.h"
#include "dovsys/internal.h"
#include "support/allocator_watch.h"
#include "support/process.h"

#include <algorithm>
#include <climits>
#include <functional>
#include <random>

namespace {

// n zero bytes at a multiple of the alignment
bool zeroed(const void *p, int n, int nalign = 1)
{
    const char *bytes = static_cast<const char *>(p);
    return std::count(bytes, bytes + n, '\0') == n &&
           reinterpret_cast<std::uintptr_t>(p) % static_cast<std::uintptr_t>(nalign) == 0;
}

class Memory : public testing::Test {
protected:
    ~Memory() override { restart(nullptr); }

    // As if the process began with this value of JUSED.
    static void restart(const char *value)
    {
        jmalloc_reset();
        jmalloc_nomm_reset();
        set_environment("JUSED", value);
    }
};

TEST_F(Memory, IsZeroedAndFromTheFirstAllocationOnCounted)
{
    for (const int n : {INT_MIN, -1, 0, 3, 8, 4001})
        EXPECT_TRUE(zeroed(jmalloc_ptr<void>(jmalloc(n)).get(), std::max(n, 8))) << n;
    jfree(nullptr);
    jfree(std::malloc(5));
    set_environment("JUSED", "1"); // too late
    getjenv();
    void *block = jjrealloc(jmalloc(5), -3);
    EXPECT_TRUE(zeroed(block, 8));
    EXPECT_EQ(jused() + findslot(block), -1);
    restart("no");
    block = jjrealloc(block, 30); // does not ask yet
    const jmalloc_ptr<void> counted(jjmalloc(3));
    set_environment("JUSED", nullptr);
    void *kept = jjrealloc(nullptr, 0);
    EXPECT_EQ(jused() + findslot(block), 8 + 8 - 1);
    std::free(block);
    for (void *resized : {static_cast<void *>(nullptr), kept}) {
        EXPECT_EQ(jused() + getslot(), 8 + 8 + 2);
        const allocator_watch watch(1);
        EXPECT_EQ(jjrealloc(resized, 1000), nullptr);
    }
    EXPECT_EQ(jused() + findslot(kept) + getslot(), 8 - 1 + 1);
    std::free(kept); // it has left the account, but still exists
}

TEST_F(Memory, ReusesTheLowestSlotAsAScanOfTheMapWould)
{
    restart("no");
    std::vector<std::pair<void *, int>> map;
    int total = 0;
    std::mt19937 random(2385);
    for (int step = 0; step < 40000; ++step) {
        const int n = static_cast<int>(random() % 300);
        std::size_t slot = random() % 4000;
        if (step < 10000 || slot >= map.size() || map[slot].first == nullptr) {
            slot = static_cast<std::size_t>(std::find(map.begin(), map.end(), std::pair<void *, int>()) - map.begin());
            map.resize(std::max(map.size(), slot + 1));
            ASSERT_EQ(getslot(), static_cast<int>(slot));
        }
        auto &[block, size] = map[slot];
        total -= size;
        size = block == nullptr || n % 2 == 0 ? std::max(n, 8) : 0;
        total += size;
        block = size != 0 ? jrealloc(block, n) : (jfree(block), nullptr);
        ASSERT_EQ(findslot(block), block != nullptr ? static_cast<int>(slot) : -1);
        ASSERT_EQ(jused(), total);
    }
    for (const auto &[block, size] : map)
        jfree(block);
    EXPECT_EQ(jused(), 0);
}

TEST_F(Memory, EndsTheProcessWithAMessage)
{
    restart("no");
    void *blocks[501];
    const auto fill = [&blocks](int n, void *(*block)()) { std::generate(blocks, blocks + n, block); };
    using row = std::tuple<int, const char *, std::function<void()>>; // which allocation fails
    const row rows[] = {
        {0, "Bad pointer in jfree\\(\\)\\.", [&] { jfree(blocks); }},
        {0, "Bad pointer in jfree\\(\\)\\.", [&] { jfree(jmalloc(8)), jfree(blocks); }},
        {0, "Bad pointer in jjrealloc\\(\\)\\.", [&] { jrealloc(blocks, 10); }},
        {1, "Out of memory in jmalloc on request for 3 bytes\\.", [] { jmalloc(3); }},
        {0, "Out of memory in jmalloc on request for 2147483647 bytes\\.", [] { jmalloc_align(INT_MAX, 16); }},
        {1, "Out of memory in jrealloc request for -7 bytes\\.", [] { jrealloc(nullptr, -7); }},
        {3, "Out of memory in jrealloc request for 5 bytes\\.", [] { jrealloc(jmalloc(8), 5); }},
        {0, "Out of memory in jrealloc request for 2147483647 bytes\\.",
         [] { jrealloc_align(jmalloc_align(8, 8), INT_MAX, 8); }},
        {2, "Out of memory while updating memory map\\.", [] { jmalloc(8); }},
        {503, "Out of memory while updating memory map\\.", [&] { fill(501, [] { return jmalloc(8); }); }},
        {0, "Bad pointer in jfree\\(\\)\\.", // the table lists it still
         [&] { fill(3, [] { return jmalloc_align(8, 8); }), jfree_align(blocks[1]), jfree_align(blocks[1]); }},
    };
    for (const auto &[failing, message, action] : rows) {
        getjenv();
        const allocator_watch watch(failing);
        EXPECT_ENDS(action(), status_minus_one, std::string("\nError: ").append(message).append("\r?\n"));
    }
}

TEST_F(Memory, IsAlignedAndForgottenTogetherWithTheBlockBefore)
{
    restart("no");
    constexpr int table_growth = 2 * 100 * static_cast<int>(sizeof(void *)); // on every call
    void *first = jmalloc_align(10, 16);
    EXPECT_TRUE(zeroed(first, 26, 16));
    EXPECT_EQ(jused() + findslot(first), table_growth + 26 + 2); // the third block, which needs no step up
    for (const int nalign : {1, 3, 64, 1000, 4096}) {
        void *p = jmalloc_align(100, nalign);
        EXPECT_TRUE(zeroed(p, 100, nalign)) << nalign;
        p = jrealloc_align(p, 20000, nalign);
        EXPECT_TRUE(zeroed(std::fill_n(static_cast<char *>(p), 20000, 'x') - 20000, 0, nalign)) << nalign;
        jfree_align(p);
    }
    EXPECT_EQ(jused(), 6 * table_growth + 26);
    EXPECT_EQ(jrealloc_align(&first, 10, 16), nullptr);
    for (void *p : {static_cast<void *>(&first), first, jmalloc_align(-5, 0)})
        jfree_align(p);
    for (const auto &[freed, lost] : {std::pair{3, -1}, {0, -1}, {2, 1}, {1, 0}}) {
        restart(nullptr);
        const allocator_watch watch;
        void *blocks[4];
        std::generate(blocks, blocks + 4, [] { return jmalloc_align(100, 32); });
        jfree_align(blocks[freed]);
        for (int i = 0; i < 4; ++i)
            EXPECT_TRUE(i == freed || (jrealloc_align(blocks[i], 200, 32) == nullptr) == (i == lost)) << i << freed;
        EXPECT_EQ(watch.live(), 2U + 3U); // the tables and the other blocks
        jmalloc_reset();
    }
}

} // namespace
