// A growing array of plain records in the tracked allocator's memory, which ends the process when it is exhausted.
#pragma once

#include <climits>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "dovsys/dovsys.h"

// jrealloc() for a size that may be more than an int holds; that much memory is not there.
inline void *sp_resize(void *block, std::size_t bytes)
{
    if (bytes > INT_MAX)
        return c_mkdary(INT_MAX); // ends the process
    return jrealloc(block, static_cast<int>(bytes));
}

template <typename T>
class sp_stack {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    sp_stack() = default;
    sp_stack(const sp_stack &) = delete;
    sp_stack &operator=(const sp_stack &) = delete;
    ~sp_stack() { jfree(data_); }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    T *data() { return data_; }
    T &operator[](std::size_t i) { return data_[i]; }
    T &back() { return data_[size_ - 1]; }
    void pop() { --size_; }

    // The element may lie in the stack itself.
    T &push(T element)
    {
        if (size_ == room_)
            grow();
        return data_[size_++] = element;
    }

    // To a smaller size.
    void cut(std::size_t size) { size_ = size; }

    // Removes elements from the middle.
    void erase(std::size_t first, std::size_t last)
    {
        for (; last < size_; ++first, ++last)
            data_[first] = data_[last];
        size_ = first;
    }

    // At least `size` elements without a value; what was there is gone.
    void make_room(std::size_t size)
    {
        if (size > room_) {
            release();
            data_ = static_cast<T *>(sp_resize(nullptr, size * sizeof(T)));
            room_ = size;
        }
    }

    void release()
    {
        jfree(std::exchange(data_, nullptr));
        size_ = room_ = 0;
    }

    std::size_t bytes() const { return room_ * sizeof(T); }

private:
    void grow()
    {
        constexpr std::size_t most = INT_MAX / sizeof(T);
        std::size_t room = size_ + size_ / 2 + 16;
        if (room > most && size_ < most)
            room = most;
        data_ = static_cast<T *>(sp_resize(data_, room * sizeof(T)));
        room_ = room;
    }

    T *data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t room_ = 0;
};
