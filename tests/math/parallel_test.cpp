// The parallel frame (slices, team size, warning combination, thresholds)
// and every parallel member around its threshold.
#include <algorithm>
#include <functional>
#include <mutex>
#include <utility>

#include "core/parallel.h"
#include "digest.h"
#include "math_util.h"

namespace {

using Slices = std::vector<std::pair<int, int>>;

// The slices a run gives (through run_threshold when a threshold is given).
Slices slices_of(int len, zams::Team team, int warn_from = -1, int* result = nullptr, int threshold = 0) {
    Slices s;
    std::mutex m;
    auto kernel = [&](int off, int cnt) {
        std::lock_guard<std::mutex> lock(m);
        s.emplace_back(off, cnt);
        return warn_from >= 0 && off + cnt > warn_from && off <= warn_from;
    };
    int r = threshold ? zams::run_threshold(len, threshold, team, kernel) : zams::run_sliced(len, team, kernel);
    if (result) *result = r;
    std::sort(s.begin(), s.end());
    return s;
}

// Two threads split with the remainder last; a warning in any slice is
// reported; one thread runs the whole vector on the caller; the team is
// capped at two except for All.
TEST(ParallelFrame, SlicesAndWarnings) {
    {
        mt::Threads t(2);
        EXPECT_EQ(slices_of(4097, zams::Team::AtMostTwo), (Slices{{0, 2048}, {2048, 2049}}));
        EXPECT_EQ(slices_of(2, zams::Team::AtMostTwo), (Slices{{0, 1}, {1, 1}}));
        EXPECT_EQ(slices_of(1, zams::Team::AtMostTwo), (Slices{{0, 1}}));  // shorter than the team
        for (int warn_from : {999, 0, -1}) {
            int r = -1;
            slices_of(1000, zams::Team::AtMostTwo, warn_from, &r);
            EXPECT_EQ(r != 0, warn_from >= 0) << warn_from;
        }
    }
    {
        mt::Threads t(1);
        EXPECT_EQ(slices_of(4097, zams::Team::All), (Slices{{0, 4097}}));
    }
    mt::Threads t(3);
    EXPECT_EQ(slices_of(10, zams::Team::AtMostTwo), (Slices{{0, 5}, {5, 5}}));
    // the runtime may give fewer threads than asked; the slices always tile the vector
    Slices all = slices_of(10, zams::Team::All);
    ASSERT_FALSE(all.empty());
    EXPECT_LE(all.size(), 3u);
    int next = 0;
    for (auto [off, cnt] : all) {
        EXPECT_EQ(off, next);
        next += cnt;
    }
    EXPECT_EQ(next, 10);
    EXPECT_TRUE(all.size() < 3 || all.back() == (std::pair<int, int>{6, 4}));
}

// Below the threshold one call on the whole vector, at it the split.
TEST(ParallelFrame, Threshold) {
    mt::Threads t(2);
    const int thr = zams::threshold::Sqrt_32f;
    EXPECT_EQ(slices_of(thr - 1, zams::Team::AtMostTwo, -1, nullptr, thr), (Slices{{0, thr - 1}}));
    EXPECT_EQ(slices_of(thr, zams::Team::AtMostTwo, -1, nullptr, thr), (Slices{{0, thr / 2}, {thr / 2, thr - thr / 2}}));
}

// ------------------------------------------------------- parallel members

// Inputs without zero parts (so that no divisor is zero) and, with
// `positive`, without negative ones; complex types from pairs of parts.
template <class T> std::vector<T> pool(int len, uint32_t seed, bool positive = false) {
    if constexpr (requires { T{}.re; }) {
        auto p = pool<decltype(T{}.re)>(2 * len, seed, positive);
        std::vector<T> v(static_cast<size_t>(len));
        std::memcpy(v.data(), p.data(), v.size() * sizeof(T));
        return v;
    } else {
        std::vector<T> v;
        if constexpr (std::is_integral_v<T>) v = zt::random_ints<T>(size_t(len), seed);
        else v = zt::random_reals<T>(size_t(len), seed);
        for (auto& x : v) {
            if constexpr (std::is_signed_v<T>)
                if (positive && x < 0) x = T(-(x + 1));
            if (x == T(0)) x = T(3);
        }
        return v;
    }
}

// One member: its threshold, the status it gives when the last element is
// `bad` (a zero divisor, a negative root) and a run that feeds outputs and
// status into a digest.
struct Member {
    const char* name;
    int threshold;
    zamStatus warn;
    std::function<zamStatus(int len, bool bad, zt::Digest&)> run;
};

template <class T> void record(zt::Digest& d, zamStatus st, const std::vector<T>& y) { d.status(st), d.add(y); }

// fn(src1, src2, dst, len); a bad run zeroes the last element of src1.
template <class S, class D, class Fn> Member binary(const char* name, int thr, zamStatus warn, Fn fn) {
    return {name, thr, warn, [fn](int len, bool bad, zt::Digest& d) {
                auto a = pool<S>(len, 21), b = pool<S>(len, 22);
                if (bad) std::memset(&a.back(), 0, sizeof(S));
                std::vector<D> y(static_cast<size_t>(len));
                zamStatus st = fn(a.data(), b.data(), y.data(), len);
                record(d, st, y);
                return st;
            }};
}

// fn(src, dst, len); a bad run puts `bad_value` last.
template <class S, class D, class Fn>
Member unary(const char* name, int thr, zamStatus warn, Fn fn, bool positive = false, S bad_value = S{}) {
    return {name, thr, warn, [=](int len, bool bad, zt::Digest& d) {
                auto a = pool<S>(len, 23, positive);
                if (bad) a.back() = bad_value;
                std::vector<D> y(static_cast<size_t>(len));
                zamStatus st = fn(a.data(), y.data(), len);
                record(d, st, y);
                return st;
            }};
}

std::vector<Member> members() {
    namespace th = zams::threshold;
    const zamStatus ok = zamStatusOk, dz = zamStatusWarnDivByZero, neg = zamStatusWarnSqrtNegative;
    return {
        binary<Zam8u, Zam8u>("Div_8u", th::Div_8u, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_8u_Sfs(a, b, y, n, 1); }),
        binary<Zam16s, Zam16s>("Div_16s", th::Div_16s, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_16s_Sfs(a, b, y, n, -2); }),
        binary<Zam32s, Zam32s>("Div_32s", th::Div_32s, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_32s_Sfs(a, b, y, n, 3); }),
        binary<Zam32s, Zam16s>("Div_32s16s", th::Div_32s16s, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_32s16s_Sfs(a, b, y, n, -4); }),
        binary<Zam16sc, Zam16sc>("Div_16sc", th::Div_16sc, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_16sc_Sfs(a, b, y, n, 0); }),
        binary<Zam8u, Zam8u>("Div_Round_8u", th::Div_Round_8u, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_Round_8u_Sfs(a, b, y, n, 2, 0); }),
        binary<Zam16s, Zam16s>("Div_Round_16s", th::Div_Round_16s, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_Round_16s_Sfs(a, b, y, n, 0, 1); }),
        binary<Zam16u, Zam16u>("Div_Round_16u", th::Div_Round_16u, dz, [](auto a, auto b, auto y, int n) { return zamsDiv_Round_16u_Sfs(a, b, y, n, 1, -1); }),
        binary<Zam32f, Zam32f>("Div_32f", th::Div_32f, ok, zamsDiv_32f),
        binary<Zam64f, Zam64f>("Div_64f", th::Div_64f, ok, zamsDiv_64f),
        binary<Zam32fc, Zam32fc>("Div_32fc", th::Div_32fc, ok, zamsDiv_32fc),
        binary<Zam64fc, Zam64fc>("Div_64fc", th::Div_64fc, ok, zamsDiv_64fc),
        unary<Zam32f, Zam32f>("DivCRev_32f", th::DivCRev_32f, ok, [](auto s, auto y, int n) { return zamsDivCRev_32f(s, -2.0f, y, n); }),
        unary<Zam16s, Zam16s>("DivC_16s", th::DivC_16s, ok, [](auto s, auto y, int n) { return zamsDivC_16s_Sfs(s, -3, y, n, -2); }),
        unary<Zam8u, Zam8u>("DivC_8u", th::DivC_8u, ok, [](auto s, auto y, int n) { return zamsDivC_8u_Sfs(s, 9, y, n, 1); }),
        unary<Zam16sc, Zam16sc>("DivC_16sc", th::DivC_16sc, ok, [](auto s, auto y, int n) { return zamsDivC_16sc_Sfs(s, {5, 3}, y, n, 0); }),
        unary<Zam16u, Zam16u>("DivCRev_16u", th::DivCRev_16u, dz, [](auto s, auto y, int n) { return zamsDivCRev_16u(s, 40000, y, n); }),
        unary<Zam32fc, Zam32f>("Magnitude_32fc", th::Magnitude_32fc, ok, zamsMagnitude_32fc),
        unary<Zam16sc, Zam16s>("Magnitude_16sc", th::Magnitude_16sc, ok, [](auto s, auto y, int n) { return zamsMagnitude_16sc_Sfs(s, y, n, 2); }),
        binary<Zam16s, Zam16s>("Magnitude_16s", th::Magnitude_16s, ok, [](auto a, auto b, auto y, int n) { return zamsMagnitude_16s_Sfs(a, b, y, n, -1); }),
        unary<Zam16s, Zam16s>("Sqrt_16s", th::Sqrt_16s, neg, [](auto s, auto y, int n) { return zamsSqrt_16s_Sfs(s, y, n, -3); }, true, Zam16s(-5)),
        unary<Zam64s, Zam16s>("Sqrt_64s16s", th::Sqrt_64s16s, neg, [](auto s, auto y, int n) { return zamsSqrt_64s16s_Sfs(s, y, n, 20); }, true, Zam64s(-1)),
        unary<Zam64s, Zam64s>("Sqrt_64s", th::Sqrt_64s, neg, [](auto s, auto y, int n) { return zamsSqrt_64s_Sfs(s, y, n, 1); }, true, Zam64s(-1)),
        unary<Zam32f, Zam32f>("Sqrt_32f", th::Sqrt_32f, ok, zamsSqrt_32f, true),
        unary<Zam32fc, Zam32fc>("Sqrt_32fc", th::Sqrt_32fc, ok, zamsSqrt_32fc),
        unary<Zam64fc, Zam64fc>("Sqrt_64fc", th::Sqrt_64fc, ok, zamsSqrt_64fc),
        unary<Zam16sc, Zam16sc>("Sqrt_16sc", th::Sqrt_16sc, ok, [](auto s, auto y, int n) { return zamsSqrt_16sc_Sfs(s, y, n, -1); }),
    };
}

// One thread and two give the same outputs and status just below, at and
// above each threshold; a bad element met only by the second slice still
// gives its warning.
TEST(ParallelMembers, SameResultsAndWarningsOnOneAndTwoThreads) {
    for (const Member& m : members()) {
        for (int len : {m.threshold - 1, m.threshold, m.threshold + 1, 2 * m.threshold + 3}) {
            for (bool bad : {false, true}) {
                if (bad && m.warn == zamStatusOk) continue;
                zt::Digest one, two;
                zamStatus s1, s2;
                {
                    mt::Threads t(1);
                    s1 = m.run(len, bad, one);
                }
                {
                    mt::Threads t(2);
                    s2 = m.run(len, bad, two);
                }
                EXPECT_EQ(s1, bad ? m.warn : zamStatusOk) << m.name << " len " << len;
                EXPECT_EQ(s2, s1) << m.name << " len " << len;
                EXPECT_EQ(one.value(), two.value()) << m.name << " len " << len << (bad ? " bad last" : "");
            }
        }
    }
}

}  // namespace
