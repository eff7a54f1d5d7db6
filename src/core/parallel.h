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

}  // namespace zams
