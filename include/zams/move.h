/* Initialisation and movement: Copy, Move, Set, Zero, Flip, SwapBytes, complex parts. */
#ifndef ZAMS_MOVE_H
#define ZAMS_MOVE_H

#endif
