// Scaled integer Add, Sub, AddC, SubC, SubCRev on 8u, 16s, 16u, 32s, 16sc,
// 32sc, and Add_64s. The rule, kernels and limits are in scaled.h; each
// export binds a stream and a limits row.
#include "scaled.h"

namespace zams::scaled {
namespace {

// pSrc1 + pSrc2 and pSrc2 - pSrc1, part by part (complex: both parts).
template <class D> zamStatus add(ScaleLimits l, const D* a, const D* b, D* d, int n, int sf) {
    using P = typename parts<D>::type;
    return two(l, a, b, d, n, sf, [&] {
        return bin<F::Add>(In<P>{reinterpret_cast<const P*>(a)}, In<P>{reinterpret_cast<const P*>(b)});
    });
}
template <class D> zamStatus sub(ScaleLimits l, const D* a, const D* b, D* d, int n, int sf) {
    using P = typename parts<D>::type;
    return two(l, a, b, d, n, sf, [&] {
        return bin<F::Sub>(In<P>{reinterpret_cast<const P*>(b)}, In<P>{reinterpret_cast<const P*>(a)});
    });
}

// The constant as a stream: a real constant, or a complex one part by part.
template <class D> auto const_of(D v) {
    if constexpr (parts<D>::per == 2) return Const<typename parts<D>::type>{v.re, v.im};
    else return konst(v);
}
template <class D> bool is_zero(D v) {
    if constexpr (parts<D>::per == 2) return v.re == 0 && v.im == 0;
    else return v == 0;
}

// x + val, x - val, val - x. Adding or subtracting 0 at factor 0 copies.
template <F f, bool Rev, class D> zamStatus addsub_c(ScaleLimits l, const D* x, D v, D* d, int n, int sf) {
    using P = typename parts<D>::type;
    const bool identity = !Rev && sf == 0 && is_zero(v);
    return con(l, x, d, n, sf, identity, [&](const D* p) {
        In<P> in{reinterpret_cast<const P*>(p)};
        if constexpr (Rev) return bin<f>(const_of(v), in);
        else return bin<f>(in, const_of(v));
    });
}

// In place with a constant; AtOnce: adding or subtracting 0 at factor 0
// returns before any check.
template <F f, bool AtOnce, class D> zamStatus addsub_c_i(ScaleLimits l, D v, D* d, int n, int sf) {
    if (AtOnce && sf == 0 && is_zero(v)) return zamStatusOk;
    return addsub_c<f, false>(l, d, v, d, n, sf);
}

zamStatus add64(const Zam64s* a, const Zam64s* b, Zam64s* d, int n, int sf) {
    return two(lim::add_64s, a, b, d, n, sf, [&] { return Add64{a, b}; });
}

}  // namespace
}  // namespace zams::scaled

using namespace zams::scaled;

#define ZAMS_ADD_SUB(t, ladd, lsub)                                                                             \
    ZAMS_FN(zamStatus, zamsAdd_##t##_Sfs)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n, int sf) {         \
        return add(lim::ladd, a, b, d, n, sf);                                                                  \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsAdd_##t##_ISfs)(const Zam##t* a, Zam##t* d, int n, int sf) {                         \
        return add(lim::ladd, a, d, d, n, sf);                                                                  \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSub_##t##_Sfs)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n, int sf) {         \
        return sub(lim::lsub, a, b, d, n, sf);                                                                  \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSub_##t##_ISfs)(const Zam##t* a, Zam##t* d, int n, int sf) {                         \
        return sub(lim::lsub, a, d, d, n, sf);                                                                  \
    }

ZAMS_ADD_SUB(8u, add_8u, sub_8u)
ZAMS_ADD_SUB(16s, addsub_16s, addsub_16s)
ZAMS_ADD_SUB(16u, add_16u, sub_16u)
ZAMS_ADD_SUB(32s, addsub_32s, addsub_32s)
ZAMS_ADD_SUB(16sc, addsub_16s, addsub_16s)
ZAMS_ADD_SUB(32sc, addsub_32s, addsub_32s)

ZAMS_FN(zamStatus, zamsAdd_64s_Sfs)(const Zam64s* a, const Zam64s* b, Zam64s* d, int n, int sf) {
    return add64(a, b, d, n, sf);
}

#define ZAMS_ADD_SUB_C(t, ladd, lsub)                                                                           \
    ZAMS_FN(zamStatus, zamsAddC_##t##_Sfs)(const Zam##t* x, Zam##t v, Zam##t* d, int n, int sf) {               \
        return addsub_c<F::Add, false>(lim::ladd, x, v, d, n, sf);                                              \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubC_##t##_Sfs)(const Zam##t* x, Zam##t v, Zam##t* d, int n, int sf) {               \
        return addsub_c<F::Sub, false>(lim::lsub, x, v, d, n, sf);                                              \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubCRev_##t##_Sfs)(const Zam##t* x, Zam##t v, Zam##t* d, int n, int sf) {            \
        return addsub_c<F::Sub, true>(lim::lsub, x, v, d, n, sf);                                               \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubCRev_##t##_ISfs)(Zam##t v, Zam##t* d, int n, int sf) {                            \
        return addsub_c<F::Sub, true>(lim::lsub, d, v, d, n, sf);                                               \
    }

ZAMS_ADD_SUB_C(8u, add_8u, sub_8u)
ZAMS_ADD_SUB_C(16s, addsub_16s, addsub_16s)
ZAMS_ADD_SUB_C(16u, add_16u, sub_16u)
ZAMS_ADD_SUB_C(32s, addsub_32s, addsub_32s)
ZAMS_ADD_SUB_C(32sc, addsub_32s, addsub_32s)

// In place, adding or subtracting 0 at factor 0 leaves the vector as it is;
// the 16s forms return at once, before any check.
#define ZAMS_ADD_SUB_CI(t, ladd, lsub, at_once)                                                                 \
    ZAMS_FN(zamStatus, zamsAddC_##t##_ISfs)(Zam##t v, Zam##t* d, int n, int sf) {                               \
        return addsub_c_i<F::Add, at_once>(lim::ladd, v, d, n, sf);                                             \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubC_##t##_ISfs)(Zam##t v, Zam##t* d, int n, int sf) {                               \
        return addsub_c_i<F::Sub, at_once>(lim::lsub, v, d, n, sf);                                             \
    }

ZAMS_ADD_SUB_CI(8u, add_8u, sub_8u, false)
ZAMS_ADD_SUB_CI(16s, addsub_16s, addsub_16s, true)
ZAMS_ADD_SUB_CI(16u, add_16u, sub_16u, false)
ZAMS_ADD_SUB_CI(32s, addsub_32s, addsub_32s, false)
ZAMS_ADD_SUB_CI(32sc, addsub_32s, addsub_32s, false)

// The same functions at factor 0, without the argument.
#define ZAMS_ADD_SUB_PLAIN(t, ladd, lsub, at_once)                                                              \
    ZAMS_FN(zamStatus, zamsAdd_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                       \
        return add(lim::ladd, a, b, d, n, 0);                                                                   \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsAdd_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return add(lim::ladd, a, d, d, n, 0); } \
    ZAMS_FN(zamStatus, zamsSub_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                       \
        return sub(lim::lsub, a, b, d, n, 0);                                                                   \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSub_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return sub(lim::lsub, a, d, d, n, 0); } \
    ZAMS_FN(zamStatus, zamsAddC_##t)(const Zam##t* x, Zam##t v, Zam##t* d, int n) {                             \
        return addsub_c<F::Add, false>(lim::ladd, x, v, d, n, 0);                                               \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubC_##t)(const Zam##t* x, Zam##t v, Zam##t* d, int n) {                             \
        return addsub_c<F::Sub, false>(lim::lsub, x, v, d, n, 0);                                               \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubCRev_##t)(const Zam##t* x, Zam##t v, Zam##t* d, int n) {                          \
        return addsub_c<F::Sub, true>(lim::lsub, x, v, d, n, 0);                                                \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsAddC_##t##_I)(Zam##t v, Zam##t* d, int n) {                                          \
        return addsub_c_i<F::Add, at_once>(lim::ladd, v, d, n, 0);                                              \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubC_##t##_I)(Zam##t v, Zam##t* d, int n) {                                          \
        return addsub_c_i<F::Sub, at_once>(lim::lsub, v, d, n, 0);                                              \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsSubCRev_##t##_I)(Zam##t v, Zam##t* d, int n) {                                       \
        return addsub_c<F::Sub, true>(lim::lsub, d, v, d, n, 0);                                                \
    }

ZAMS_ADD_SUB_PLAIN(8u, add_8u, sub_8u, false)
ZAMS_ADD_SUB_PLAIN(16s, addsub_16s, addsub_16s, true)
ZAMS_ADD_SUB_PLAIN(16u, add_16u, sub_16u, false)
