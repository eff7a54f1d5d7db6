// The sparse FIR: y[n] = sum over j of taps[j] x[n - pos[j]], positions
// strictly increasing from 0 or more; the delay line holds the last
// `order` = pos[last] samples.
//
// A call zeros the output and adds each tap's scaled, shifted input over
// the whole block (one AddProductC a tap) from [delay line | input]: a
// block no longer than the order is joined behind the delay line whole; a
// longer one gives its first `order` outputs from the delay line joined
// with its head and the rest straight from the input.
#include <algorithm>
#include <cstring>

#include "../common/spec.h"

namespace zams::fir {
namespace {

struct Hdr {
    int32_t id, nz, order, offTaps, offPos, offDly, offRep, unused;
};
inline constexpr Shape kShape{16, 0, false};  // laid into caller memory only

constexpr int64_t ru16(int64_t n) { return (n + 15) & ~int64_t(15); }

template <class T> T* at(Hdr* h, int32_t off) { return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(h) + off); }

zamStatus size(int nz, int order, int* pSize) {
    if (zamStatus s = check_ptr(pSize)) return s;
    if (nz < 1 || order < 1) return zamStatusBadTapsLength;
    return report_size(ru16(8 * int64_t(order)) + 2 * ru16(4 * int64_t(nz)) + 16 * int64_t(nz) + 48, pSize);
}

zamStatus init(void** pp, const float* taps, const int32_t* pos, int nz, const float* dly, uint8_t* buf) {
    if (zamStatus s = check_ptr(pp, taps, pos, buf)) return s;
    if (nz < 1) return zamStatusBadTapsLength;
    if (pos[0] < 0) return zamStatusBadSparsePosition;
    for (int j = 0; j + 1 < nz; ++j)
        if (pos[j] >= pos[j + 1]) return zamStatusBadSparsePosition;
    return lay_into(pp, buf, kShape, [&](uint8_t* base, int32_t& id) {
        const int order = pos[nz - 1];
        Hdr* h = reinterpret_cast<Hdr*>(base);
        h->nz = nz;
        h->order = order;
        h->offDly = int32_t(ru16(sizeof(Hdr)));
        h->offTaps = h->offDly + int32_t(ru16(8 * int64_t(order)));
        h->offPos = h->offTaps + int32_t(ru16(4 * int64_t(nz)));
        h->offRep = h->offPos + int32_t(ru16(4 * int64_t(nz)));
        float* t = at<float>(h, h->offTaps);
        int32_t* off = at<int32_t>(h, h->offPos);
        float* rep = at<float>(h, h->offRep);
        for (int j = 0; j < nz; ++j) {
            t[j] = taps[nz - 1 - j];
            off[j] = order - pos[nz - 1 - j];
            std::fill(rep + 4 * j, rep + 4 * j + 4, taps[j]);
        }
        float* d = at<float>(h, h->offDly);
        for (int i = 0; i < order; ++i) d[i] = dly ? dly[order - 1 - i] : 0.0f;
        std::fill(d + order, d + 2 * order, 0.0f);
        id = id::FirSparse32f;
        return zamStatusOk;
    });
}

// dst[n] += sum over taps of t x c[n + off], n < count (c: the joined
// samples, element `order` being the first output's own input).
void add_taps(const Hdr* h, const float* c, float* dst, int count) {
    Hdr* m = const_cast<Hdr*>(h);
    const float* t = at<float>(m, h->offTaps);
    const int32_t* off = at<int32_t>(m, h->offPos);
    for (int j = h->nz - 1; j >= 0; --j) g9_zamsAddProductC_32f(c + off[j], t[j], dst, count);
}

zamStatus filter(const float* src, float* dst, int len, void* p) {
    if (zamStatus s = check_ptr(p, src, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {id::FirSparse32f}, s);
    if (!h) return s;
    const int order = h->order;
    float* d = at<float>(h, h->offDly);
    std::fill(dst, dst + len, 0.0f);
    if (len <= order) {
        std::memcpy(d + order, src, size_t(len) * sizeof(float));
        add_taps(h, d, dst, len);
        std::memmove(d, d + len, size_t(order) * sizeof(float));
        return zamStatusOk;
    }
    std::memcpy(d + order, src, size_t(order) * sizeof(float));
    add_taps(h, d, dst, order);
    std::memcpy(d, src + (len - order), size_t(order) * sizeof(float));
    add_taps(h, src, dst + order, len - order);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::fir

using namespace zams::fir;

ZAMS_FN(zamStatus, zamsFIRSparseGetStateSize_32f)(int nz, int order, int* s) { return size(nz, order, s); }
ZAMS_FN(zamStatus, zamsFIRSparseInit_32f)(ZamsFIRSparseState_32f** pp, const Zam32f* t, const Zam32s* pos, int nz,
                                          const Zam32f* d, Zam8u* b) {
    return init(reinterpret_cast<void**>(pp), t, pos, nz, d, b);
}
ZAMS_FN(zamStatus, zamsFIRSparse_32f)(const Zam32f* s, Zam32f* d, int n, ZamsFIRSparseState_32f* p) {
    return filter(s, d, n, p);
}
