/* Conversion between sample types. */
#ifndef ZAMS_CONVERT_H
#define ZAMS_CONVERT_H

#endif
