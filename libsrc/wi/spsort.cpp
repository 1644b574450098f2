// Sorting. The order is that of repeated passes which exchange neighbours when the earlier number is strictly smaller,
// until a pass exchanges none: descending, equal numbers in the order in which they came. What is not a number is never
// exchanged: it keeps its place, and the numbers on its two sides do not mix.
//
// The numbers between are sorted by the digits of integers in their place, least digit first (D. E. Knuth, The Art of
// Computer Programming, vol. 3, 5.2.5), which is stable.
#include "wi/spargs.h"
#include "wi/spstack.h"
#include "wi/spworkers.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>

namespace {

// An integer that is the smaller the larger the number is; 0 comes before -0. And back.
std::uint64_t key_of(double number)
{
    const auto bits = std::bit_cast<std::uint64_t>(number);
    return (bits >> 63) != 0 ? bits : ~bits & ~(std::uint64_t{1} << 63);
}

double number_of(std::uint64_t key)
{
    return std::bit_cast<double>((key >> 63) != 0 ? key : ~key & ~(std::uint64_t{1} << 63));
}

// What SORT sorts and gives.
struct number_item {
    std::uint64_t key;
    number_item() = default;
    number_item(double number, std::size_t /*place*/) : key(key_of(number)) {}
    double result() const { return number_of(key); }
};

// What RANK sorts and gives: the sign of a zero has no key, and the place counts from 0.
struct place_item {
    std::uint64_t key;
    std::uint32_t place;
    place_item() = default;
    place_item(double number, std::size_t i) : key(key_of(number + 0.0)), place(static_cast<std::uint32_t>(i)) {}
    double result() const { return place + 1.0; }
};

constexpr int digit_bits = 11;
constexpr int ndigits = (64 + digit_bits - 1) / digit_bits;
constexpr std::size_t ndigit_values = std::size_t{1} << digit_bits;

std::size_t digit_of(std::uint64_t key, int digit)
{
    return static_cast<std::size_t>(key >> (digit * digit_bits)) % ndigit_values;
}

// Sorts n items by key; the other block of n is scratch. Returns the block that holds the result.
template <class Item>
Item *sort_by_digits(Item *items, Item *other, std::size_t n)
{
    std::array<std::array<std::uint32_t, ndigit_values>, ndigits> counts{};
    for (std::size_t i = 0; i < n; ++i)
        for (int digit = 0; digit < ndigits; ++digit)
            ++counts[static_cast<std::size_t>(digit)][digit_of(items[i].key, digit)];
    for (int digit = 0; digit < ndigits; ++digit) {
        auto &count = counts[static_cast<std::size_t>(digit)];
        if (count[digit_of(items[0].key, digit)] == n)
            continue; // all alike
        std::uint32_t start = 0;
        for (std::uint32_t &c : count)
            start += std::exchange(c, start);
        for (std::size_t i = 0; i < n; ++i)
            other[count[digit_of(items[i].key, digit)]++] = items[i];
        std::swap(items, other);
    }
    return items;
}

// For few items, for which counting digits does not pay.
template <class Item>
void sort_by_insertion(Item *items, std::size_t n)
{
    for (std::size_t i = 1; i < n; ++i) {
        const Item item = items[i];
        std::size_t at = i;
        for (; at > 0 && items[at - 1].key > item.key; --at)
            items[at] = items[at - 1];
        items[at] = item;
    }
}

template <class Item>
const Item *sort_items(Item *items, Item *other, std::size_t n)
{
    constexpr std::size_t few = 128;
    if (n > few)
        return sort_by_digits(items, other, n);
    sort_by_insertion(items, n);
    return items;
}

// The end of the run that starts at an element: of numbers, or one thing that is none.
std::size_t run_end(const sp_elements &numbers, std::size_t first)
{
    std::size_t last = first + 1;
    if (!std::isnan(numbers[first]))
        while (last < numbers.size() && !std::isnan(numbers[last]))
            ++last;
    return last;
}

template <class Item>
sp_value *sort_runs(const sp_elements &numbers)
{
    const std::size_t n = numbers.size();
    sp_value *result = sp_mk_elements(n);
    sp_stack<Item> items;
    sp_stack<Item> other;
    items.make_room(n);
    other.make_room(n);
    for (std::size_t first = 0, last = 0; first < n; first = last) {
        last = run_end(numbers, first);
        for (std::size_t i = first; i < last; ++i)
            items[i - first] = Item(numbers[i], i);
        const Item *item = sort_items(items.data(), other.data(), last - first);
        for (std::size_t i = first; i < last; ++i)
            result->ary[i] = item++->result();
    }
    return result;
}

// Zeros of either sign are equal, so they come in the order in which they came; sorting has put them together.
void restore_zeros(const sp_elements &unsorted, double *sorted)
{
    for (std::size_t first = 0, last = 0; first < unsorted.size(); first = last) {
        last = run_end(unsorted, first);
        double *zero = std::lower_bound(sorted + first, sorted + last, 0.0, std::greater<>());
        for (std::size_t i = first; zero < sorted + last && *zero == 0; ++i)
            if (unsorted[i] == 0)
                *zero++ = unsorted[i];
    }
}

template <class Item>
sp_value *sort_all(const sp_call &call, const char *nothing, void (*mend)(const sp_elements &, double *))
{
    sp_value *all = sp_gather(call);
    if (all->type == sp_error)
        return all;
    const sp_elements numbers(*all);
    sp_value *result = numbers.size() == 0 ? sp_mk_error(nothing) : sort_runs<Item>(numbers);
    if (mend != nullptr)
        mend(numbers, result->ary);
    sp_free_value(all);
    return result;
}

} // namespace

sp_value *spfunc_sort(const sp_call &call)
{
    return sort_all<number_item>(call, "No data in SORT.", restore_zeros);
}

sp_value *spfunc_rank(const sp_call &call)
{
    return sort_all<place_item>(call, "No data in RANK.", nullptr);
}

sp_value *spfunc_shuffle(const sp_call &call)
{
    const sp_elements data(*call.args[0]);
    const sp_elements order(*call.args[1]);
    if (order.size() == 0)
        return sp_mk_error("No order data in SHUFFLE.");
    sp_value *result = sp_mk_elements(order.size());
    std::size_t count = 0;
    for (const double place : order) {
        const int i = bestint(place);
        if (i >= 1 && static_cast<std::size_t>(i) <= data.size())
            result->ary[count++] = data[static_cast<std::size_t>(i) - 1];
    }
    if (count > 0)
        return sp_cut_result(result, count);
    sp_free_value(result);
    return sp_mk_error("No output data in SHUFFLE.");
}
