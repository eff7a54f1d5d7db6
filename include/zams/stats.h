/* Reductions: sums, means, deviations, extremes, norms, dot products. */
#ifndef ZAMS_STATS_H
#define ZAMS_STATS_H

#endif
