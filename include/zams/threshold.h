/* Thresholding. */
#ifndef ZAMS_THRESHOLD_H
#define ZAMS_THRESHOLD_H

#endif
