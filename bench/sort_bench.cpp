// Sorting against std::sort (and std::stable_sort for the index sort). Every
// contender first copies the same unsorted input into the vector it sorts,
// so the copy is in every time alike.
#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>
#include <vector>

#include "harness.h"
#include "zamcore.h"
#include "zams.h"

namespace {

std::vector<float> unsorted(int n) {
    std::mt19937 g(7);
    std::uniform_real_distribution<float> d(-1000.0f, 1000.0f);
    std::vector<float> v(n);
    for (auto& x : v) x = d(g);
    return v;
}

}  // namespace

ZAMS_BENCH(sort) {
    for (int n : {4096, 65536, 1 << 20}) {
        const auto in = unsorted(n);
        std::vector<float> x(n);
        std::vector<int> idx(n);
        int bytes = 0;
        zamsSortRadixGetBufferSize_32f(n, &bytes);
        Zam8u* buf = zamsMalloc_8u(bytes);
        auto fresh = [&] { std::memcpy(x.data(), in.data(), size_t(n) * sizeof(float)); };
        auto std_sort = [&] { fresh(); std::sort(x.begin(), x.end()); zb::keep(x[0]); };
        const int threads = ownGetNumThreads();
        b.row("SortAscend_32f_I", n, 0,
              {{"zams", [&] { fresh(); zamsSortAscend_32f_I(x.data(), n); zb::keep(x[0]); }}, {"std::sort", std_sort}});
        for (int t : {1, 2}) {
            zamSetNumThreads(t);
            b.row("SortRadixAscend_32f_I " + std::to_string(t) + " thread(s)", n, 0,
                  {{"zams", [&] { fresh(); zamsSortRadixAscend_32f_I(x.data(), buf, n); zb::keep(x[0]); }},
                   {"std::sort", std_sort}});
        }
        zamSetNumThreads(threads);
        b.row("SortIndexAscend_32f_I", n, 0,
              {{"zams", [&] { fresh(); zamsSortIndexAscend_32f_I(x.data(), idx.data(), n); zb::keep(idx[0]); }},
               {"std::stable_sort", [&] {
                    std::iota(idx.begin(), idx.end(), 0);
                    std::stable_sort(idx.begin(), idx.end(), [&](int i, int j) { return in[i] < in[j]; });
                    zb::keep(idx[0]);
                }}});
        zamsFree(buf);
    }
}
