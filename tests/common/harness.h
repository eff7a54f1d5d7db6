// Test support shared by every family: guarded buffers at chosen
// misalignments, seeded random data, and sweep helpers.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "zamcore.h"
#include "zams.h"

namespace zt {

// n elements of T placed `offset` bytes past a 64-byte boundary, with guard
// bytes on both sides that the code under test must not touch.
template <class T> class Guarded {
public:
    static constexpr size_t kGuard = 64;
    static constexpr uint8_t kPattern = 0xA5;

    explicit Guarded(size_t n, size_t offset = 0) : n_(n), offset_(offset) {
        raw_.assign(n * sizeof(T) + offset + 2 * kGuard + 128, kPattern);
        uintptr_t base = reinterpret_cast<uintptr_t>(raw_.data()) + kGuard;
        base = (base + 63) & ~uintptr_t(63);
        start_ = reinterpret_cast<uint8_t*>(base) + offset;
    }
    T* data() { return reinterpret_cast<T*>(start_); }
    const T* data() const { return reinterpret_cast<const T*>(start_); }
    T& operator[](size_t i) { return data()[i]; }
    size_t size() const { return n_; }
    // Every byte outside [data, data + n) still holds the pattern.
    bool guards_intact() const {
        const uint8_t* b = raw_.data();
        size_t lo = static_cast<size_t>(start_ - b), hi = lo + n_ * sizeof(T);
        for (size_t i = 0; i < raw_.size(); ++i)
            if ((i < lo || i >= hi) && b[i] != kPattern) return false;
        return true;
    }
    void copy_from(const T* src) { std::memcpy(start_, src, n_ * sizeof(T)); }
    std::vector<T> to_vector() const { return std::vector<T>(data(), data() + n_); }

private:
    size_t n_, offset_;
    std::vector<uint8_t> raw_;
    uint8_t* start_;
};

// Deterministic generator for a test: the same seed gives the same data on
// every target.
inline std::mt19937 rng(uint32_t seed) { return std::mt19937(seed); }

// Integers over the whole range with extra weight on the extremes and 0.
template <class T> std::vector<T> random_ints(size_t n, uint32_t seed) {
    static_assert(std::is_integral_v<T>);
    std::mt19937_64 g(seed);
    std::vector<T> v(n);
    using L = std::numeric_limits<T>;
    for (auto& x : v) {
        uint64_t r = g();
        switch (r % 8) {
            case 0: x = L::min(); break;
            case 1: x = L::max(); break;
            case 2: x = T(0); break;
            case 3: x = static_cast<T>(static_cast<int64_t>(r >> 8) % 64 - 32); break;
            default: x = static_cast<T>(r >> 3); break;
        }
    }
    return v;
}

// Floats uniform in [lo, hi).
template <class T> std::vector<T> random_reals(size_t n, uint32_t seed, T lo = T(-1000), T hi = T(1000)) {
    std::mt19937_64 g(seed);
    std::uniform_real_distribution<double> d(lo, hi);
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(d(g));
    return v;
}

// Byte offsets a sweep tries: every one from 0 to 63 is the full set; a
// shorter set for costly cases keeps the element-size multiples and the
// odd ones that break them.
inline std::vector<size_t> all_offsets() {
    std::vector<size_t> v;
    for (size_t i = 0; i < 64; ++i) v.push_back(i);
    return v;
}

// Sets the library's thread count for a scope and restores it.
class Threads {
public:
    explicit Threads(int n) : old_(ownGetNumThreads()) { zamSetNumThreads(n); }
    ~Threads() { zamSetNumThreads(old_); }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

private:
    int old_;
};

// The result a call wrote, after checking that it succeeded:
// EXPECT_EQ(zt::ok(zamsSum_32s_Sfs(x, n, &s, 0), s), want).
template <class T> const T& ok(zamStatus s, const T& out) {
    EXPECT_EQ(s, zamStatusOk);
    return out;
}

// Raw bit pattern of a value, for exact comparisons that see -0 and NaN payloads.
template <class T> auto bits(T v) {
    if constexpr (sizeof(T) == 8) { uint64_t b; std::memcpy(&b, &v, 8); return b; }
    else if constexpr (sizeof(T) == 4) { uint32_t b; std::memcpy(&b, &v, 4); return b; }
    else if constexpr (sizeof(T) == 2) { uint16_t b; std::memcpy(&b, &v, 2); return b; }
    else { uint8_t b; std::memcpy(&b, &v, 1); return b; }
}

// The same bits, element for element.
template <class T> bool same_bits(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

}  // namespace zt
