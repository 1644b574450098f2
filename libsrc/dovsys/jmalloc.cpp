// The aligned family.

#include "dovsys/jmalloc.h"
#include "dovsys/internal.h"

#include <algorithm>
#include <climits>

namespace {

constexpr int more_entries = 100;
constexpr int most_entries = static_cast<int>(INT_MAX / sizeof(void *)); // the tables' size in bytes is an int

int npal = 0;
int nsize = 0;
void **pjmjf = nullptr;  // per aligned block: the block it lies in
void **palign = nullptr; // and its aligned address

void **grow_table(void **table, int entries)
{
    return static_cast<void **>(jrealloc_bytes(table, static_cast<std::size_t>(entries) * sizeof(void *)));
}

// Nearly always true: the tables grow on every call, far ahead of the entries. It is kept so because programs see the
// memory in jused(). Only tables that cannot grow further stay as they are.
void grow_tables()
{
    if (npal > nsize || nsize > most_entries - more_entries)
        return;
    pjmjf = grow_table(pjmjf, nsize + more_entries);
    palign = grow_table(palign, nsize + more_entries);
    nsize += more_entries;
}

std::size_t padded_size(int nbytes, int nalign)
{
    return static_cast<std::size_t>(std::max(nbytes, 0)) + static_cast<std::size_t>(nalign);
}

void *align_up(void *block, int nalign)
{
    const std::uintptr_t past = reinterpret_cast<std::uintptr_t>(block) % static_cast<std::uintptr_t>(nalign);
    return static_cast<char *>(block) + (past == 0 ? 0 : static_cast<std::uintptr_t>(nalign) - past);
}

int entry_of(const void *ptr)
{
    return static_cast<int>(std::find(palign, palign + npal, ptr) - palign);
}

} // namespace

void *jmalloc_align(int nbytes, int nalign)
{
    nalign = std::max(nalign, 1);
    grow_tables();
    pjmjf[npal] = jmalloc_bytes(padded_size(nbytes, nalign));
    palign[npal] = align_up(pjmjf[npal], nalign);
    return palign[npal++];
}

void *jrealloc_align(void *ptr, int nbytes, int nalign)
{
    nalign = std::max(nalign, 1);
    const int i = entry_of(ptr);
    if (i == npal)
        return nullptr;
    pjmjf[i] = jrealloc_bytes(pjmjf[i], padded_size(nbytes, nalign));
    palign[i] = align_up(pjmjf[i], nalign);
    return palign[i];
}

void jfree_align(void *ptr)
{
    const int i = entry_of(ptr);
    if (i == npal)
        return;
    jfree(pjmjf[i]);
    // Entry i itself moves into the place before it, too; the first has none, and the last goes alone.
    const int from = std::max(i, 1);
    if (i < npal - 1) {
        std::copy(pjmjf + from, pjmjf + npal, pjmjf + from - 1);
        std::copy(palign + from, palign + npal, palign + from - 1);
    }
    --npal;
}

void jmalloc_reset()
{
    jfree(pjmjf);
    jfree(palign);
    npal = 0;
    nsize = 0;
    pjmjf = nullptr;
    palign = nullptr;
}
