// What the FIR and IIR design functions share: the range of a relative
// frequency and the constant pi.
#pragma once

namespace zams::design {

inline constexpr double kPi = 3.141592653589793116;

// A relative frequency lies strictly between 0 and 0.5; NaN does not.
inline bool bad_freq(double f) { return !(f > 0.0 && f < 0.5); }

}  // namespace zams::design
