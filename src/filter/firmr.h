// The multirate FIR as the entry points of the single-rate types see it:
// for each type, the identifier word of its multirate kind and the
// operations on a state of that kind (the caller has checked the pointers
// and matched the word).
#pragma once

#include <cstdint>

#include "../common/spec.h"

namespace zams::fir::mr {

template <class Taps, class Data> struct Ops {
    int32_t id;
    zamStatus (*filter)(void* p, const Data* src, Data* dst, int numIters, int scaleFactor);
    zamStatus (*setTaps)(void* p, const Taps* taps, int tapsFactor);
    zamStatus (*getTaps)(const void* p, Taps* taps);
    zamStatus (*setDly)(void* p, const Data* dly);  // null: zeros
    zamStatus (*getDly)(const void* p, Data* dly);
    zamStatus (*release)(void* p);
};

extern const Ops<float, float> k32f, kStream32f;
extern const Ops<Zam32fc, Zam32fc> k32fc;
extern const Ops<Zam64f, Zam64f> k64f;
extern const Ops<Zam64fc, Zam64fc> k64fc;
extern const Ops<float, Zam16s> k32f16s;
extern const Ops<Zam32s, Zam16s> k32s16s;
extern const Ops<float, Zam16s> k32s16s32f;

// The kind's operations when p is a state of that kind, else null (also
// for a null kind: a type without a multirate kind).
template <class T, class D> const Ops<T, D>* match(const Ops<T, D>* o, const void* p) {
    return o && p && word_at(p, 0) == o->id ? o : nullptr;
}

}  // namespace zams::fir::mr
