// DFT of any length, complex floating kinds (and their OutOrd twins): the
// spec life cycle bound to dft_spec.cpp, the transforms to the plan.
#include "dft_core.h"

namespace zams::dft {

template <class F, bool Inv> zamStatus complex_run(const Hdr<F>* h, const F* src, F* dst, uint8_t* work) {
    return run_cplan<F, Inv>(reinterpret_cast<const uint8_t*>(h), h->plan, src, dst, work);
}
template zamStatus complex_run<float, false>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus complex_run<float, true>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus complex_run<double, false>(const Hdr<double>*, const double*, double*, uint8_t*);
template zamStatus complex_run<double, true>(const Hdr<double>*, const double*, double*, uint8_t*);

namespace {

template <class F, bool Inv, class C>
zamStatus transform(const void* spec, int32_t id, const C* src, C* dst, uint8_t* buf) {
    zamStatus s;
    WorkBuf wb;
    const Hdr<F>* h = begin_call<Hdr<F>>(spec, id, src, dst, buf, wb, s);
    if (!h) return s;
    return complex_run<F, Inv>(h, reinterpret_cast<const F*>(src), reinterpret_cast<F*>(dst), wb.p);
}

}  // namespace
}  // namespace zams::dft

using namespace zams::dft;

#define ZAMS_DFT_COMPLEX(PRE, SPEC, T, F, ID)                                                                  \
    ZAMS_DFT_LIFE(PRE, SPEC, C_##T, F, false, ID)                                                              \
    ZAMS_FN(zamStatus, zams##PRE##Fwd_CToC_##T)(const Zam##T* s, Zam##T* d, const SPEC##_C_##T* p, Zam8u* b) { \
        return transform<F, false>(p, ID, s, d, b);                                                           \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##Inv_CToC_##T)(const Zam##T* s, Zam##T* d, const SPEC##_C_##T* p, Zam8u* b) { \
        return transform<F, true>(p, ID, s, d, b);                                                            \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##Fwd_CToC_##T##_I)(Zam##T * sd, const SPEC##_C_##T* p, Zam8u* b) {            \
        return transform<F, false>(p, ID, sd, sd, b);                                                         \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##Inv_CToC_##T##_I)(Zam##T * sd, const SPEC##_C_##T* p, Zam8u* b) {            \
        return transform<F, true>(p, ID, sd, sd, b);                                                          \
    }

ZAMS_DFT_COMPLEX(DFT, ZamsDFTSpec, 32fc, float, kIdC32fc)
ZAMS_DFT_COMPLEX(DFT, ZamsDFTSpec, 64fc, double, kIdC64fc)
// The OutOrd kinds: the same plans under identifier words of their own.
ZAMS_DFT_COMPLEX(DFTOutOrd, ZamsDFTOutOrdSpec, 32fc, float, kIdOutC32fc)
ZAMS_DFT_COMPLEX(DFTOutOrd, ZamsDFTOutOrdSpec, 64fc, double, kIdOutC64fc)
