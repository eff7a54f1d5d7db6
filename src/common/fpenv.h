// Processor rounding direction (MXCSR) for the duration of a call.
#pragma once

#include <immintrin.h>

namespace zams {

enum class Rounding : unsigned { Nearest = 0, Down = 1, Up = 2, TowardZero = 3 };

// Sets the rounding direction and restores the caller's on scope exit; the
// register is written only when it differs from what is needed.
class RoundingScope {
public:
    explicit RoundingScope(Rounding r) : old_(_mm_getcsr()) {
        unsigned want = (old_ & ~0x6000u) | (static_cast<unsigned>(r) << 13);
        changed_ = want != old_;
        if (changed_) _mm_setcsr(want);
    }
    ~RoundingScope() {
        if (changed_) _mm_setcsr(old_);
    }
    RoundingScope(const RoundingScope&) = delete;
    RoundingScope& operator=(const RoundingScope&) = delete;

private:
    unsigned old_;
    bool changed_;
};

}  // namespace zams
