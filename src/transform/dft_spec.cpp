// DFT specs of the floating kinds: sizes, building, query, release.
#include <cmath>

#include "dft_core.h"
#include "fft_core.h"

namespace zams::dft {
namespace {

// Free invalidates a spec in caller memory too.
template <class F> constexpr Shape kShape{64, offsetof(Hdr<F>, owned), true};

constexpr bool good_flag(int flag) { return flag == 1 || flag == 2 || flag == 4 || flag == 8; }

// The whole spec from its aligned start: header, then the plan's tables,
// then (real kinds of even length) the recombination factors W_len^k,
// k < len/2. One function for the size query (base null) and the build.
template <class F> zamStatus lay_spec(bool real, int len, int flag, uint8_t* base, uint8_t* tmp, Need& need) {
    Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
    const int64_t esz = 2 * int64_t(sizeof(F));
    const int64_t off = int64_t(round64(sizeof(Hdr<F>)));
    const bool half = real && len % 2 == 0;
    const int n = half ? len / 2 : len;
    if (zamStatus s = lay_cplan<F>(n, real ? zamFftScaleNone : flag, base, base ? &h->plan : nullptr, off, tmp, need))
        return s;
    int64_t area = 0;  // the real layer's part of the work buffer
    if (half) {
        const int64_t at = int64_t(round64(size_t(need.spec)));
        need.spec = at + n * esz;
        area = n * esz;
        if (base) {
            h->recomb = uint32_t(at);
            F* t = reinterpret_cast<F*>(base + at);
            for (int k = 0; k < n; ++k) fft::put_w(t + 2 * k, 2LL * k, (long long)len);
        }
    } else if (real) {
        area = int64_t(len) * esz;
    }
    need.work += int64_t(round64(size_t(area)));
    need.spec += 64;  // the caller's memory is rounded up to 64
    return need.spec < INT32_MAX && need.init < INT32_MAX && need.work < INT32_MAX - 64 ? zamStatusOk
                                                                                        : zamStatusBadLength;
}

}  // namespace

template <class F> zamStatus get_size(bool real, int len, int flag, int* pSpec, int* pInit, int* pWork) {
    if (len < 1 || len > kMaxLen) return zamStatusBadLength;
    if (!pSpec || !pInit || !pWork) return zamStatusNullPointer;
    if (!good_flag(flag)) return zamStatusBadFftFlag;
    Need need;
    if (zamStatus s = lay_spec<F>(real, len, flag, nullptr, nullptr, need)) return s;
    *pSpec = int(need.spec);
    *pInit = int(need.init);
    *pWork = need.work > 0 ? int(need.work + 64) : 0;
    return zamStatusOk;
}

template <class F>
zamStatus init(bool real, void** pp, int len, int flag, int hint, uint8_t* mem, uint8_t* tmp, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    if (len < 1 || len > kMaxLen) return zamStatusBadLength;
    if (!mem) return zamStatusNullPointer;
    return lay_into(pp, mem, kShape<F>, [&](uint8_t* base, int32_t& idOut) -> zamStatus {
        if (!good_flag(flag)) return zamStatusBadFftFlag;
        Need need;
        if (zamStatus s = lay_spec<F>(real, len, flag, nullptr, nullptr, need)) return s;
        if (need.init > 0 && !tmp) return zamStatusNullPointer;
        Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
        std::memset(h, 0, sizeof(Hdr<F>));
        h->len = len;
        h->flag = flag;
        h->hint = hint;
        h->real = real;
        Need built;
        if (zamStatus s = lay_spec<F>(real, len, flag, base, tmp, built)) return s;
        h->work = int32_t(built.work);
        idOut = id;
        return zamStatusOk;
    });
}

template <class F> zamStatus init_alloc(bool real, void** pp, int len, int flag, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    int spec, tmp, work;
    if (zamStatus s = get_size<F>(real, len, flag, &spec, &tmp, &work)) return s;
    return lay_alloc(pp, spec, tmp, kShape<F>, [&](void** out, uint8_t* mem, uint8_t* t) -> zamStatus {
        return init<F>(real, out, len, flag, hint, mem, t, id);
    });
}

template <class F> zamStatus buf_size(const void* spec, int32_t id, int* pSize) {
    return query_work<Hdr<F>>(spec, id, pSize, [](const Hdr<F>* h) { return h->work; });
}

template <class F> zamStatus free_spec(void* spec, int32_t id) { return release(spec, {id}, kShape<F>); }

#define ZAMS_DFT_SPEC(F)                                                                                   \
    template zamStatus get_size<F>(bool, int, int, int*, int*, int*);                                     \
    template zamStatus init<F>(bool, void**, int, int, int, uint8_t*, uint8_t*, int32_t);                 \
    template zamStatus init_alloc<F>(bool, void**, int, int, int, int32_t);                               \
    template zamStatus buf_size<F>(const void*, int32_t, int*);                                           \
    template zamStatus free_spec<F>(void*, int32_t);
ZAMS_DFT_SPEC(float)
ZAMS_DFT_SPEC(double)

}  // namespace zams::dft
