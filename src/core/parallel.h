// The parallel frame shared by the few operations that split long vectors
// across threads. A public function checks its arguments, compares the
// length with its threshold and, at or above it, calls run_sliced with its
// serial kernel; below it, it calls the kernel once on the whole vector.
#pragma once

#include <omp.h>

#include "zamcore.h"

namespace zams {

enum class Team { AtMostTwo, All };

// kernel(offset, count) processes [offset, offset + count) and returns true
// when it met its family's warning condition. Returns the warning counter:
// nonzero when any slice warned.
template <class Kernel> int run_sliced(int len, Team team, Kernel&& kernel) {
    int n = ownGetNumThreads();
    if (n <= 1 || len < n) return kernel(0, len) ? 1 : 0;
    int want = team == Team::All ? n : 2;

    int warnings = 0;
    int members = 1, slice = len, rest = 0;
#pragma omp parallel num_threads(want) shared(warnings, members, slice, rest)
    {
#pragma omp master
        {
            members = omp_get_num_threads();
            slice = len / members;
            rest = len % members;
        }
#pragma omp barrier
        int t = omp_get_thread_num();
        int count = slice + (t == members - 1 ? rest : 0);
        if (kernel(t * slice, count)) {
            // Only zero versus nonzero matters: a lost count cannot turn a
            // nonzero total into zero, so the increment need not be atomic.
            int w = __atomic_load_n(&warnings, __ATOMIC_RELAXED);
            __atomic_store_n(&warnings, w + 1, __ATOMIC_RELAXED);
        }
    }
    return warnings;
}

// Below its threshold an operation runs its kernel once on the calling
// thread; at or above it, through run_sliced. Nonzero when any part warned.
template <class Kernel> int run_threshold(int len, int threshold, Team team, Kernel&& kernel) {
    if (len < threshold) return kernel(0, len) ? 1 : 0;
    return run_sliced(len, team, kernel);
}

// Work in several steps over the same slices (a radix sort: count, then
// move, pass after pass). Below the threshold, or with one thread, the
// calling thread runs step(k, 0, 0, len) and then(k, 0, 1) for k = 0, 1, ...
// At or above it, one region with the team and slices of run_sliced: every
// thread runs step(k, t, offset, count) on its slice, all meet at a barrier,
// and every thread runs then(k, t, members), which may read what the step
// wrote but writes only thread t's own state (so no second barrier is
// needed). The steps end when then returns false; it must return the same
// on every thread. Slices stay the same from step to step.
template <class Step, class Then> void run_steps(int len, int threshold, Step&& step, Then&& then) {
    int n = ownGetNumThreads();
    if (len < threshold || n <= 1 || len < n) {
        for (int k = 0;; ++k) {
            step(k, 0, 0, len);
            if (!then(k, 0, 1)) return;
        }
    }
    int members = 1, slice = len, rest = 0;
#pragma omp parallel num_threads(2) shared(members, slice, rest)
    {
#pragma omp master
        {
            members = omp_get_num_threads();
            slice = len / members;
            rest = len % members;
        }
#pragma omp barrier
        const int t = omp_get_thread_num();
        const int count = slice + (t == members - 1 ? rest : 0);
        for (int k = 0;; ++k) {
            step(k, t, t * slice, count);
#pragma omp barrier
            if (!then(k, t, members)) break;
        }
    }
}

// Length at or above which each parallel operation splits its vector.
namespace threshold {
// The lengths are part of the interface. Below them a team's start-up costs
// more than the arithmetic; on i386 the OpenMP runtime wakes the second
// thread far more slowly (about 8 us against 0.5 us on x86-64), so there the
// shortest forked calls run slower than on one thread.
inline constexpr int Div_32f = 4096, DivCRev_32f = 4096;
inline constexpr int Div_32fc = 1024, Div_64f = 1024, Div_64fc = 1024;
inline constexpr int Div_Round_16s = 1024, Div_Round_16u = 1024, Div_Round_8u = 512;
inline constexpr int DivCRev_16u = 2048;
inline constexpr int Div_8u = 1024, Div_16s = 1024, Div_32s = 1024, Div_32s16s = 1024, DivC_16sc = 1024;
inline constexpr int Div_16sc = 256;
inline constexpr int DivC_16s = 4096, DivC_8u = 4096;
inline constexpr int Sqrt_32f = 4096;
inline constexpr int Sqrt_8u = 2048, Sqrt_16s = 2048, Sqrt_16u = 2048;
inline constexpr int Sqrt_32s16s = 1024;
inline constexpr int Sqrt_32fc = 512, Sqrt_64f = 512, Sqrt_64s16s = 512;
inline constexpr int Sqrt_16sc = 256, Sqrt_64s = 256;
inline constexpr int Sqrt_64fc = 64;
inline constexpr int Threshold_LTInv_32f = 8192;
inline constexpr int Threshold_LTInv_32fc = 2048, Threshold_LTInv_64f = 2048;
inline constexpr int Threshold_LTInv_64fc = 512;
inline constexpr int Magnitude_16s = 2048, Magnitude_16sc = 2048, Magnitude_32fc = 2048;
inline constexpr int SortRadix_32 = 8192, SortRadix_64f = 4096;
}  // namespace threshold

}  // namespace zams
