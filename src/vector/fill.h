// Byte-level fill with a repeating element pattern, shared by Set and Zero.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zams {

// Fills n bytes at d with the element pattern `elem` (esize bytes, 1..16,
// a power of two), phase 0 at d: byte i of the fill is elem[i % esize].
void fill_pattern(uint8_t* d, size_t n, const uint8_t* elem, size_t esize);

}  // namespace zams
