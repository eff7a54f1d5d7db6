// FIR filters against liquid-dsp's filters (direct and FFT), a VOLK dot
// product per output, and plain loops; the threaded FFT path against one
// thread.
#include <liquid/liquid.h>
#include <volk/volk.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <vector>

#include "harness.h"
#include "zamcore.h"
#include "zams.h"

namespace {

constexpr int kBlock = 16384;
const int kTaps[] = {8, 16, 32, 64, 128, 256, 1024};

std::vector<float> data(int n, int salt) {
    std::vector<float> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = float((uint64_t(i + salt) * 7919u) % 1000u) * 0.001f - 0.5f;
    return v;
}

struct Fir32f {
    std::vector<uint8_t> mem;
    ZamsFIRState_32f* p = nullptr;
    explicit Fir32f(std::vector<float>& taps) {
        int size = 0;
        zamsFIRGetStateSize_32f(int(taps.size()), &size);
        mem.resize(size_t(size));
        zamsFIRInit_32f(&p, taps.data(), int(taps.size()), nullptr, mem.data());
    }
};

double clock_s(clockid_t c) {
    timespec t;
    clock_gettime(c, &t);
    return double(t.tv_sec) + 1e-9 * double(t.tv_nsec);
}

struct Threads {
    explicit Threads(int n) : old(ownGetNumThreads()) { zamSetNumThreads(n); }
    ~Threads() { zamSetNumThreads(old); }
    int old;
};

}  // namespace

ZAMS_BENCH(fir_32f) {
    Threads one(1);
    for (int L : kTaps) {
        auto taps = data(L, 1);
        std::vector<float> rtaps(taps.rbegin(), taps.rend());
        // The peers' input: L - 1 samples of history, then the block.
        auto xh = data(kBlock + L - 1, 2);
        const float* x = xh.data() + (L - 1);
        std::vector<float> y(kBlock);
        Fir32f st(taps);
        firfilt_rrrf lq = firfilt_rrrf_create(taps.data(), unsigned(L));
        std::vector<zb::Contender> c = {
            {"zams", [&] { zamsFIR_32f(x, y.data(), kBlock, st.p); }},
            {"liquid", [&] { firfilt_rrrf_execute_block(lq, const_cast<float*>(x), kBlock, y.data()); }},
            {"volk dot", [&] { for (int n = 0; n < kBlock; ++n) volk_32f_x2_dot_prod_32f(&y[size_t(n)], xh.data() + n, rtaps.data(), unsigned(L)); }},
            {"volk-avx dot", [&] { for (int n = 0; n < kBlock; ++n) volk_32f_x2_dot_prod_32f_manual(&y[size_t(n)], xh.data() + n, rtaps.data(), unsigned(L), "u_avx"); }},
            {"loop", [&] {
                 for (int n = 0; n < kBlock; ++n) {
                     float s = 0;
                     for (int k = 0; k < L; ++k) s += rtaps[size_t(k)] * xh[size_t(n + k)];
                     y[size_t(n)] = s;
                 }
             }}};
        fftfilt_rrrf ff = nullptr;
        if (L >= 256) {
            ff = fftfilt_rrrf_create(taps.data(), unsigned(L), 2048);
            c.push_back({"liquid fft", [&] {
                             for (int i = 0; i < kBlock; i += 2048) fftfilt_rrrf_execute(ff, const_cast<float*>(x) + i, y.data() + i);
                         }});
        }
        b.row("FIR_32f taps " + std::to_string(L), kBlock, 0, c);
        firfilt_rrrf_destroy(lq);
        if (ff) fftfilt_rrrf_destroy(ff);
    }
}

ZAMS_BENCH(fir_32fc) {
    Threads one(1);
    for (int L : {32, 256}) {
        auto t = data(L, 3);
        std::vector<Zam32fc> taps(static_cast<size_t>(L));
        for (int k = 0; k < L; ++k) taps[size_t(k)] = {t[size_t(k)], 0.0f};
        std::vector<Zam32fc> x(kBlock), y(kBlock);
        for (int i = 0; i < kBlock; ++i) x[size_t(i)] = {float(i % 17) * 0.1f, float(i % 13) * -0.1f};
        ZamsFIRState_32fc* st = nullptr;
        zamsFIRInitAlloc_32fc(&st, taps.data(), L, nullptr);
        firfilt_crcf lq = firfilt_crcf_create(t.data(), unsigned(L));
        auto* lx = reinterpret_cast<liquid_float_complex*>(x.data());
        auto* ly = reinterpret_cast<liquid_float_complex*>(y.data());
        b.row("FIR_32fc (complex taps) taps " + std::to_string(L), kBlock, 0,
              {{"zams", [&] { zamsFIR_32fc(x.data(), y.data(), kBlock, st); }},
               {"liquid crcf (real taps)", [&] { firfilt_crcf_execute_block(lq, lx, kBlock, ly); }}});
        firfilt_crcf_destroy(lq);
        zamsFIRFree_32fc(st);
    }
}

ZAMS_BENCH(fir_one_32f) {
    Threads one(1);
    auto taps = data(64, 4);
    auto x = data(kBlock, 5);
    std::vector<float> y(kBlock);
    Fir32f st(taps);
    firfilt_rrrf lq = firfilt_rrrf_create(taps.data(), 64);
    b.row("FIROne_32f taps 64", kBlock, 0,
          {{"zams", [&] { for (int i = 0; i < kBlock; ++i) zamsFIROne_32f(x[size_t(i)], &y[size_t(i)], st.p); }},
           {"liquid push+execute", [&] {
                for (int i = 0; i < kBlock; ++i) {
                    firfilt_rrrf_push(lq, x[size_t(i)]);
                    firfilt_rrrf_execute(lq, &y[size_t(i)]);
                }
            }}});
    firfilt_rrrf_destroy(lq);
}

ZAMS_BENCH(fir_threads) {
    const int n = 1 << 20;
    auto taps = data(1024, 6);
    auto x = data(n, 7);
    std::vector<float> y(static_cast<size_t>(n));
    Threads t2(2);
    Fir32f two(taps);
    zamSetNumThreads(1);
    Fir32f one(taps);
    b.row("FIR_32f 1 Mi taps 1024", n, 0,
          {{"zams 2 threads", [&] { zamSetNumThreads(2); zamsFIR_32f(x.data(), y.data(), n, two.p); }},
           {"zams 1 thread", [&] { zamSetNumThreads(1); zamsFIR_32f(x.data(), y.data(), n, one.p); }}});
    // On a shared machine the wall clock of the two-thread call counts the
    // time the second thread waited for a core. The process CPU clock counts
    // what both threads ran: with the work split evenly and no spinning
    // (OMP_WAIT_POLICY=passive), an idle machine would take half of it.
    double wall[2] = {1e30, 1e30}, cpu[2] = {1e30, 1e30};
    for (int r = 0; r < 21; ++r) {
        for (int t = 0; t < 2; ++t) {
            zamSetNumThreads(t + 1);
            const double w0 = clock_s(CLOCK_MONOTONIC), c0 = clock_s(CLOCK_PROCESS_CPUTIME_ID);
            zamsFIR_32f(x.data(), y.data(), n, t ? two.p : one.p);
            wall[t] = std::min(wall[t], clock_s(CLOCK_MONOTONIC) - w0);
            cpu[t] = std::min(cpu[t], clock_s(CLOCK_PROCESS_CPUTIME_ID) - c0);
        }
    }
    std::printf("fir_threads (best of 21): 1 thread wall %.2f ms cpu %.2f ms; 2 threads wall %.2f ms cpu %.2f ms; "
                "speed-up by wall %.2f, by cpu (idle-machine estimate) %.2f\n",
                wall[0] * 1e3, cpu[0] * 1e3, wall[1] * 1e3, cpu[1] * 1e3, wall[0] / wall[1], 2 * cpu[0] / cpu[1]);
}

ZAMS_BENCH(fir_16s) {
    Threads one(1);
    const int L = 64;
    std::vector<Zam32s> t32(L);
    std::vector<Zam16s> t16(L), x(kBlock + L - 1), y(kBlock);
    for (int k = 0; k < L; ++k) t16[size_t(k)] = Zam16s(t32[size_t(k)] = (k * 977) % 20000 - 10000);
    for (size_t i = 0; i < x.size(); ++i) x[i] = Zam16s((i * 7919) % 60000 - 30000);
    const Zam16s* xs = x.data() + (L - 1);
    std::vector<uint8_t> m1(200000), m2(200000);
    ZamsFIRState32s_16s* s32 = nullptr;
    ZamsFIRState_16s* s16 = nullptr;
    zamsFIRInit32s_16s(&s32, t32.data(), L, 0, nullptr, m1.data());
    zamsFIRInit_16s(&s16, t16.data(), L, 0, nullptr, m2.data());
    // The plain loop with a 64-bit accumulator over taps t, shifted right.
    auto loop_of = [&](const std::vector<Zam16s>& t, int shift) {
        return [&, tp = &t, shift] {
            for (int n = 0; n < kBlock; ++n) {
                int64_t s = 0;
                for (int k = 0; k < L; ++k) s += int64_t((*tp)[size_t(k)]) * xs[n - k];
                y[size_t(n)] = Zam16s(s >> shift);
            }
        };
    };
    const auto loop = loop_of(t16, 16);
    b.row("FIR32s_16s_Sfs taps 64", kBlock, 0, {{"zams", [&] { zamsFIR32s_16s_Sfs(xs, y.data(), kBlock, s32, 16); }}, {"loop int64", loop}});
    b.row("FIR_16s_Sfs taps 64", kBlock, 0, {{"zams", [&] { zamsFIR_16s_Sfs(xs, y.data(), kBlock, s16, 16); }}, {"loop int64", loop}});
    // Taps an eighth as large (magnitudes summing to about 40000, below 2^16,
    // as a unit-gain filter in Q15 has): every sum stays in 32-bit lanes.
    std::vector<Zam16s> t16n(L);
    for (int k = 0; k < L; ++k) t16n[size_t(k)] = Zam16s(t16[size_t(k)] / 8);
    ZamsFIRState_16s* s16n = nullptr;
    std::vector<uint8_t> m3(200000);
    zamsFIRInit_16s(&s16n, t16n.data(), L, 0, nullptr, m3.data());
    b.row("FIR_16s_Sfs taps 64, sum |taps| < 2^16", kBlock, 0,
          {{"zams", [&] { zamsFIR_16s_Sfs(xs, y.data(), kBlock, s16n, 13); }}, {"loop int64", loop_of(t16n, 13)}});
}
