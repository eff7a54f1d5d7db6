// One sweep harness for element-wise functions: lengths, every misalignment
// of every pointer, in place, and guard zones, against a scalar model.
//
//     zt::sweep_unary<Zam16s, Zam16s>(
//         [](const Zam16s* s, Zam16s* d, int n) { return zamsAbs_16s(s, d, n); },
//         [](Zam16s x) { return Zam16s(x < -32767 ? 32767 : std::abs(x)); },
//         zt::random_ints<Zam16s>(400, 7));
//
// The model maps one source element to one result; results are compared
// bit for bit unless a comparator is given.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "harness.h"

namespace zt {

struct SweepOptions {
    int max_len = 300;
    bool in_place = true;  // also call with the (first) source as destination
    int len_step = 1;
};

struct BitEqual {
    template <class T> bool operator()(const T& a, const T& b) const {
        return std::memcmp(&a, &b, sizeof(T)) == 0;
    }
};

// Misalignments tried for a length: all 64 for short vectors, a spread of
// them for long ones so that the sweep stays fast.
inline std::vector<size_t> offsets_for(int len) {
    if (len <= 40) return all_offsets();
    return {0, 1, 2, 3, 4, 6, 8, 12, 16, 20, 24, 28, 32, 36, 40, 48, 56, 60, 63};
}

template <class S, class D, class Fn, class Ref, class Eq = BitEqual>
void sweep_unary(Fn fn, Ref ref, const std::vector<S>& pool, SweepOptions o = {}, Eq eq = {}) {
    ASSERT_GE(pool.size(), size_t(o.max_len));
    for (int len = 1; len <= o.max_len; len += o.len_step) {
        std::vector<D> want(len);
        for (int i = 0; i < len; ++i) want[i] = ref(pool[i]);
        for (size_t off : offsets_for(len)) {
            size_t soff = (off * 5 + 3) % 64 / sizeof(S) * sizeof(S) + (off & 1 ? 0 : off % sizeof(S));
            Guarded<S> src(len, soff);
            Guarded<D> dst(len, off);
            src.copy_from(pool.data());
            ASSERT_EQ(fn(src.data(), dst.data(), len), zamStatusOk) << "len " << len << " offset " << off;
            for (int i = 0; i < len; ++i)
                ASSERT_TRUE(eq(dst[i], want[i])) << "len " << len << " offset " << off << " element " << i;
            ASSERT_TRUE(dst.guards_intact()) << "len " << len << " offset " << off;
            ASSERT_TRUE(src.guards_intact());
            if constexpr (sizeof(S) == sizeof(D)) {
                if (o.in_place) {
                    Guarded<S> io(len, off);
                    io.copy_from(pool.data());
                    ASSERT_EQ(fn(io.data(), reinterpret_cast<D*>(io.data()), len), zamStatusOk);
                    for (int i = 0; i < len; ++i) {
                        D got;
                        std::memcpy(&got, &io[i], sizeof(D));
                        ASSERT_TRUE(eq(got, want[i])) << "in place, len " << len << " offset " << off << " element " << i;
                    }
                    ASSERT_TRUE(io.guards_intact());
                }
            }
        }
    }
}

// Two sources: fn(src1, src2, dst, len), model ref(a, b). In place means the
// second source is also the destination.
template <class S1, class S2, class D, class Fn, class Ref, class Eq = BitEqual>
void sweep_binary(Fn fn, Ref ref, const std::vector<S1>& pool1, const std::vector<S2>& pool2,
                  SweepOptions o = {}, Eq eq = {}) {
    ASSERT_GE(pool1.size(), size_t(o.max_len));
    ASSERT_GE(pool2.size(), size_t(o.max_len));
    for (int len = 1; len <= o.max_len; len += o.len_step) {
        std::vector<D> want(len);
        for (int i = 0; i < len; ++i) want[i] = ref(pool1[i], pool2[i]);
        for (size_t off : offsets_for(len)) {
            Guarded<S1> a(len, (off * 3 + 1) % 64);
            Guarded<S2> b(len, (off * 7 + 5) % 64);
            Guarded<D> dst(len, off);
            a.copy_from(pool1.data());
            b.copy_from(pool2.data());
            ASSERT_EQ(fn(a.data(), b.data(), dst.data(), len), zamStatusOk) << "len " << len << " offset " << off;
            for (int i = 0; i < len; ++i)
                ASSERT_TRUE(eq(dst[i], want[i])) << "len " << len << " offset " << off << " element " << i;
            ASSERT_TRUE(dst.guards_intact() && a.guards_intact() && b.guards_intact()) << "len " << len;
            if constexpr (sizeof(S2) == sizeof(D)) {
                if (o.in_place) {
                    Guarded<S2> io(len, off);
                    io.copy_from(pool2.data());
                    ASSERT_EQ(fn(a.data(), io.data(), reinterpret_cast<D*>(io.data()), len), zamStatusOk);
                    for (int i = 0; i < len; ++i) {
                        D got;
                        std::memcpy(&got, &io[i], sizeof(D));
                        ASSERT_TRUE(eq(got, want[i])) << "in place, len " << len << " element " << i;
                    }
                    ASSERT_TRUE(io.guards_intact());
                }
            }
        }
    }
}

}  // namespace zt
