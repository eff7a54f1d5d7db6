/* FFT specifications, complex and real transforms, packed spectra. */
#ifndef ZAMS_FFT_H
#define ZAMS_FFT_H

#endif
