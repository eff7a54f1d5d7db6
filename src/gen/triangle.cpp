// Triangle waves: the Direct members, the Q15 Direct member and the Q15
// state.
#include <cstddef>
#include <cstring>

#include "gen_common.h"

namespace zams::gen {
namespace {

// The running wave: a double value that moves by the falling or rising
// slope each sample and is reflected at the peaks, keeping the time spent
// beyond a peak so the wave stays in step with its phase.
struct Wave {
    double magn, h, g, down, up, gh, hg, wrapUp, wrapDown;
    double v = 0;
    bool rising = false;

    Wave(double m, double rFreq, double asym)
        : magn(m), h(kPi + asym), g(kPi - asym), down(-(4 * kPi * m * rFreq) / h), up((4 * kPi * m * rFreq) / g),
          gh(g / h), hg(h / g), wrapUp(4 * kPi * m / g), wrapDown(4 * kPi * m / h) {}

    double start(double phase) {
        rising = !(phase < h);
        v = rising ? magn * (2 * (phase - h) / g - 1) : magn * (1 - 2 * phase / h);
        return v;
    }
    double next() {
        if (rising) {
            v += up;
            if (v > magn) {
                const double r = magn - gh * (v - magn);
                if (r >= -magn) v = r, rising = false;
                else v -= wrapUp;
            }
        } else {
            v += down;
            if (v < -magn) {
                const double r = -magn - hg * (v + magn);
                if (r <= magn) v = r, rising = true;
                else v += wrapDown;
            }
        }
        return v;
    }
};

// The phase after len samples, in [0, 2 pi) (or just outside, by rounding).
inline double advance(double phase, int len, double rFreq) {
    const double P = kTwoPi * len * rFreq + phase;
    return P - kTwoPi * std::floor(P * kInvTwoPi);
}

// Writes len samples of the wave starting at phase; the imaginary part of a
// complex element is the wave a quarter period earlier in phase.
template <class T> void fill(T* d, int len, double magn, double rFreq, double asym, double phase) {
    if constexpr (is_complex_v<T>) {
        using P = part_t<T>;
        Wave re(magn, rFreq, asym), im(magn, rFreq, asym);
        const double q = phase >= kPi / 2 ? phase - kPi / 2 : phase + 3 * kPi / 2;
        d[0] = {round_to<P>(re.start(phase)), round_to<P>(im.start(q))};
        for (int i = 1; i < len; ++i) d[i] = {round_to<P>(re.next()), round_to<P>(im.next())};
    } else {
        Wave w(magn, rFreq, asym);
        d[0] = round_to<T>(w.start(phase));
        for (int i = 1; i < len; ++i) d[i] = round_to<T>(w.next());
    }
}

template <class T, class M, class P> zamStatus direct(T* d, int len, M magn, P rFreq, P asym, P* pPhase) {
    if (!pPhase) return zamStatusNullPointer;
    if (!(magn > 0)) return zamStatusBadMagnitude;
    if (!(double(rFreq) >= 0 && double(rFreq) < 0.5)) return zamStatusBadFrequency;
    if (!(double(asym) >= -kPi && double(asym) < kPi)) return zamStatusBadAsymmetry;
    const double phase = *pPhase;
    if (!(phase >= 0 && phase < kTwoPi)) return zamStatusBadPhase;
    if (zamStatus s = check_args(len, d)) return s;
    fill(d, len, double(magn), double(rFreq), double(asym), phase);
    *pPhase = phase_out<P>(advance(phase, len, double(rFreq)));
    return zamStatusOk;
}

// The Q15 parameters' ranges, in the order they are checked.
inline zamStatus check_q15(int magn, int rFreq, int32_t phase, int32_t asym) {
    if (magn < 1) return zamStatusBadMagnitude;
    if (rFreq < 0 || rFreq > 16383) return zamStatusBadFrequency;
    if (uint32_t(phase) > 205886u) return zamStatusBadPhase;
    if (asym < -102943 || asym >= 102944) return zamStatusBadAsymmetry;
    return zamStatusOk;
}

zamStatus q15_direct(Zam16s* d, int len, Zam16s magn, Zam16s rFreq, int32_t phase, int32_t asym) {
    if (zamStatus s = check_args(len, d)) return s;
    if (zamStatus s = check_q15(magn, rFreq, phase, asym)) return s;
    // Single precision, and no phase back to the caller.
    constexpr float q = float(kQ15);
    float ph = float(phase) * q;
    (void)direct<Zam16s, Zam16s, float>(d, len, magn, float(rFreq) * q, float(asym) * q, &ph);
    return zamStatusOk;
}

// The Q15 state: the parameters in double precision, then the running
// wave, so that consecutive calls continue it exactly.
struct TriHdr {
    int32_t id;
    int32_t owned;
    double magn, rFreq, phase, asym;
    double value;     // the running value after the last sample
    int32_t rising;   // its direction
    int32_t started;  // 0 until the first call
};
constexpr int kTriStateSize = 128;
static_assert(sizeof(TriHdr) <= kTriStateSize);

zamStatus q15_init(void* p, Zam16s magn, Zam16s rFreq, int32_t phase, int32_t asym) {
    if (!p) return zamStatusNullPointer;
    if (zamStatus s = check_q15(magn, rFreq, phase, asym)) return s;
    return build_state<TriHdr>(p, id::TriangleQ15, [&](TriHdr& h) {
        h.magn = magn;
        h.rFreq = rFreq * kQ15;
        h.phase = phase * kQ15;
        h.asym = asym * kQ15;
    });
}

zamStatus q15_fill(Zam16s* d, int len, void* p) {
    return with_state<TriHdr>(d, len, p, id::TriangleQ15, [&](TriHdr& h) {
        Wave w(h.magn, h.rFreq, h.asym);
        int i = 0;
        if (h.started) w.v = h.value, w.rising = h.rising != 0;
        else d[i++] = round_to<Zam16s>(w.start(h.phase));
        for (; i < len; ++i) d[i] = round_to<Zam16s>(w.next());
        h.value = w.v;
        h.rising = w.rising;
        h.started = 1;
        h.phase = phase_out<double>(advance(h.phase, len, h.rFreq));
    });
}

}  // namespace
}  // namespace zams::gen

using namespace zams::gen;

#define ZAMS_TRIANGLE_DIRECT(T, M, P)                                                                         \
    ZAMS_FN(zamStatus, zamsTriangle_Direct_##T)(Zam##T * d, int len, M m, P f, P a, P * ph) {                  \
        return direct(d, len, m, f, a, ph);                                                                   \
    }
ZAMS_TRIANGLE_DIRECT(32f, Zam32f, Zam32f)
ZAMS_TRIANGLE_DIRECT(64f, Zam64f, Zam64f)
ZAMS_TRIANGLE_DIRECT(16s, Zam16s, Zam32f)
ZAMS_TRIANGLE_DIRECT(32fc, Zam32f, Zam32f)
ZAMS_TRIANGLE_DIRECT(64fc, Zam64f, Zam64f)
ZAMS_TRIANGLE_DIRECT(16sc, Zam16s, Zam32f)

ZAMS_FN(zamStatus, zamsTriangleQ15_Direct_16s)(Zam16s* d, int len, Zam16s m, Zam16s f, Zam32s ph, Zam32s a) {
    return q15_direct(d, len, m, f, ph, a);
}
ZAMS_FN(zamStatus, zamsTriangleGetStateSizeQ15_16s)(int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    *pSize = kTriStateSize;
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsTriangleInitQ15_16s)(ZamsTriangleState_16s* p, Zam16s m, Zam16s f, Zam32s ph, Zam32s a) {
    return q15_init(p, m, f, ph, a);
}
ZAMS_FN(zamStatus, zamsTriangleInitAllocQ15_16s)(ZamsTriangleState_16s** pp, Zam16s m, Zam16s f, Zam32s ph,
                                                 Zam32s a) {
    return alloc_state<TriHdr>(reinterpret_cast<void**>(pp), [&](uint8_t* mem) { return q15_init(mem, m, f, ph, a); });
}
ZAMS_FN(zamStatus, zamsTriangleQ15_16s)(Zam16s* d, int len, ZamsTriangleState_16s* p) { return q15_fill(d, len, p); }
ZAMS_FN(zamStatus, zamsTriangleFree)(ZamsTriangleState_16s* p) { return free_state<TriHdr>(p, zams::id::TriangleQ15); }
