// The block filters of 32f data: eight outputs at a time from tables.
//
// Over a block of 8 samples a filter is linear in the block's inputs and
// in the inputs and outputs just before it (its direct-form history), so
//     y[j..j+7] = sum_i x[j+i] H_i + sum_k x[j-k] X_k + sum_k y[j-k] Y_k
// with columns H_i (the impulse response, shifted), X_k and Y_k computed
// once from the normalised taps in double and kept in float. Only the
// Y_k terms of the previous block lie on the recursion's path, eight
// samples a step instead of one.
//
// A call runs the first N samples (2 for a section) by the one-sample step
// from the state's delay line, which gives the history; then whole blocks;
// then converts the history back to the transposed delay line and runs the
// remaining samples by the one-sample step. So the state between calls is
// always the delay line of the one-sample filter; the blocks round
// differently from it (within the accuracy of single precision).
//
// Tables (offTable of the state): a cascade 48 floats a section: H as 8
// zeros and h[0..7] (column i is the 8 floats from 8 - i), X_1, X_2, Y_1,
// Y_2. An AR filter of order N: H as above, X_1..X_N, Y_1..Y_N. Tables
// with a value that is not finite are not used (tableOk 0).
#pragma once

#include "iir_core.h"

namespace zams::iir {

// Builds the tables of a 32f AR or cascade state from its normalised taps.
void build_tables(Hdr* h);

// Filters len samples; pSrc may equal pDst. The state's tables are built.
void ar_blocks(const float* pSrc, float* pDst, int len, Hdr* h);
void bq_blocks(const float* pSrc, float* pDst, int len, Hdr* h);

// Shortest block call that runs through the tables.
inline int block_min_len(const Hdr* h) { return (h->form == Ar ? h->n : 2) + 8; }

}  // namespace zams::iir
