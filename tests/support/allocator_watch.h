// Stands in for the standard allocator while it lives: knows the blocks that are allocated and not freed, and lets the
// nth allocation fail.
#pragma once

#include "dovsys/internal.h"

#include <set>

class allocator_watch {
public:
    explicit allocator_watch(int failing = 0)
    {
        until_failure = failing;
        blocks.clear();
        dovsys_allocator = {
            [](std::size_t n, std::size_t size) { return fails() ? nullptr : keep(standard.calloc(n, size)); },
            [](void *p, std::size_t size) { return fails() ? nullptr : keep(standard.realloc(forget(p), size)); },
            [](void *p) { standard.free(forget(p)); }};
    }

    // Frees what is left, so that no leak is reported for what a test has counted.
    ~allocator_watch()
    {
        dovsys_allocator = standard;
        for (void *block : blocks)
            standard.free(block);
    }

    std::size_t live() const { return blocks.size(); }

private:
    static bool fails() { return --until_failure == 0; }
    static void *keep(void *p) { return blocks.insert(p), p; }
    static void *forget(void *p) { return blocks.erase(p), p; }

    static inline const std_allocator standard = dovsys_allocator;
    static inline std::set<void *> &blocks = *new std::set<void *>; // outlives what runs at the end of the process
    static inline int until_failure = 0;
};
