#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"
#include "dovsys/logicals.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <utility>

std_allocator dovsys_allocator = {std::calloc, std::realloc, std::free};

namespace {

constexpr int least_block = 8;
constexpr int first_slots = 500;
constexpr int more_slots = 100;
constexpr int no_slot = -1;

// A live block and the number of its slot in the map; a null pointer marks a free entry.
struct _memelem {
    void *ptr;
    int slot;
    int size;
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

// Nobody asks what a slot holds, so the map is kept by pointer: as a hash table with at least two entries for each
// slot, in which an entry stands at its home or, when that is taken, behind it without a gap. There is room for more
// slots than the map has, so that growing by 100 does not build a new table every time. Before there is a map, the
// table is one free entry.
_memelem no_map{};
_memelem *memstat = &no_map;
std::size_t last_entry = 0; // of memstat, whose size is a power of two; the first follows it
free_slots free_set;        // its words follow the entries, in the same block of memory

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
std::size_t home_of(const void *ptr)
{
    return (((reinterpret_cast<std::uintptr_t>(ptr) >> 4) * 0x9E3779B97F4A7C15U) >> 32) & last_entry;
}

std::size_t following(std::size_t entry)
{
    return (entry + 1) & last_entry;
}

// The entry that holds ptr, or the free one that would.
std::size_t find_entry(const void *ptr)
{
    std::size_t entry = home_of(ptr);
    while (memstat[entry].ptr != ptr && memstat[entry].ptr != nullptr)
        entry = following(entry);
    return entry;
}

// Puts those behind the entry again where they are found, as nothing is found across a gap.
void remove_entry(std::size_t entry)
{
    memstat[entry] = {};
    while (memstat[entry = following(entry)].ptr != nullptr) {
        const _memelem moved = std::exchange(memstat[entry], {});
        memstat[find_entry(moved.ptr)] = moved;
    }
}

// Called when no slot is free, so the new set starts empty.
void make_room(std::size_t slots)
{
    if (2 * slots <= last_entry + 1)
        return;
    const std::size_t room = std::bit_ceil(slots);
    const std::size_t set_size = free_slots::words(room) * sizeof(std::uint64_t);
    void *table = dovsys_allocator.calloc(1, 2 * room * sizeof(_memelem) + set_size);
    if (table == nullptr)
        map_exhausted();
    const std::span<_memelem> old(memstat, last_entry + 1);
    memstat = static_cast<_memelem *>(table);
    last_entry = 2 * room - 1;
    for (const _memelem &element : old) {
        if (element.ptr != nullptr)
            memstat[find_entry(element.ptr)] = element;
    }
    if (old.data() != &no_map)
        dovsys_allocator.free(old.data());
    free_set.place(reinterpret_cast<std::uint64_t *>(memstat + 2 * room), room);
}

void add_slots(int count)
{
    if (statsize > INT_MAX - count)
        map_exhausted();
    const int end = statsize + count;
    make_room(static_cast<std::size_t>(end));
    for (; statsize < end; ++statsize)
        free_set.insert(statsize);
}

void occupy_slot(int slot, void *p, int size)
{
    memstat[find_entry(p)] = {p, slot, size};
    free_set.erase(slot);
    totalloc += size;
}

// Takes p out of the account and returns its slot; function is where the caller passed it.
int release_pointer(const void *p, const char *function)
{
    __builtin_prefetch(p); // the standard allocator is about to look at the block
    const std::size_t entry = find_entry(p);
    if (memstat[entry].ptr == nullptr)
        bad_pointer(function);
    const int slot = memstat[entry].slot;
    totalloc -= memstat[entry].size;
    remove_entry(entry);
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
    const _memelem &element = memstat[find_entry(ptr)];
    return element.ptr != nullptr ? element.slot : no_slot;
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
    if (memstat != &no_map)
        dovsys_allocator.free(memstat);
    jacctmem = accounting::undecided;
    totalloc = 0;
    statsize = 0;
    memstat = &no_map;
    last_entry = 0;
    free_set = {};
}
