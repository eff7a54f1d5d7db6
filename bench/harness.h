// A small benchmark harness that times zams and its peers in the same run
// and prints ratios (zams time / peer time: below 1 means zams is faster).
//
//     ZAMS_BENCH(add_32f) {
//         for (int n : b.sizes()) {
//             Data<Zam32f> x(n), y(n), z(n);
//             b.row("Add_32f", n, n * 12.0,        // bytes moved, for bandwidth
//                   {{"zams", [&] { zamsAdd_32f(x, y, z, n); }},
//                    {"volk", [&] { volk_32f_x2_add_32f(z, x, y, n); }},
//                    {"loop", [&] { for (int i = 0; i < n; ++i) z[i] = x[i] + y[i]; }}});
//         }
//     }
//
// zams_bench [filter] runs the benchmarks whose name contains the filter.
// ZAMS_BENCH_ROUNDS sets the samples a contender (15), ZAMS_BENCH_TSV a file
// for every contender's median and best time, ZAMS_BENCH_BATON the pipes by
// which two processes (the two targets) take turns row by row
// (scripts/bench_targets.sh).
#pragma once

#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zb {

using Fn = std::function<void()>;
using Contender = std::pair<std::string, Fn>;

class Bench {
public:
    // The vector lengths most benchmarks use: 256, 4 Ki, 64 Ki, 4 Mi.
    std::vector<int> sizes() const { return {256, 4096, 65536, 4 << 20}; }
    // Times every contender (repeated samples, interleaved so that machine
    // noise hits all alike, each round in another order and each sample
    // after a short untimed warm-up of its contender) and prints one line:
    // the median time of the first contender (zams), then its ratio to each
    // of the others, of the medians and (in brackets) of the best samples.
    // `bytes` > 0 adds the first contender's bandwidth.
    void row(const std::string& what, long n, double bytes, std::vector<Contender> contenders);
};

// `count` buffers of n elements (zeroed) that lie alike on both targets:
// buffer k starts 16 (k % 3 + 1) bytes past a 64-byte boundary (unaligned
// phases, as std::vector buffers fall) and 1 KiB further round 4 KiB than
// the one before, so no two share their address modulo 4096. Heap buffers
// fall differently on i386 (smaller block headers), which alone moves the
// time of a short element-wise row by up to 1.6x.
template <class T> class Placed {
public:
    Placed(int count, long n) : stride_(((n * long(sizeof(T)) + 4095) / 4096 + 1) * 4096 + 1024) {
        const size_t size = size_t(stride_) * size_t(count) + 4096;
        block_ = static_cast<unsigned char*>(std::aligned_alloc(4096, size));
        std::memset(block_, 0, size);
    }
    ~Placed() { std::free(block_); }
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;
    T* operator[](int k) const { return reinterpret_cast<T*>(block_ + long(k) * stride_ + 16 * (k % 3 + 1)); }

private:
    long stride_;
    unsigned char* block_;
};

using BenchFn = void (*)(Bench&);
int register_bench(const char* name, BenchFn fn);

// Keeps the compiler from dropping a result.
template <class T> inline void keep(const T& v) { asm volatile("" : : "g"(&v) : "memory"); }

}  // namespace zb

#define ZAMS_BENCH(name)                                                                       \
    static void zams_bench_##name(zb::Bench& b);                                              \
    [[maybe_unused]] static const int zams_bench_reg_##name = zb::register_bench(#name, zams_bench_##name); \
    static void zams_bench_##name([[maybe_unused]] zb::Bench& b)
