// The complex plan of the DFT of any length: its layout and build (one
// function for both), and its run. Methods and layout in dft_core.h.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "../common/blockconv.h"
#include "../common/trig.h"
#include "dft_core.h"
#include "dft_passes.h"

namespace zams::dft {
namespace {

template <class F> using Dom = fftp::Complex<F>;
template <class F> using E = typename Dom<F>::Elem;

constexpr bool is_pow2(int64_t n) { return n > 0 && (n & (n - 1)) == 0; }
inline int log2_of(int64_t n) {
    int k = 0;
    while ((int64_t(1) << k) < n) ++k;
    return k;
}
inline int64_t pow_mod(int64_t b, int64_t e, int64_t m) {
    int64_t r = 1;
    for (b %= m; e; e >>= 1, b = b * b % m)
        if (e & 1) r = r * b % m;
    return r;
}

// The radices of n in pass order. The prime factors: 4s, a 2, the odd
// primes; each odd prime, the largest first, takes the 2 or else a 4 into
// a composite radix (`composite`, dft_passes.h), the odd primes left pair
// off (15, 21, 35): every fusion saves a sweep over the data. The first pass takes a
// radix with a 4 in it when there is one, else the largest (the first pass
// runs in lanes, which a wide radix keeps busy). Returns the count, or 0
// when a prime factor exceeds kMaxRadix. No fusion when `fuse` is false:
// short sequences (below kFuseMin) keep the prime radices, whose first pass
// fills its lanes (100: 20 x 5 took 1.26 of the time of 4 x 5 x 5, 240 to
// 600 fused 0.80 to 0.98). (Radix-8 passes were measured slower than pairs
// of radix-4 ones here.)
inline constexpr int kFuseMin = 200;
int radices(int n, int32_t* r, bool fuse) {
    int two = 0, k = 0;
    int32_t odd[kMaxStages];
    int no = 0;
    while (n % 4 == 0) { r[k++] = 4; n /= 4; }
    if (n % 2 == 0) { two = 1; n /= 2; }
    for (int p = 3; n > 1; p += 2) {
        if (p > kMaxRadix) return 0;
        while (n % p == 0) { odd[no++] = p; n /= p; }
    }
    int fours = k;
    k = 0;
    for (int i = no - 1; i >= 0 && fuse; --i) {  // the largest odd primes take the powers of two
        if (two && composite(2 * odd[i])) { odd[i] *= 2; two = 0; }
        else if (fours && composite(4 * odd[i])) { odd[i] *= 4; --fours; }
    }
    for (int i = 0; i < fours; ++i) r[k++] = 4;
    if (two) r[k++] = 2;
    for (int i = 0; i < no; ++i) {
        if (!odd[i]) continue;
        for (int j = i + 1; j < no && odd[i] % 2 && fuse; ++j)
            if (odd[j] && odd[j] % 2 && composite(odd[i] * odd[j])) { odd[i] *= odd[j]; odd[j] = 0; }
        r[k++] = odd[i];
    }
    int first = 0;
    for (int i = 1; i < k; ++i)
        if (r[first] % 4 ? r[i] % 4 == 0 || r[i] > r[first] : r[i] % 4 == 0 && r[i] > r[first]) first = i;
    std::swap(r[0], r[first]);
    return k;
}

// The order of M when n = M L runs by the Split method, else 0: double
// precision, at least kSplitMinLen points, 2^k >= kSplitMin dividing n,
// every prime factor of L at most kMaxRadix. M = 2^k, at most kSplitRow
// up to kSplitWhole points (rows that stay in the first-level cache, the
// rest of the power of two in L's passes, which fuse it with the odd
// factors: 12288 = 1024 x 12 runs one radix-12 pass and twelve FFTs of
// 1024, 0.89 of the time of 3 x 4096), all of 2^k above. Measured against
// the mixed-radix passes (double): Split wins from 2^10 | n (6144: 0.85,
// 24576: 0.83 of the time), loses below (48000 = 2^7 375: 1.06, 96000:
// 1.25), and in single precision it wins nowhere (3072: 1.45, 12288: 1.0).
inline constexpr int kSplitMin = 1024, kSplitRow = 1024, kSplitWhole = 1 << 16;
template <class F> inline constexpr int kSplitMinLen = sizeof(F) == 8 ? 3072 : kMaxLen + 1;
template <class F> int split_len(int n) {
    int M = n & -n;
    if (M < kSplitMin || M == n || n < kSplitMinLen<F>) return 0;
    if (n <= kSplitWhole) M = std::min(M, kSplitRow);
    int L = n / M;
    while (L % 2 == 0) L /= 2;
    for (int p = 3; L > 1; p += 2) {
        if (p > kMaxRadix) return 0;
        while (L % p == 0) L /= p;
    }
    return log2_of(M);
}

// The convolution length of Bluestein's method for at least n points: of
// the lengths 2^k o >= n (o odd with no prime factor above 7) the one of
// least estimated cost L (k + kOddCost log2 o); a power of two is o = 1.
// kOddCost, the odd passes' time a point and octave against the
// power-of-two passes', fits the measured choices (4099: 8232 = 2^3 3 7^3
// at half the time of 16384 and 0.8 of 9216; 853: 1792 = 2^8 7, not the
// slower 1715 = 5 7^3).
inline constexpr double kOddCost = 1.1;
int64_t chirp_len(int64_t n) {
    int64_t best = 0;
    double bestCost = 0;
    for (int64_t a = 1; a < 2 * n; a *= 7)
        for (int64_t b = a; b < 2 * n; b *= 5)
            for (int64_t o = b; o < 2 * n; o *= 3) {
                int64_t len = o;
                int k = 0;
                for (; len < n; len *= 2) ++k;
                const double cost = double(len) * (k + kOddCost * std::log2(double(o)));
                if (!best || cost < bestCost) { best = len; bestCost = cost; }
            }
    return best;
}

bool is_prime(int n) {
    if (n < 2) return false;
    for (int d = 2; int64_t(d) * d <= n; ++d)
        if (n % d == 0) return false;
    return true;
}

// exp(-i pi k / n) into t[0], t[1].
template <class F> void put_w(F* t, int64_t k, int64_t n) { fft::put_w(t, (long long)k, (long long)n); }

// The inner FFT plan at base + off.
template <class F> Dom<F> fft_at(const uint8_t* base, uint32_t off) {
    Dom<F> d;
    d.spec = reinterpret_cast<const typename Dom<F>::X::CSpec*>(base + off);
    return d;
}
template <class F> conv::Kernel<Dom<F>> kernel_of(const uint8_t* base, const CPlan<F>& pl) {
    conv::Kernel<Dom<F>> k;
    k.fft = fft_at<F>(base, pl.fft);
    k.order = pl.order;
    k.taps = 1 << pl.order;
    k.spectrum = reinterpret_cast<const E<F>*>(base + pl.ker);
    return k;
}

}  // namespace

template <class F>
zamStatus lay_cplan(int n, int flag, uint8_t* base, CPlan<F>* pl, int64_t off, uint8_t* tmp, Need& need) {
    const bool build = base != nullptr;
    const int64_t esz = 2 * int64_t(sizeof(F));
    CPlan<F> P;
    std::memset(&P, 0, sizeof P);
    P.n = n;
    P.fwdOn = flag == 1 || flag == 4;
    P.invOn = flag == 2 || flag == 4;
    const double sc = flag == 4 ? 1.0 / std::sqrt(double(n)) : 1.0 / double(n);
    P.fwdScale = P.invScale = F(sc);
    tmp = tmp ? align64(tmp) : nullptr;
    auto take = [&](int64_t bytes) {
        const int64_t o = int64_t(round64(size_t(off)));
        off = o + bytes;
        return uint32_t(o);
    };
    // The inner FFT of 2^order points with the given flag.
    auto inner_fft = [&](int order, int fflag, fftp::Sizes& fs) -> zamStatus {
        if (zamStatus s = Dom<F>::sizes(order, fflag, fs)) return s;
        P.order = order;
        P.fft = take(fs.spec);
        P.fftWork = fs.work;
        need.init = std::max<int64_t>(need.init, fs.init > 0 ? fs.init + 64 : 0);
        if (!build) return zamStatusOk;
        Dom<F> d;
        if (zamStatus s = Dom<F>::build(order, fflag, base + P.fft, tmp, d)) return s;
        P.fft = uint32_t(reinterpret_cast<const uint8_t*>(d.spec) - base);
        return zamStatusOk;
    };
    // A convolution kernel of M = 2^order values from h(j, t) into P.ker;
    // the build block holds h and the engine's scratch.
    auto kernel = [&](const fftp::Sizes& fs, auto&& h) -> zamStatus {
        const int64_t M = int64_t(1) << P.order;
        P.ker = take(M * esz);
        need.init = std::max<int64_t>(need.init, 64 + M * esz + 64 + fs.work + M * esz + 16);
        if (!build) return zamStatusOk;
        F* hv = reinterpret_cast<F*>(tmp);
        for (int64_t j = 0; j < M; ++j) h(j, hv + 2 * j);
        uint8_t* scratch = align64(tmp + M * esz);
        conv::Kernel<Dom<F>> k;
        return conv::make_kernel(fft_at<F>(base, P.fft), P.order, reinterpret_cast<const E<F>*>(hv), int(M),
                                 reinterpret_cast<E<F>*>(base + P.ker), scratch, k);
    };

    int32_t r[kMaxStages];
    // The passes of the radices r[0..nr) over a sequence of len points (the
    // first in lanes when `lanes` and its m fills a vector); returns nr.
    auto stages = [&](int64_t len, int nr, bool lanes) {
        constexpr int W = Vec<F>::W;
        int64_t s = 1;
        for (int i = 0; i < nr; ++i) {
            const int p = r[i];
            const int64_t m = len / p;
            Stage& st = P.st[i];
            st.radix = p;
            st.lanes = lanes && s == 1 && m >= W;
            if (m > 1) {
                st.tw = take(m * (p - 1) * esz);
                if (build) {
                    F* t = reinterpret_cast<F*>(base + st.tw);
                    for (int64_t j = 0; j < m; ++j)
                        for (int64_t q = 1; q < p; ++q)
                            put_w(t + 2 * (st.lanes ? (q - 1) * m + j : j * (p - 1) + (q - 1)), 2 * j * q, len);
                }
            }
            if (const int nroots = roots_count(p)) {
                st.roots = take(int64_t(nroots) * esz);
                if (build) {
                    F* t = reinterpret_cast<F*>(base + st.roots);
                    const int a = pfa_first(p), f[2] = {a ? a : p, a ? p / a : 0};
                    for (const int q : f)
                        for (int k = 0; k < q; ++k, t += 2) {
                            double sv, cv;
                            sincospi_ratio(2 * k, q, &sv, &cv);
                            t[0] = F(cv);
                            t[1] = F(sv);
                        }
                }
            }
            s *= p;
            len = m;
        }
        return nr;
    };

    int nr = 0;
    if (is_pow2(n)) {
        P.method = kPow2;
        fftp::Sizes fs;
        if (zamStatus s = inner_fft(log2_of(n), flag, fs)) return s;
    } else if (split_len<F>(n) > 0) {
        // n = M L, M = 2^order: the passes of L on M columns, the last one
        // times W_n^(n1 k2); L FFTs of M; the interleave.
        P.method = kSplit;
        const int order = split_len<F>(n);
        fftp::Sizes fs;
        if (zamStatus s = inner_fft(order, zamFftScaleNone, fs)) return s;
        const int64_t M = int64_t(1) << order, L = n >> order;
        P.nst = stages(int(L), radices(int(L), r, true), false);
        // Twiddle rows W_n^(n1 q), q < s, then W_n^(n1 s t), 0 < t < p (p
        // the last radix, s = L / p): the last pass multiplies the two.
        const int64_t Mo = M + kRowPad<F>, p = P.st[P.nst - 1].radix, s = L / p;
        P.tab = take((s + p - 1) * Mo * esz);
        if (build) {
            F* t = reinterpret_cast<F*>(base + P.tab);
            for (int64_t i = 0; i < s + p - 1; ++i)
                for (int64_t n1 = 0; n1 < M; ++n1) put_w(t + 2 * (i * Mo + n1), 2 * n1 * (i < s ? i : s * (i - s + 1)), n);
        }
        P.bufBytes = int32_t(L * Mo * esz);
    } else if ((nr = radices(n, r, n >= kFuseMin)) > 0) {
        P.method = kMixed;
        P.nst = stages(n, nr, true);
        P.shortPlan = short_plan(r, nr);
        P.bufBytes = int32_t(n * esz);
    } else if (is_prime(n) && is_pow2(n - 1)) {
        // Rader: X[g^-r] = x[0] + sum_q x[g^q] w^(g^(q-r)), w = exp(-2 pi i / n).
        P.method = kRader;
        const int M = n - 1;
        fftp::Sizes fs;
        if (zamStatus s = inner_fft(log2_of(M), zamFftScaleInverse, fs)) return s;
        P.perm = take(int64_t(2) * M * 4);
        int g = 2;
        while (pow_mod(g, M / 2, n) == 1) ++g;  // M is a power of two: g is a generator
        const int64_t ginv = pow_mod(g, n - 2, n);
        if (build) {
            int32_t* pin = reinterpret_cast<int32_t*>(base + P.perm);
            int32_t* pout = pin + M;
            int64_t a = 1, b = 1;
            for (int q = 0; q < M; ++q, a = a * g % n, b = b * ginv % n) {
                pin[q] = int32_t(a);
                pout[q] = int32_t(b);
            }
        }
        const int32_t* pout = build ? reinterpret_cast<const int32_t*>(base + P.perm) + M : nullptr;
        if (zamStatus s = kernel(fs, [&](int64_t q, F* t) { put_w(t, 2 * int64_t(pout[q]), n); })) return s;
        P.bufBytes = int32_t(int64_t(M) * esz);
    } else {
        // Bluestein: X[k] = c[k] sum_j x[j] c[j] conj(c[k - j]), c[j] = exp(-i pi j^2 / n).
        P.method = kBluestein;
        const int64_t M = chirp_len(2 * int64_t(n) - 1);
        P.tab = take(n * esz);
        if (build) {
            F* c = reinterpret_cast<F*>(base + P.tab);
            for (int64_t j = 0; j < n; ++j) put_w(c + 2 * j, j * j % (2 * int64_t(n)), n);
        }
        const F* c = build ? reinterpret_cast<const F*>(base + P.tab) : nullptr;
        auto h = [&](int64_t j, F* t) {
            const int64_t k = j < n ? j : (M - j < n ? M - j : -1);
            t[0] = k < 0 ? F(0) : c[2 * k];
            t[1] = k < 0 ? F(0) : -c[2 * k + 1];
        };
        if (is_pow2(M)) {
            fftp::Sizes fs;
            if (zamStatus s = inner_fft(log2_of(M), zamFftScaleInverse, fs)) return s;
            if (zamStatus s = kernel(fs, h)) return s;
        } else {
            // The nested plan of M, then the kernel's spectrum DFT(h) / M
            // (the build block: h, then the nested plan's work buffer).
            P.sub = take(int64_t(sizeof(CPlan<F>)));
            CPlan<F>* sp = build ? reinterpret_cast<CPlan<F>*>(base + P.sub) : nullptr;
            Need sn;
            if (zamStatus s = lay_cplan<F>(int(M), zamFftScaleNone, base, sp, off, tmp, sn)) return s;
            off = sn.spec;
            P.ker = take(M * esz);
            P.fftWork = int32_t(sn.work);
            need.init = std::max<int64_t>({need.init, sn.init, 64 + M * esz + 64 + sn.work + 64});
            if (build) {
                F* hv = reinterpret_cast<F*>(tmp);
                for (int64_t j = 0; j < M; ++j) h(j, hv + 2 * j);
                F* K = reinterpret_cast<F*>(base + P.ker);
                if (zamStatus s = run_cplan<F, false>(base, *sp, hv, K, align64(tmp + M * esz))) return s;
                const F f = F(1.0 / double(M));
                for (int64_t j = 0; j < 2 * M; ++j) K[j] = K[j] * f;
            }
        }
        P.bufBytes = int32_t(M * esz);
    }
    need.spec = off;
    need.work = int64_t(round64(size_t(P.bufBytes))) + P.fftWork;
    if (build) *pl = P;
    return zamStatusOk;
}

namespace {

// y[k] = conj?(c[k] conj?(x[k])) * scale, n values: the chirp products and
// (with c null) a plain scaled copy.
template <class F, bool ConjIn, bool ConjOut>
void chirp(const F* c, const F* x, F* y, size_t n, const F* scale) {
    using VO = Vec<F>;
    using T = typename VO::T;
    const auto cs = T::imsign();
    const auto sv = T::set1(scale ? *scale : F(1));
    size_t k = 0;
    for (; k + VO::W <= n; k += VO::W) {
        auto v = T::load(x + 2 * k);
        if constexpr (ConjIn) v = T::xor_(v, cs);
        v = fft::cmul<F, false>(v, T::load(c + 2 * k));
        if constexpr (ConjOut) v = T::xor_(v, cs);
        if (scale) v = T::mul(v, sv);
        T::store(y + 2 * k, v);
    }
    for (; k < n; ++k) {
        F xr = x[2 * k], xi = ConjIn ? -x[2 * k + 1] : x[2 * k + 1];
        F re = xr * c[2 * k] - xi * c[2 * k + 1], im = xi * c[2 * k] + xr * c[2 * k + 1];
        if constexpr (ConjOut) im = -im;
        if (scale) { re = re * *scale; im = im * *scale; }
        y[2 * k] = re;
        y[2 * k + 1] = im;
    }
}

}  // namespace

template <class F, bool Inv>
zamStatus run_cplan(const uint8_t* base, const CPlan<F>& pl, const F* src, F* dst, uint8_t* work) {
    const size_t n = size_t(pl.n);
    const F* scale = (Inv ? pl.invOn : pl.fwdOn) ? (Inv ? &pl.invScale : &pl.fwdScale) : nullptr;
    if (pl.shortPlan) {  // Mixed with its counts compiled (dft_passes.h)
        F* t = reinterpret_cast<F*>(work);
        const F* x = src;
        if (src == dst && (pl.nst & 1)) {  // the first pass would write what it reads
            std::memcpy(t, src, n * 2 * sizeof(F));
            x = t;
        }
        ShortTable<F, Inv, Stage, ShortPlans>::fn[pl.shortPlan - 1](base, pl.st, x, dst, t, scale);
        return zamStatusOk;
    }
    switch (pl.method) {
        case kPow2: {
            const Dom<F> d = fft_at<F>(base, pl.fft);
            const auto* s = reinterpret_cast<const E<F>*>(src);
            auto* o = reinterpret_cast<E<F>*>(dst);
            return Inv ? d.inv(s, o, work) : d.fwd(s, o, work);
        }
        case kMixed: {
            F* t = reinterpret_cast<F*>(work);
            const F* x = src;
            if (src == dst && (pl.nst & 1)) {  // the first pass would write what it reads
                std::memcpy(t, src, n * 2 * sizeof(F));
                x = t;
            }
            size_t s = 1, len = n;
            for (int i = 0; i < pl.nst; ++i) {
                const Stage& st = pl.st[i];
                const size_t m = len / size_t(st.radix);
                F* y = ((pl.nst - 1 - i) & 1) ? t : dst;
                const F* tw = st.tw ? reinterpret_cast<const F*>(base + st.tw) : nullptr;
                const F* roots = st.roots ? reinterpret_cast<const F*>(base + st.roots) : nullptr;
                run_pass<F, Inv>(x, y, s, m, st.radix, st.lanes, tw, roots, i == pl.nst - 1 ? scale : nullptr);
                x = y;
                s *= size_t(st.radix);
                len = m;
            }
            return zamStatusOk;
        }
        case kSplit: {
            // Rows of M at stride Mo in the work buffer; the earlier passes
            // alternate between dst and the work buffer so that the last one
            // reads dst (or src) and writes the rows.
            const size_t M = size_t(1) << pl.order, L = n / M, Mo = M + kRowPad<F>;
            F* t = reinterpret_cast<F*>(work);
            const F* x = src;
            if (src == dst && pl.nst > 1 && !(pl.nst & 1)) {  // the first pass would write what it reads
                std::memcpy(t, src, n * 2 * sizeof(F));
                x = t;
            }
            size_t s = 1, len = L;
            const F* tab = reinterpret_cast<const F*>(base + pl.tab);
            for (int i = 0; i < pl.nst; ++i) {
                const Stage& st = pl.st[i];
                const size_t m = len / size_t(st.radix);
                const F* roots = st.roots ? reinterpret_cast<const F*>(base + st.roots) : nullptr;
                if (i == pl.nst - 1) {
                    run_split_last<F, Inv>(x, t, M, Mo, s, st.radix, tab, roots, scale);
                    break;
                }
                F* y = ((pl.nst - 2 - i) & 1) ? t : dst;
                run_pass<F, Inv>(x, y, s * M, m, st.radix, false, reinterpret_cast<const F*>(base + st.tw), roots, nullptr);
                x = y;
                s *= size_t(st.radix);
                len = m;
            }
            const Dom<F> d = fft_at<F>(base, pl.fft);
            uint8_t* fw = work + round64(size_t(pl.bufBytes));
            for (size_t k2 = 0; k2 < L; ++k2) {
                auto* row = reinterpret_cast<E<F>*>(t + 2 * k2 * Mo);
                if (zamStatus st = Inv ? d.inv(row, row, fw) : d.fwd(row, row, fw)) return st;
            }
            interleave(t, dst, M, Mo, L);
            return zamStatusOk;
        }
        case kRader: {
            const size_t M = n - 1;
            F* b = reinterpret_cast<F*>(work);
            const int32_t* pin = reinterpret_cast<const int32_t*>(base + pl.perm);
            const int32_t* pout = pin + M;
            const F x0r = src[0], x0i = Inv ? -src[1] : src[1];
            F sr = x0r, si = x0i;
            for (size_t q = 0; q < M; ++q) {
                const size_t i = size_t(pin[q]);
                b[2 * q] = src[2 * i];
                b[2 * q + 1] = Inv ? -src[2 * i + 1] : src[2 * i + 1];
                sr += b[2 * q];
                si += b[2 * q + 1];
            }
            const zamStatus st = conv::cyclic(kernel_of(base, pl), reinterpret_cast<E<F>*>(b), work + round64(size_t(pl.bufBytes)));
            if (st < 0) return st;
            const F f = scale ? *scale : F(1);
            const F sg = Inv ? F(-1) : F(1);
            dst[0] = scale ? sr * f : sr;
            dst[1] = sg * (scale ? si * f : si);
            for (size_t q = 0; q < M; ++q) {
                const size_t k = size_t(pout[q]);
                F re = x0r + b[2 * q], im = x0i + b[2 * q + 1];
                if (scale) { re = re * f; im = im * f; }
                dst[2 * k] = re;
                dst[2 * k + 1] = sg * im;
            }
            return st;
        }
        default: {  // Bluestein
            const CPlan<F>* sp = pl.sub ? reinterpret_cast<const CPlan<F>*>(base + pl.sub) : nullptr;
            const size_t M = sp ? size_t(sp->n) : size_t(1) << pl.order;
            F* b = reinterpret_cast<F*>(work);
            uint8_t* rest = work + round64(size_t(pl.bufBytes));
            const F* c = reinterpret_cast<const F*>(base + pl.tab);
            chirp<F, Inv, false>(c, src, b, n, nullptr);
            std::memset(b + 2 * n, 0, (M - n) * 2 * sizeof(F));
            zamStatus st = zamStatusOk;
            if (sp) {  // the cyclic convolution by the nested plan: DFT, times DFT(h) / M, inverse DFT
                if ((st = run_cplan<F, false>(base, *sp, b, b, rest)) < 0) return st;
                chirp<F, false, false>(reinterpret_cast<const F*>(base + pl.ker), b, b, M, nullptr);
                if ((st = run_cplan<F, true>(base, *sp, b, b, rest)) < 0) return st;
            } else {
                st = conv::cyclic(kernel_of(base, pl), reinterpret_cast<E<F>*>(b), rest);
                if (st < 0) return st;
            }
            chirp<F, false, Inv>(c, b, dst, n, scale);
            return st;
        }
    }
}

template zamStatus lay_cplan<float>(int, int, uint8_t*, CPlan<float>*, int64_t, uint8_t*, Need&);
template zamStatus lay_cplan<double>(int, int, uint8_t*, CPlan<double>*, int64_t, uint8_t*, Need&);
template zamStatus run_cplan<float, false>(const uint8_t*, const CPlan<float>&, const float*, float*, uint8_t*);
template zamStatus run_cplan<float, true>(const uint8_t*, const CPlan<float>&, const float*, float*, uint8_t*);
template zamStatus run_cplan<double, false>(const uint8_t*, const CPlan<double>&, const double*, double*, uint8_t*);
template zamStatus run_cplan<double, true>(const uint8_t*, const CPlan<double>&, const double*, double*, uint8_t*);

}  // namespace zams::dft
