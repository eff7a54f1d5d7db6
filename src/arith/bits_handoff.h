// Copy and zeroing hand-offs of the logic and shift families, by element
// width: 8u, 16-bit (the 16s functions) and 32-bit (the 32s functions).
#pragma once

#include "../common/check.h"

namespace zams::bits {

template <class T> zamStatus zero(T* d, int n) {
    if constexpr (sizeof(T) == 1) return zamsZero_8u(reinterpret_cast<Zam8u*>(d), n);
    else if constexpr (sizeof(T) == 2) return zamsZero_16s(reinterpret_cast<Zam16s*>(d), n);
    else return zamsZero_32s(reinterpret_cast<Zam32s*>(d), n);
}

template <class T> zamStatus copy(const T* s, T* d, int n) {
    if constexpr (sizeof(T) == 1) return zamsCopy_8u(reinterpret_cast<const Zam8u*>(s), reinterpret_cast<Zam8u*>(d), n);
    else if constexpr (sizeof(T) == 2)
        return zamsCopy_16s(reinterpret_cast<const Zam16s*>(s), reinterpret_cast<Zam16s*>(d), n);
    else return zamsCopy_32s(reinterpret_cast<const Zam32s*>(s), reinterpret_cast<Zam32s*>(d), n);
}

}  // namespace zams::bits
