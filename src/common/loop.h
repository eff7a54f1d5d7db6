// The element-wise loop skeleton, written once: scalar steps until the
// destination is aligned, vector steps of W elements, scalar tail. The
// scalar and vector bodies must compute the same values; the vector body
// uses unaligned loads (free on aligned data) so only the store alignment
// matters.
#pragma once

#include <cstdint>

namespace zams {

template <int W, int Align = 32, class T, class Scalar, class Vector>
inline void for_each_block(const T* dst, int len, Scalar&& scalar, Vector&& vector) {
    int i = 0;
    int head = int(((Align - (reinterpret_cast<uintptr_t>(dst) % Align)) % Align) / sizeof(T));
    if (head > len) head = len;
    for (; i < head; ++i) scalar(i);
    for (; i + W <= len; i += W) vector(i);
    for (; i < len; ++i) scalar(i);
}

}  // namespace zams
