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
// A unit is the AR filter (order W = N) or one section of a cascade
// (W = 2). Every output's arithmetic depends only on its position since
// the last reset (Init, SetTaps, SetDlyLine), never on how the samples
// were split into calls:
//   - the first W samples after a reset run by the one-sample step from
//     the transposed delay line, and give the direct-form history;
//   - then blocks of 8 on a grid fixed at that point. A call that ends
//     inside a block computes the whole block with the missing inputs 0
//     (an output does not read later inputs: their columns are 0 there)
//     and keeps the block's inputs; the next call computes the block again
//     with them, which gives the same bits for the outputs already given.
// The state keeps, for each unit, the W inputs and outputs before the
// current block and the block's inputs and outputs so far (a section's
// outputs are the next one's inputs, so a cascade of n keeps n + 1 rows).
// The transposed delay line is made from them when it is read, or before
// the taps change.
//
// Tables (offTable of the state): a cascade 48 floats a section: H as 8
// zeros and h[0..7] (column i is the 8 floats from 8 - i), X_1, X_2, Y_1,
// Y_2. An AR filter of order N: H as above, X_1..X_N, Y_1..Y_N. Tables
// with a value that is not finite are not used (tableOk 0), nor are the
// rows: such a state runs by the one-sample step.
#pragma once

#include "iir_core.h"

namespace zams::iir {

// Builds the tables of a 32f AR or cascade state from its normalised taps.
void build_tables(Hdr* h);

// Filters len samples through the tables; pSrc may equal pDst.
void block_run(const float* pSrc, float* pDst, int len, Hdr* h);

// The transposed delay line at the state's position, into d (dlyLen
// values), and whether the rows hold it (false: the state's own line does).
bool line_from_rows(const Hdr* h, float* d);

// Before the taps or the delay line change: the state's line made current,
// the rows dropped.
void settle_line(Hdr* h);

}  // namespace zams::iir
