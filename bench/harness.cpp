#include "harness.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

namespace zb {
namespace {

std::map<std::string, BenchFn>& registry() {
    static std::map<std::string, BenchFn> r;
    return r;
}

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Seconds per call of f, with enough calls per sample to last ~2 ms.
double sample(const Fn& f, long reps) {
    double t0 = now();
    for (long i = 0; i < reps; ++i) f();
    return (now() - t0) / double(reps);
}

// Samples a contender: ZAMS_BENCH_ROUNDS, 15 by default.
int rounds() {
    static const int r = [] {
        const char* e = std::getenv("ZAMS_BENCH_ROUNDS");
        const int v = e ? std::atoi(e) : 0;
        return v > 0 ? v : 15;
    }();
    return r;
}

}  // namespace

int register_bench(const char* name, BenchFn fn) {
    registry()[name] = fn;
    return 0;
}

void Bench::row(const std::string& what, long n, double bytes, std::vector<Contender> cs) {
    std::vector<long> reps;
    for (auto& c : cs) {
        c.second();  // warm up: caches, page faults, plans
        long r = 1;
        while (sample(c.second, r) * double(r) < 2e-3 && r < (1L << 24)) r *= 2;
        reps.push_back(r);
    }
    std::vector<std::vector<double>> t(cs.size());
    for (int round = 0; round < rounds(); ++round)
        for (size_t i = 0; i < cs.size(); ++i) t[i].push_back(sample(cs[i].second, reps[i]));
    std::vector<double> med, best;
    for (auto& v : t) {
        std::sort(v.begin(), v.end());
        med.push_back(v[v.size() / 2]);
        best.push_back(v[0]);
    }
    std::printf("%-28s %9ld  %s %10.1f ns", what.c_str(), n, cs[0].first.c_str(), med[0] * 1e9);
    if (bytes > 0) std::printf(" (%5.1f GB/s)", bytes / med[0] / 1e9);
    for (size_t i = 1; i < cs.size(); ++i)
        std::printf("  /%s %5.2f (best %4.2f)", cs[i].first.c_str(), med[0] / med[i], best[0] / best[i]);
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace zb

int main(int argc, char** argv) {
    const char* filter = argc > 1 ? argv[1] : "";
    zb::Bench b;
#if defined(ZAMS_BENCH_PROXY)
    std::printf("target: x86-64 on eight vector registers (-ffixed-xmm8..15), the i386 proxy: not an i386 figure\n");
#elif defined(__x86_64__)
    std::printf("target: x86-64\n");
#else
    std::printf("target: i386, run natively\n");
#endif
    std::printf("name                             length  zams time          ratios zams/peer (below 1: zams faster)\n");
    for (auto& [name, fn] : zb::registry())
        if (std::strstr(name.c_str(), filter)) {
            std::printf("# %s\n", name.c_str());  // the family, for bench/plot.py
            fn(b);
        }
    return 0;
}
