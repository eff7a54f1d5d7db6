/* Element-wise arithmetic (integer with scale factor, floating, complex), logic and shifts. */
#ifndef ZAMS_ARITH_H
#define ZAMS_ARITH_H

#endif
