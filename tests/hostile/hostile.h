// The hostile-input test: every export of the public headers, called with bad
// arguments in a child process. The call table is generated at build time by
// tools/gen_hostile.py; the makers of valid structures and the list of
// documented exceptions are data beside this header.
#pragma once

#include <cstddef>
#include <cstdint>

#include "zams.h"

namespace hostile {

// The most arguments an export takes (the generator refuses more).
inline constexpr int kMaxArgs = 10;

enum class Kind { Src, Dst, SrcArray, DstArray, Spec, SpecOut, SpecArray, Length, Order, Scale, Mode, Int, Real, Bytes };

// One argument as the thunk reads it: a pointer, an integer, a floating value
// or the bytes of a structure passed by value.
struct Slot {
    void* p;
    int64_t i;
    double f;
    alignas(16) unsigned char b[16];
};

struct Arg {
    const char* name;
    Kind kind;
    size_t elem;       // element size of a pointer argument
    const char* type;  // structure type of Spec and SpecOut arguments
};

struct Export {
    const char* name;
    zamStatus (*call)(const Slot*);
    int nargs;
    Arg args[kMaxArgs];
};

extern const Export kExports[];
extern const size_t kExportCount;

// How to build and release a valid structure of one type; one row a type.
struct Maker {
    const char* type;
    zamStatus (*make)(void** out);
    zamStatus (*release)(void* p);
};
extern const Maker kMakers[];
extern const size_t kMakerCount;

// A case that is not checked for one export (a shell pattern), with the reason.
// `what` names the case: "null <arg>", "negative <arg>", "all null",
// "error writes".
struct Exception {
    const char* exports;
    const char* what;
    const char* reason;
};
extern const Exception kExceptions[];
extern const size_t kExceptionCount;

}  // namespace hostile
