// Stands in for the standard allocator while it lives: knows the blocks that are allocated and not freed, and lets the
// nth allocation fail.
//
//     for (int n = 1; ; ++n) {
//         allocator_watch watch(n);
//         action();
//         if (!watch.failed())
//             break;
//     }
#ifndef SUPPORT_ALLOCATOR_WATCH_H
#define SUPPORT_ALLOCATOR_WATCH_H

#include "dovsys/internal.h"

#include <set>

class allocator_watch {
public:
    explicit allocator_watch(int failing = 0)
    {
        until_failure = failing;
        blocks.clear();
        dovsys_allocator = {watched_calloc, watched_realloc, watched_free};
    }

    // Frees what is left, so that no leak is reported for what a test has counted.
    ~allocator_watch()
    {
        dovsys_allocator = standard;
        for (void *block : blocks)
            standard.free(block);
    }

    allocator_watch(const allocator_watch &) = delete;
    allocator_watch &operator=(const allocator_watch &) = delete;

    std::size_t live() const { return blocks.size(); }
    bool failed() const { return until_failure < 0; }

private:
    // Becomes negative with the failure.
    static bool fails() { return until_failure > 0 && --until_failure == 0 && --until_failure < 0; }

    static void *watched_calloc(std::size_t count, std::size_t size)
    {
        return fails() ? nullptr : keep(standard.calloc(count, size));
    }

    static void *watched_realloc(void *p, std::size_t size)
    {
        if (fails())
            return nullptr;
        blocks.erase(p);
        return keep(standard.realloc(p, size));
    }

    static void watched_free(void *p)
    {
        blocks.erase(p);
        standard.free(p);
    }

    static void *keep(void *p)
    {
        blocks.insert(p);
        return p;
    }

    static inline const std_allocator standard = dovsys_allocator;
    static inline std::set<void *> &blocks = *new std::set<void *>; // outlives what runs at the end of the process
    static inline int until_failure = 0;
};

#endif
