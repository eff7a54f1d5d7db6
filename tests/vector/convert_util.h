// Pieces the conversion tests share: packed 24-bit samples, float bit
// patterns, and one checked call on misaligned vectors.
#pragma once

#include <cstring>
#include <string>

#include "sweep.h"

namespace ct {

// A packed 24-bit sample as the tests see it.
struct P24 {
    uint8_t b[3];
};
inline P24 p24(int64_t v) { return {{uint8_t(v), uint8_t(v >> 8), uint8_t(v >> 16)}}; }
inline int32_t get24(const uint8_t* p) { return int32_t(uint32_t(p[0]) << 8 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 24) >> 8; }
inline int32_t s24(P24 p) { return get24(p.b); }
inline uint32_t u24(P24 p) { return uint32_t(p.b[0]) | uint32_t(p.b[1]) << 8 | uint32_t(p.b[2]) << 16; }
inline const Zam8u* raw(const P24* p) { return reinterpret_cast<const Zam8u*>(p); }
inline Zam8u* raw(P24* p) { return reinterpret_cast<Zam8u*>(p); }

inline float ffrom(uint32_t b) {
    float f;
    std::memcpy(&f, &b, 4);
    return f;
}

// Runs fn once on src, both vectors off their alignment, and checks every
// element against want(src[i]) bit for bit, and the guards.
template <class S, class D, class Fn, class Want>
void check_all(const std::vector<S>& src, Fn fn, Want want, const std::string& what) {
    zt::Guarded<S> s(src.size(), 3 * sizeof(S) % 64);
    zt::Guarded<D> d(src.size(), 5 * sizeof(D) % 64);
    s.copy_from(src.data());
    ASSERT_EQ(fn(s.data(), d.data(), int(src.size())), zamStatusOk) << what;
    for (size_t i = 0; i < src.size(); ++i) {
        D w = want(src[i]);
        ASSERT_EQ(std::memcmp(&d[i], &w, sizeof(D)), 0) << what << " element " << i << " x = " << double(src[i]);
    }
    ASSERT_TRUE(d.guards_intact()) << what;
}

}  // namespace ct
