/* Window functions. */
#ifndef ZAMS_WINDOW_H
#define ZAMS_WINDOW_H

#endif
