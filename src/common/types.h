// Sample-type traits and saturation, shared by every family.
#pragma once

#include <cstdint>
#include <limits>
#include <type_traits>

#include "zams_impl.h"

namespace zams {

// Traits of a real sample type: its range and the wide type in which sums
// and products of two samples are exact.
template <class T> struct traits;

template <class T, class Wide> struct int_traits {
    using wide = Wide;
    static constexpr T min = std::numeric_limits<T>::min();
    static constexpr T max = std::numeric_limits<T>::max();
};
template <> struct traits<Zam8u> : int_traits<Zam8u, int32_t> {};
template <> struct traits<Zam8s> : int_traits<Zam8s, int32_t> {};
template <> struct traits<Zam16u> : int_traits<Zam16u, int32_t> {};
template <> struct traits<Zam16s> : int_traits<Zam16s, int32_t> {};
template <> struct traits<Zam32u> : int_traits<Zam32u, int64_t> {};
template <> struct traits<Zam32s> : int_traits<Zam32s, int64_t> {};
template <> struct traits<Zam64s> : int_traits<Zam64s, int64_t> {};
template <> struct traits<Zam64u> : int_traits<Zam64u, uint64_t> {};

// Complex sample types and their parts.
template <class T> struct complex_of { using part = void; };
template <> struct complex_of<Zam8sc> { using part = Zam8s; };
template <> struct complex_of<Zam16sc> { using part = Zam16s; };
template <> struct complex_of<Zam32sc> { using part = Zam32s; };
template <> struct complex_of<Zam64sc> { using part = Zam64s; };
template <> struct complex_of<Zam32fc> { using part = Zam32f; };
template <> struct complex_of<Zam64fc> { using part = Zam64f; };
template <class T> inline constexpr bool is_complex_v = !std::is_void_v<typename complex_of<T>::part>;
template <class T> using part_t = typename complex_of<T>::part;

// Clamp an exact wide value into T's range.
template <class T, class W> constexpr T saturate(W v) {
    using L = std::numeric_limits<T>;
    if constexpr (std::is_signed_v<W> && !std::is_signed_v<T>) {
        if (v < 0) return 0;
        if (static_cast<std::make_unsigned_t<W>>(v) > L::max()) return L::max();
        return static_cast<T>(v);
    } else if constexpr (!std::is_signed_v<W> && std::is_signed_v<T>) {
        if (v > static_cast<std::make_unsigned_t<T>>(L::max())) return L::max();
        return static_cast<T>(v);
    } else {
        if (v < static_cast<W>(L::min()) && sizeof(W) >= sizeof(T)) return L::min();
        if (v > static_cast<W>(L::max()) && sizeof(W) >= sizeof(T)) return L::max();
        return static_cast<T>(v);
    }
}

}  // namespace zams
