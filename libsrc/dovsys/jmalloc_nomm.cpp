#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"
#include "dovsys/logicals.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdio>
#include <cstdlib>

std_allocator dovsys_allocator = {std::calloc, std::realloc, std::free};

namespace {

constexpr int least_block = 8;
constexpr int first_slots = 500;
constexpr int more_slots = 100;
constexpr int no_slot = -1;

// One slot of the map. A null pointer marks it free; occupied slots of one hash bucket are chained.
struct _memelem {
    void *ptr;
    int size;
    int next; // slot + 1, 0 at the end
};

// Set of the free slots that answers "lowest" without a scan. Bit i of level 0 is set while slot i is free, bit i of
// a higher level while word i of the level below is not zero.
class free_slots {
public:
    // Words for all levels of a set of so many slots; the top level is one word.
    static std::size_t words(std::size_t slots)
    {
        std::size_t total = 0;
        do {
            slots = (slots + 63) / 64;
            total += slots;
        } while (slots > 1);
        return total;
    }

    // An empty set in zeroed memory of words(slots) words.
    void place(std::uint64_t *memory, std::size_t slots)
    {
        levels_ = 0;
        do {
            slots = (slots + 63) / 64;
            level_[levels_++] = memory;
            memory += slots;
        } while (slots > 1);
    }

    void insert(int slot)
    {
        auto i = static_cast<std::size_t>(slot);
        bool was_empty = true;
        for (std::size_t l = 0; l < levels_ && was_empty; ++l, i /= 64) {
            std::uint64_t &word = level_[l][i / 64];
            was_empty = word == 0;
            word |= std::uint64_t{1} << (i % 64);
        }
    }

    void erase(int slot)
    {
        auto i = static_cast<std::size_t>(slot);
        bool now_empty = true;
        for (std::size_t l = 0; l < levels_ && now_empty; ++l, i /= 64) {
            std::uint64_t &word = level_[l][i / 64];
            word &= ~(std::uint64_t{1} << (i % 64));
            now_empty = word == 0;
        }
    }

    int lowest() const
    {
        if (levels_ == 0 || level_[levels_ - 1][0] == 0)
            return no_slot;
        std::size_t i = 0;
        for (std::size_t l = levels_; l-- > 0;)
            i = i * 64 + static_cast<std::size_t>(std::countr_zero(level_[l][i]));
        return static_cast<int>(i);
    }

private:
    std::array<std::uint64_t *, 6> level_{}; // 64^6 is more than an int counts
    std::size_t levels_ = 0;
};

// Whether the environment was consulted, and what it said.
enum class accounting { undecided, off, on };
accounting jacctmem = accounting::undecided;

std::int64_t totalloc = 0;
int statsize = 0;
_memelem *memstat = nullptr;

// The index finds a pointer's slot and the lowest free one. It and the map have room for more slots than the map has,
// so that growing by 100 does not copy them every time.
std::size_t room = 0;   // a power of two
int *buckets = nullptr; // first slot + 1 of each chain, 0 when it is empty; twice as many as there is room
int bucket_shift = 0;
free_slots free_set; // its words follow the buckets, in the same block of memory

[[noreturn]] void end_process()
{
    std::fflush(stdout);
    std::exit(-1);
}

[[noreturn, gnu::cold]] void jmalloc_exhausted(int n)
{
    std::printf("\nError: Out of memory in jmalloc on request for %d bytes.\n", n);
    end_process();
}

[[noreturn, gnu::cold]] void jrealloc_exhausted(int n)
{
    std::printf("\nError: Out of memory in jrealloc request for %d bytes.\n", n);
    end_process();
}

[[noreturn]] void map_exhausted()
{
    std::printf("\nError: Out of memory while updating memory map.\n");
    end_process();
}

[[noreturn]] void bad_pointer(const char *function)
{
    std::printf("\nError: Bad pointer in %s().\n", function);
    end_process();
}

// Blocks are aligned to 16 bytes; the factor spreads neighbours and powers of two.
int &bucket_of(const void *ptr)
{
    return buckets[((reinterpret_cast<std::uintptr_t>(ptr) >> 4) * 0x9E3779B97F4A7C15U) >> bucket_shift];
}

// The link that leads to the slot of ptr, or the end of its chain. There must be a map.
int *find_link(const void *ptr)
{
    int *link = &bucket_of(ptr);
    while (*link != 0 && memstat[*link - 1].ptr != ptr)
        link = &memstat[*link - 1].next;
    return link;
}

void link_slot(int slot)
{
    int &head = bucket_of(memstat[slot].ptr);
    memstat[slot].next = head;
    head = slot + 1;
}

// Called when no slot is free, so the new set starts empty.
bool make_room(std::size_t slots)
{
    if (slots <= room)
        return true;
    const std::size_t new_room = std::bit_ceil(slots);
    void *map = dovsys_allocator.realloc(memstat, new_room * sizeof(_memelem));
    if (map == nullptr)
        return false;
    memstat = static_cast<_memelem *>(map);
    const std::size_t set_size = free_slots::words(new_room) * sizeof(std::uint64_t);
    void *index = dovsys_allocator.calloc(1, 2 * new_room * sizeof(int) + set_size);
    if (index == nullptr)
        return false;
    dovsys_allocator.free(buckets);
    room = new_room;
    buckets = static_cast<int *>(index);
    bucket_shift = 63 - std::countr_zero(room);
    free_set.place(reinterpret_cast<std::uint64_t *>(buckets + 2 * room), room);
    for (int slot = 0; slot < statsize; ++slot)
        link_slot(slot);
    return true;
}

void add_slots(int count)
{
    if (statsize > INT_MAX - count)
        map_exhausted();
    const int end = statsize + count;
    if (!make_room(static_cast<std::size_t>(end)))
        map_exhausted();
    for (; statsize < end; ++statsize) {
        memstat[statsize] = {};
        free_set.insert(statsize);
    }
}

void occupy_slot(int slot, void *p, int size)
{
    memstat[slot] = {p, size, 0};
    link_slot(slot);
    free_set.erase(slot);
    totalloc += size;
}

// Takes p out of the account and returns its slot; function is where the caller passed it.
int release_pointer(const void *p, const char *function)
{
    int *link = statsize > 0 ? find_link(p) : nullptr;
    if (link == nullptr || *link == 0)
        bad_pointer(function);
    const int slot = *link - 1;
    *link = memstat[slot].next;
    totalloc -= memstat[slot].size;
    memstat[slot] = {};
    free_set.insert(slot);
    return slot;
}

// What jjmalloc() does unless it is known that accounting is off; apart, so that it costs nothing there.
[[gnu::noinline]] void *tracked_block(int n)
{
    getjenv();
    void *p = dovsys_allocator.calloc(1, static_cast<std::size_t>(n));
    if (jacctmem == accounting::on && p != nullptr)
        occupy_slot(getslot(), p, n);
    return p;
}

} // namespace

void getjenv()
{
    if (jacctmem == accounting::undecided)
        jacctmem = get_logical("JUSED", nullptr) != nullptr ? accounting::on : accounting::off;
}

int getslot()
{
    int slot = free_set.lowest();
    if (slot == no_slot) {
        slot = statsize;
        add_slots(statsize < 1 ? first_slots : more_slots);
    }
    return slot;
}

int findslot(const void *ptr)
{
    return statsize > 0 ? *find_link(ptr) - 1 : no_slot;
}

int jused()
{
    return static_cast<int>(std::min<std::int64_t>(totalloc, INT_MAX));
}

void *jjmalloc(int n)
{
    n = std::max(n, least_block);
    if (jacctmem != accounting::off) [[unlikely]]
        return tracked_block(n);
    return dovsys_allocator.calloc(1, static_cast<std::size_t>(n));
}

void *jmalloc(int n)
{
    void *p = jjmalloc(n);
    if (p == nullptr) [[unlikely]]
        jmalloc_exhausted(n);
    return p;
}

void *jjrealloc(void *p, int n)
{
    if (p == nullptr)
        return jjmalloc(n);
    n = std::max(n, least_block);
    if (jacctmem != accounting::on) [[likely]]
        return dovsys_allocator.realloc(p, static_cast<std::size_t>(n));
    const int slot = release_pointer(p, "jjrealloc");
    void *moved = dovsys_allocator.realloc(p, static_cast<std::size_t>(n));
    if (moved != nullptr)
        occupy_slot(slot, moved, n);
    return moved;
}

void *jrealloc(void *p, int n)
{
    void *moved = jjrealloc(p, n);
    if (moved == nullptr) [[unlikely]]
        jrealloc_exhausted(n);
    return moved;
}

void jfree(void *p)
{
    if (jacctmem == accounting::on && p != nullptr) [[unlikely]]
        release_pointer(p, "jfree");
    dovsys_allocator.free(p);
}

void *jmalloc_bytes(std::size_t n)
{
    if (n > INT_MAX)
        jmalloc_exhausted(INT_MAX);
    return jmalloc(static_cast<int>(n));
}

void *jrealloc_bytes(void *p, std::size_t n)
{
    if (n > INT_MAX)
        jrealloc_exhausted(INT_MAX);
    return jrealloc(p, static_cast<int>(n));
}

void jmalloc_nomm_reset()
{
    dovsys_allocator.free(memstat);
    dovsys_allocator.free(buckets);
    jacctmem = accounting::undecided;
    totalloc = 0;
    statsize = 0;
    memstat = nullptr;
    room = 0;
    buckets = nullptr;
    bucket_shift = 0;
    free_set = {};
}
