// The sum of the 32f Direct forms (see fir_32f_filter.cpp).
#pragma once

namespace zams::fir {

// sum over j < L of taps[L-1-j] span[j], in the Direct forms' arithmetic.
float direct_sum32f(const float* taps, const float* span, int L);

}  // namespace zams::fir
