// Argument checks in the library's fixed order: pointers (-8), lengths (-6),
// structure identifier (-17), then value arguments with their own codes.
// A function's first lines read like the order itself:
//
//     if (zamStatus s = check_ptr(pSrc, pDst)) return s;
//     if (zamStatus s = check_len(len)) return s;
//
// or, for the common case, `if (zamStatus s = check_args(len, pSrc, pDst)) return s;`.
#pragma once

#include <cstdint>

#include "zams_impl.h"

namespace zams {

template <class... P> constexpr zamStatus check_ptr(const P*... p) {
    return ((p == nullptr) || ...) ? zamStatusNullPointer : zamStatusOk;
}

template <class... L> constexpr zamStatus check_len(L... len) {
    return ((len < 1) || ...) ? zamStatusBadLength : zamStatusOk;
}

// Pointers first, then the one length.
template <class... P> constexpr zamStatus check_args(int len, const P*... p) {
    if (zamStatus s = check_ptr(p...)) return s;
    return check_len(len);
}

// The identifier word of a specification or state structure: its first
// 32-bit word names its kind.
inline zamStatus check_id(const void* spec, uint32_t id) {
    return *static_cast<const uint32_t*>(spec) == id ? zamStatusOk : zamStatusContextMismatch;
}

// Rounding modes 0, 1, 2.
inline zamStatus check_round(int mode) {
    return mode >= 0 && mode <= 2 ? zamStatusOk : zamStatusBadRoundMode;
}

}  // namespace zams
