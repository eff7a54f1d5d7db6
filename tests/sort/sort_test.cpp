// Sorting against std::stable_sort of (value, position) pairs under an
// independent statement of the order: floats by class (-NaN, numbers, +NaN),
// numbers by value with -0 before +0, NaNs of one sign by payload.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <type_traits>
#include <vector>

#include "digest.h"
#include "harness.h"

namespace {

template <class T> bool before(T a, T b) {
    if constexpr (std::is_floating_point_v<T>) {
        auto rank = [](T x) { return std::isnan(x) ? (std::signbit(x) ? 0 : 2) : 1; };
        if (rank(a) != rank(b)) return rank(a) < rank(b);
        if (rank(a) == 1) return a < b || (a == b && std::signbit(a) && !std::signbit(b));
        const auto payload = [](T x) { return zt::bits(x) & (decltype(zt::bits(x))(-1) >> 1); };
        return rank(a) == 0 ? payload(a) > payload(b) : payload(a) < payload(b);
    } else {
        return a < b;
    }
}

// The sorted values and the permutation of a stable sort.
template <class T> void oracle(const std::vector<T>& in, bool descend, std::vector<T>& val, std::vector<int>& idx) {
    idx.resize(in.size());
    std::iota(idx.begin(), idx.end(), 0);
    std::stable_sort(idx.begin(), idx.end(),
                     [&](int i, int j) { return descend ? before(in[j], in[i]) : before(in[i], in[j]); });
    val.clear();
    for (int i : idx) val.push_back(in[i]);
}

template <class T> bool same_bits(const T* got, const std::vector<T>& want) {
    for (size_t i = 0; i < want.size(); ++i)
        if (zt::bits(got[i]) != zt::bits(want[i])) return false;
    return true;
}

template <class T> std::vector<T> specials() {
    using L = std::numeric_limits<T>;
    if constexpr (std::is_floating_point_v<T>) {
        using B = decltype(zt::bits(T(0)));
        auto nan = [](bool neg, B payload) {
            B b = zt::bits(L::quiet_NaN()) | payload;
            if (neg) b |= B(1) << (8 * sizeof(T) - 1);
            T x;
            std::memcpy(&x, &b, sizeof x);
            return x;
        };
        return {T(0), -T(0), L::infinity(), -L::infinity(), nan(false, 0), nan(true, 0), nan(false, 5), nan(true, 5),
                L::denorm_min(), -L::denorm_min(), L::max(), L::lowest(), T(1), T(-1)};
    } else {
        return {L::min(), L::max(), T(0), T(1)};
    }
}

// Inputs that a sort gets wrong in different ways: random over the whole
// type (every digit varies), a few values (one digit varies; stability
// shows), the specials, sorted, reversed and all equal.
template <class T> std::vector<std::vector<T>> inputs(int len, uint32_t seed) {
    auto g = zt::rng(seed);
    std::vector<T> any(len), few(len), special(len);
    const std::vector<T> sp = specials<T>();
    for (int i = 0; i < len; ++i) {
        auto b = zt::bits(T(0));
        for (size_t k = 0; k < sizeof b; k += 4) b = decltype(b)((uint64_t(b) << 16 << 16) | g());
        std::memcpy(&any[i], &b, sizeof(T));
        few[i] = T(g() % 5);
        special[i] = sp[g() % sp.size()];
    }
    std::vector<T> up = few, down = few;
    std::sort(up.begin(), up.end());
    std::sort(down.rbegin(), down.rend());
    return {any, few, special, up, down, std::vector<T>(len, sp[1])};
}

template <class T> struct Api {
    zamStatus (*sort[2])(T*, int);
    zamStatus (*index[2])(T*, int*, int);
};

// Both directions, plain and index sort, misaligned vectors with guards.
template <class T> void check_sorts(const Api<T>& api, const std::vector<int>& lens) {
    for (int len : lens)
        for (const auto& in : inputs<T>(len, uint32_t(len))) {
            const size_t off = len % 7 * sizeof(T) / 2;  // some lengths off the element size
            for (int d = 0; d < 2; ++d) {
                std::vector<T> val;
                std::vector<int> idx;
                oracle(in, d == 1, val, idx);
                zt::Guarded<T> a(len, off), b(len, off);
                zt::Guarded<int> p(len, 4);
                a.copy_from(in.data());
                b.copy_from(in.data());
                ASSERT_EQ(api.sort[d](a.data(), len), zamStatusOk);
                ASSERT_EQ(api.index[d](b.data(), p.data(), len), zamStatusOk);
                ASSERT_TRUE(same_bits(a.data(), val)) << "len " << len << " descend " << d;
                ASSERT_TRUE(same_bits(b.data(), val)) << "len " << len << " descend " << d;
                ASSERT_EQ(p.to_vector(), idx) << "len " << len << " descend " << d;
                ASSERT_TRUE(a.guards_intact() && b.guards_intact() && p.guards_intact());
            }
        }
}

const std::vector<int> kLens = {1, 2, 3, 17, 48, 49, 64, 255, 1000, 20011};

#define SORT_API(c) \
    Api<Zam##c> { {zamsSortAscend_##c##_I, zamsSortDescend_##c##_I}, {zamsSortIndexAscend_##c##_I, zamsSortIndexDescend_##c##_I} }

TEST(Sort, IntegersAgainstStableSort) {
    check_sorts(SORT_API(8u), kLens);
    check_sorts(SORT_API(16s), kLens);
    check_sorts(SORT_API(16u), kLens);
    check_sorts(SORT_API(32s), kLens);
    check_sorts(SORT_API(32u), kLens);
}

TEST(Sort, FloatsInTotalOrderAgainstStableSort) {
    check_sorts(SORT_API(32f), kLens);
    check_sorts(SORT_API(64f), kLens);
}

template <class T> struct Radix {
    zamStatus (*size)(int, int*);
    zamStatus (*sort[2])(T*, Zam8u*, int);
};

// The radix sorts in a work buffer of the reported size (misaligned, with
// guards) and with a null one, on one and on two threads, around the length
// at which they split.
template <class T> void check_radix(const Radix<T>& api, int split) {
    for (int len : {1, 100, split - 1, split, split + 1, 5 * split + 3})
        for (const auto& in : inputs<T>(len, uint32_t(len) + 9)) {
            int bytes = 0;
            ASSERT_EQ(api.size(len, &bytes), zamStatusOk);
            for (int d = 0; d < 2; ++d) {
                std::vector<T> val;
                std::vector<int> idx;
                oracle(in, d == 1, val, idx);
                for (int threads : {1, 2}) {
                    zt::Threads th(threads);
                    zt::Guarded<T> a(len, sizeof(T) / 2), b(len);
                    zt::Guarded<Zam8u> work(size_t(bytes), 5);
                    a.copy_from(in.data());
                    b.copy_from(in.data());
                    ASSERT_EQ(api.sort[d](a.data(), work.data(), len), zamStatusOk);
                    ASSERT_EQ(api.sort[d](b.data(), nullptr, len), zamStatusOk);
                    ASSERT_TRUE(same_bits(a.data(), val)) << "len " << len << " descend " << d << " threads " << threads;
                    ASSERT_TRUE(same_bits(b.data(), val)) << "len " << len << " descend " << d << " threads " << threads;
                    ASSERT_TRUE(a.guards_intact() && work.guards_intact());
                }
            }
        }
}

#define RADIX_API(c) \
    Radix<Zam##c> { zamsSortRadixGetBufferSize_##c, {zamsSortRadixAscend_##c##_I, zamsSortRadixDescend_##c##_I} }

TEST(SortRadix, AgainstStableSortOnOneAndTwoThreads) {
    check_radix(RADIX_API(32f), 8192);
    check_radix(RADIX_API(32s), 8192);
    check_radix(RADIX_API(32u), 8192);
    check_radix(RADIX_API(64f), 4096);
}

// The buffer grows with the element size; a length whose buffer passes the
// int range is refused rather than wrapped.
TEST(SortRadix, BufferSizeQuery) {
    int s32 = 0, s64 = 0;
    ASSERT_EQ(zamsSortRadixGetBufferSize_32s(1000, &s32), zamStatusOk);
    ASSERT_EQ(zamsSortRadixGetBufferSize_64f(1000, &s64), zamStatusOk);
    EXPECT_GE(s32, 4000);
    EXPECT_GE(s64, 8000);
    EXPECT_EQ(zamsSortRadixGetBufferSize_64f(INT_MAX, &s64), zamStatusNoMemory);
}

template <class T> void digest_all(zt::Digest& d, const Api<T>& api, const std::vector<T>& in) {
    for (int dir = 0; dir < 2; ++dir) {
        std::vector<T> a = in;
        std::vector<int> p(in.size());
        d.status(api.index[dir](a.data(), p.data(), int(a.size())));
        d.add(a);
        d.add(p);
    }
}

ZAMS_DIGEST(sort_index) {
    digest_all(d, SORT_API(8u), inputs<Zam8u>(3000, 1)[0]);
    digest_all(d, SORT_API(16s), inputs<Zam16s>(3000, 2)[0]);
    digest_all(d, SORT_API(16u), inputs<Zam16u>(3000, 3)[0]);
    digest_all(d, SORT_API(32s), inputs<Zam32s>(3000, 4)[0]);
    digest_all(d, SORT_API(32u), inputs<Zam32u>(3000, 5)[0]);
    digest_all(d, SORT_API(32f), inputs<Zam32f>(3000, 6)[2]);
    digest_all(d, SORT_API(64f), inputs<Zam64f>(3000, 7)[2]);
}

}  // namespace
