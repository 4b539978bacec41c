// What the C++ library of emscripten 3.1 (Debian 12) lacks of C++20: std::bit_cast, and the algorithms of std::ranges
// that the library uses. Each source of the app includes this first. A C++ library that has them takes over.

#pragma once

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <version>

#if !defined(__cpp_lib_bit_cast)
namespace std // NOLINT(cert-dcl58-cpp): what belongs there
{
template <class TTo, class TFrom>
constexpr TTo bit_cast(const TFrom& oFrom) noexcept
{
    return __builtin_bit_cast(TTo, oFrom);
}
} // namespace std
#endif

#if !defined(__cpp_lib_ranges)
namespace std::ranges // NOLINT(cert-dcl58-cpp): what belongs there
{
template <class TRange, class TTest, class TKey = identity>
constexpr auto find_if(TRange&& aoItems, TTest fnTest, TKey fnKey = {})
{
    return std::find_if(std::begin(aoItems), std::end(aoItems),
                        [&](auto&& oItem) { return std::invoke(fnTest, std::invoke(fnKey, oItem)); });
}

template <class TRange, class TValue, class TKey = identity>
constexpr auto find(TRange&& aoItems, const TValue& oValue, TKey fnKey = {})
{
    return std::find_if(std::begin(aoItems), std::end(aoItems),
                        [&](auto&& oItem) { return std::invoke(fnKey, oItem) == oValue; });
}

template <class TRange, class TTest, class TKey = identity>
constexpr bool any_of(TRange&& aoItems, TTest fnTest, TKey fnKey = {})
{
    return ranges::find_if(aoItems, fnTest, fnKey) != std::end(aoItems);
}

template <class TRange, class TTest, class TKey = identity>
constexpr bool none_of(TRange&& aoItems, TTest fnTest, TKey fnKey = {})
{
    return !ranges::any_of(aoItems, fnTest, fnKey);
}

template <class TRange, class TTest, class TKey = identity>
constexpr bool all_of(TRange&& aoItems, TTest fnTest, TKey fnKey = {})
{
    return !ranges::any_of(aoItems, std::not_fn(fnTest), fnKey);
}

template <class TRange, class TTest, class TKey = identity>
constexpr auto count_if(TRange&& aoItems, TTest fnTest, TKey fnKey = {})
{
    return std::count_if(std::begin(aoItems), std::end(aoItems),
                         [&](auto&& oItem) { return std::invoke(fnTest, std::invoke(fnKey, oItem)); });
}

template <class TRange, class TValue>
constexpr auto count(TRange&& aoItems, const TValue& oValue)
{
    return std::count(std::begin(aoItems), std::end(aoItems), oValue);
}

template <class TRange, class TValue, class TOrder = less, class TKey = identity>
constexpr auto lower_bound(TRange&& aoItems, const TValue& oValue, TOrder fnOrder = {}, TKey fnKey = {})
{
    return std::lower_bound(std::begin(aoItems), std::end(aoItems), oValue,
                            [&](auto&& oItem, auto&& oBound) { return fnOrder(std::invoke(fnKey, oItem), oBound); });
}

template <class TRange, class TOrder = less, class TKey = identity>
void stable_sort(TRange&& aoItems, TOrder fnOrder = {}, TKey fnKey = {})
{
    std::stable_sort(std::begin(aoItems), std::end(aoItems), [&](auto&& oOne, auto&& oOther) {
        return fnOrder(std::invoke(fnKey, oOne), std::invoke(fnKey, oOther));
    });
}

template <class TRange>
constexpr void sort(TRange&& aoItems)
{
    std::sort(std::begin(aoItems), std::end(aoItems));
}

template <class TRange, class TOut, class TFunction>
constexpr void transform(TRange&& aoItems, TOut itOut, TFunction fnMake)
{
    for (auto&& oItem : aoItems)
    {
        *itOut++ = std::invoke(fnMake, oItem);
    }
}
} // namespace std::ranges
#endif
