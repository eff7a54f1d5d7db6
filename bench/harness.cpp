#include "harness.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
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

// Two benchmark processes (one a target) taking turns row by row, so that a
// swing of the machine's load falls on both targets' figures of a row alike.
// ZAMS_BENCH_BATON="rfd,wfd,lead|follow" names the inherited pipe ends. Only
// the holder of the baton runs (setup included); the other waits in read().
// Row k is timed first by the lead when k is even, by the follower when odd:
// whoever timed a row first hands the baton over, the second keeps it and
// times the next row first. A process that ends hands over for good ('x');
// end of file (the other crashed) also frees the waiting one.
class Baton {
public:
    Baton() {
        const char* e = std::getenv("ZAMS_BENCH_BATON");
        char role[16] = {};
        if (!e || std::sscanf(e, "%d,%d,%15s", &rfd_, &wfd_, role) != 3) return;
        std::signal(SIGPIPE, SIG_IGN);
        lead_ = std::strcmp(role, "lead") == 0;
        on_ = true;
        if (!lead_) wait();
    }
    // After a row is timed: hands over if this process timed it first.
    void row_done() {
        if (!on_) return;
        const bool first = (row_ % 2 == 0) == lead_;
        ++row_;
        if (first) {
            send('t');
            wait();
        }
    }
    void finish() {
        if (on_) send('x');
        on_ = false;
    }

private:
    void send(char c) {
        if (write(wfd_, &c, 1) != 1) on_ = false;
    }
    void wait() {
        char c = 0;
        ssize_t r;
        do r = read(rfd_, &c, 1);
        while (r < 0 && errno == EINTR);
        if (r != 1 || c != 't') on_ = false;  // the other has ended: run free
    }
    int rfd_ = -1, wfd_ = -1;
    bool lead_ = false, on_ = false;
    long row_ = 0;
};

Baton& baton() {
    static Baton b;
    return b;
}

// ZAMS_BENCH_TSV=path: every contender's median and best seconds a call, one
// line each (family, row, length, contender, median, best), for
// scripts/bench_targets.sh.
FILE* tsv() {
    static FILE* f = [] {
        const char* e = std::getenv("ZAMS_BENCH_TSV");
        return e ? std::fopen(e, "w") : nullptr;
    }();
    return f;
}

std::string& family() {
    static std::string f;
    return f;
}

}  // namespace

int register_bench(const char* name, BenchFn fn) {
    registry()[name] = fn;
    return 0;
}

void Bench::row(const std::string& what, long n, double bytes, std::vector<Contender> cs) {
    const size_t k = cs.size();
    std::vector<long> reps;
    for (auto& c : cs) {
        c.second();  // warm up: caches, page faults, plans
        long r = 1;
        while (sample(c.second, r) * double(r) < 2e-3 && r < (1L << 24)) r *= 2;
        reps.push_back(r);
    }
    // Round r runs the contenders in a rotated order, forwards on even rounds
    // and backwards on odd ones, so each follows its neighbours on both sides
    // equally often; a quarter sample of untimed calls first lets the one
    // about to be timed recover from whatever ran before it (a peer's x87
    // code, its cache footprint).
    std::vector<std::vector<double>> t(k);
    for (int round = 0; round < rounds(); ++round)
        for (size_t j = 0; j < k; ++j) {
            const size_t s = size_t(round / 2) % k;
            const size_t i = round % 2 ? (s + k - j) % k : (s + j) % k;
            for (long w = std::max(1L, reps[i] / 4); w > 0; --w) cs[i].second();
            t[i].push_back(sample(cs[i].second, reps[i]));
        }
    std::vector<double> med, best;
    for (auto& v : t) {
        std::sort(v.begin(), v.end());
        med.push_back(v[v.size() / 2]);
        best.push_back(v[0]);
    }
    std::printf("%-28s %9ld  %s %10.1f ns", what.c_str(), n, cs[0].first.c_str(), med[0] * 1e9);
    if (bytes > 0) std::printf(" (%5.1f GB/s)", bytes / med[0] / 1e9);
    for (size_t i = 1; i < k; ++i)
        std::printf("  /%s %5.2f (best %4.2f)", cs[i].first.c_str(), med[0] / med[i], best[0] / best[i]);
    std::printf("\n");
    std::fflush(stdout);
    if (FILE* f = tsv()) {
        for (size_t i = 0; i < k; ++i)
            std::fprintf(f, "%s\t%s\t%ld\t%s\t%.6e\t%.6e\n", family().c_str(), what.c_str(), n,
                         cs[i].first.c_str(), med[i], best[i]);
        std::fflush(f);
    }
    baton().row_done();
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
    std::fflush(stdout);
    zb::baton();  // the follower waits here for the lead's first row
    for (auto& [name, fn] : zb::registry())
        if (std::strstr(name.c_str(), filter)) {
            std::printf("# %s\n", name.c_str());  // the family, for bench/plot.py
            zb::family() = name;
            fn(b);
        }
    zb::baton().finish();
    return 0;
}
