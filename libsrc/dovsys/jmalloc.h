// Tracked memory. All libraries allocate here: blocks have at least 8 bytes and start zeroed, the checked entry points
// end the process instead of returning null, and an accounting mode knows every live block and its size.
//
// Accounting is a diagnostic mode: it is on for the whole process when the logical "JUSED" is defined, with whatever
// value, at the first jjmalloc(). A pointer that never came from here then ends the process in jfree() or jjrealloc();
// with accounting off it is passed to the standard allocator as it is.
//
// A process that ends here has printed its message on standard output as a line of its own and has status -1.
#pragma once

#include <memory>

// Zeroed block of max(n, 8) bytes. The first returns null when there is no memory, the second ends the process. The
// caller frees the block with jfree().
void *jjmalloc(int n);
void *jmalloc(int n);

// Resizes p to max(n, 8) bytes and returns its new place; bytes beyond the old size are not zeroed. A null p allocates.
// When there is no memory the first returns null and the second ends the process. p itself then still exists, but with
// accounting on it has left the account and its slot is free, as if it had never come from here.
void *jjrealloc(void *p, int n);
void *jrealloc(void *p, int n);

// Frees a block of the functions above; null is ignored.
void jfree(void *p);

// Owner of one block.
struct jfree_deleter {
    void operator()(void *p) const { jfree(p); }
};
template <typename T>
using jmalloc_ptr = std::unique_ptr<T, jfree_deleter>;

// Bytes in all live blocks, as requested and raised to 8; 0 while accounting is off, INT_MAX for anything larger.
int jused();

// Reads the environment and switches accounting on or leaves it off. The first jjmalloc() calls this.
void getjenv();

// The account is a map of numbered slots: 500 at first, 100 more whenever none is free.
// getslot() returns the lowest free slot without occupying it, growing the map as needed; findslot() the slot that
// holds ptr, -1 when none does or ptr is null.
int getslot();
int findslot(const void *ptr);

// Blocks whose address is a multiple of nalign. Their process-wide table grows by 100 entries on every allocation.
// A negative nbytes counts as 0 and an nalign below 1 as 1; a sum beyond an int is memory that is not there.

// Zeroed block of nbytes + nalign bytes with its aligned address returned; ends the process when there is no memory.
void *jmalloc_align(int nbytes, int nalign);

// Resizes an aligned block and returns its new aligned address. The contents keep their distance to the start of the
// underlying block, not to the aligned address: they appear shifted when that distance changes. A pointer that is not
// in the table changes nothing and gives null.
void *jrealloc_align(void *ptr, int nbytes, int nalign);

// Frees an aligned block; an unknown pointer is ignored. Only the last entry of the table and the first are removed as
// such. For any other entry the table closes one place too early: the entry before it is lost, its block can no longer
// be freed, and the freed entry stays listed.
void jfree_align(void *ptr);
