// The life cycle every specification and state structure follows.
//
//   size query   the family's layout function gives the byte counts; the
//                query reports them and the allocating build allocates
//                exactly them, so the two cannot drift apart;
//   build        lay_into: the caller's memory rounded up to the family's
//                alignment, identifier word cleared first and written last,
//                so a build that fails half-way leaves memory that can never
//                pass for a structure;
//   alloc build  lay_alloc: the block (and a temporary build block when the
//                family needs one) from zamsMalloc_8u, the build, the
//                temporary released, the owned mark set; on any failure
//                everything is released again;
//   use          spec_of (read-only, may be shared by threads) or state_of
//                (mutable, one call at a time) check the pointer and the
//                identifier word;
//   release      release: pointer, identifier, then (by the family's rule)
//                the identifier cleared, what the structure owns released,
//                the block freed only when the allocating build made it.
//
// A family describes its structure once with a Shape (alignment, where its
// owned mark sits, whether Free invalidates a caller-memory structure) and
// binds its exported Init/InitAlloc/Free in one line each to these helpers.
// See docs/architecture.md for a worked example (the FFT specification).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "check.h"
#include "ids.h"
#include "zams_impl.h"

namespace zams {

inline uint8_t* align_up(void* p, size_t a) {
    uintptr_t u = reinterpret_cast<uintptr_t>(p);
    return reinterpret_cast<uint8_t*>((u + (a - 1)) & ~uintptr_t(a - 1));
}
inline uint8_t* align64(void* p) { return align_up(p, 64); }
constexpr size_t round_up(size_t n, size_t a) { return (n + (a - 1)) & ~(a - 1); }
constexpr size_t round64(size_t n) { return round_up(n, 64); }

// How a family's structure is laid out and released.
struct Shape {
    size_t align;        // 16, 32 or 64: Init rounds the caller's memory up to it
    size_t ownedOffset;  // byte offset of the 32-bit owned mark (1: made by InitAlloc)
    bool clearOnFree;    // Free invalidates a structure in caller memory too
};

inline int32_t& word_at(void* base, size_t offset) {
    return *reinterpret_cast<int32_t*>(static_cast<uint8_t*>(base) + offset);
}
inline int32_t word_at(const void* base, size_t offset) {
    int32_t w;
    std::memcpy(&w, static_cast<const uint8_t*>(base) + offset, sizeof w);
    return w;
}

// Builds a structure into caller memory. build(base, id) lays out
// everything but the identifier word and sets id to the word to write; the
// word is written only when it returns zamStatusOk. The family's own
// argument checks come before this call.
template <class Build> zamStatus lay_into(void** pp, void* mem, const Shape& sh, Build&& build) {
    uint8_t* base = align_up(mem, sh.align);
    word_at(base, 0) = 0;
    int32_t id = 0;
    if (zamStatus s = build(base, id)) return s;
    word_at(base, 0) = id;
    *pp = base;
    return zamStatusOk;
}

// The allocating build: size bytes for the structure and tmpSize for a
// build block that lives only during the build (none when below 1).
// build(void** out, uint8_t* mem, uint8_t* tmp) is the family's Init on
// that memory. zamsMalloc_8u's blocks are 64-byte aligned, so the
// structure starts its block and release can free it.
template <class Build>
zamStatus lay_alloc(void** pp, int64_t size, int64_t tmpSize, const Shape& sh, Build&& build) {
    if (size < 1 || size >= INT32_MAX || tmpSize >= INT32_MAX) return zamStatusNoMemory;
    uint8_t* mem = zamsMalloc_8u(int(size));
    if (!mem) return zamStatusNoMemory;
    uint8_t* tmp = nullptr;
    if (tmpSize >= 1 && !(tmp = zamsMalloc_8u(int(tmpSize)))) {
        zamsFree(mem);
        return zamStatusNoMemory;
    }
    void* out = nullptr;
    zamStatus s = build(&out, mem, tmp);
    if (tmp) zamsFree(tmp);
    if (s == zamStatusOk && out != mem) s = zamStatusNoMemory;  // an allocator below the alignment
    if (s != zamStatusOk) {
        zamsFree(mem);
        return s;
    }
    word_at(out, sh.ownedOffset) = 1;
    *pp = out;
    return zamStatusOk;
}

// The identifier word against a set of accepted kinds (most accept one).
inline zamStatus check_id_in(const void* p, std::initializer_list<int32_t> ids) {
    const int32_t w = word_at(p, 0);
    for (int32_t id : ids)
        if (w == id) return zamStatusOk;
    return zamStatusContextMismatch;
}

// A read-only structure (a transform's specification): null gives -8,
// another kind's or a freed one -17. Nothing is written through the result.
template <class H> const H* spec_of(const void* p, int32_t id, zamStatus& s) {
    s = !p ? zamStatusNullPointer : check_id(p, uint32_t(id));
    return s ? nullptr : static_cast<const H*>(p);
}
// A mutable state (a filter's or a generator's): the same checks.
template <class H> H* state_of(void* p, std::initializer_list<int32_t> ids, zamStatus& s) {
    s = !p ? zamStatusNullPointer : check_id_in(p, ids);
    return s ? nullptr : static_cast<H*>(p);
}

// The work-buffer query of a read-only specification: pointers, identifier,
// then the stored work size plus the 64 bytes of alignment slack a call
// needs (0 when the transform needs no buffer). work(h) reads the size.
template <class H, class Work> zamStatus query_work(const void* spec, int32_t id, int* pSize, Work work) {
    if (!spec || !pSize) return zamStatusNullPointer;
    zamStatus s;
    const H* h = spec_of<H>(spec, id, s);
    if (!h) return s;
    const int32_t w = work(h);
    *pSize = w >= 1 ? w + 64 : 0;
    return zamStatusOk;
}

// Free: pointer, identifier; then the identifier is cleared (always, or
// only for allocated blocks, by the family's shape); when the allocating
// build made the block, children(p) releases what the structure owns
// outside it and the block is freed. Returns children's status when that
// fails (the block is freed all the same).
template <class Children>
zamStatus release(void* p, std::initializer_list<int32_t> ids, const Shape& sh, Children&& children) {
    if (!p) return zamStatusNullPointer;
    if (zamStatus s = check_id_in(p, ids)) return s;
    const bool owned = word_at(static_cast<const void*>(p), sh.ownedOffset) == 1;
    if (sh.clearOnFree || owned) word_at(p, 0) = 0;
    if (!owned) return zamStatusOk;
    zamStatus s = children(p);
    zamsFree(p);
    return s;
}
inline zamStatus release(void* p, std::initializer_list<int32_t> ids, const Shape& sh) {
    return release(p, ids, sh, [](void*) { return zamStatusOk; });
}

// The work buffer of one call: the caller's, aligned up to 64 (the 64
// bytes of slack in every reported work size are for this), or, when the
// caller gives none, a block of the call's own, released on return.
struct WorkBuf {
    uint8_t* p = nullptr;
    bool own = false;
    zamStatus get(int64_t size, uint8_t* caller) {
        if (size <= 0) return zamStatusOk;
        if (caller) {
            p = align64(caller);
            return zamStatusOk;
        }
        if (size >= INT32_MAX) return zamStatusNoMemory;
        p = zamsMalloc_8u(int(size));
        if (!p) return zamStatusNoMemory;
        own = true;
        return zamStatusOk;
    }
    WorkBuf() = default;
    WorkBuf(const WorkBuf&) = delete;
    WorkBuf& operator=(const WorkBuf&) = delete;
    ~WorkBuf() {
        if (own) zamsFree(p);
    }
};

// Sizes reported by a query: 0 for below 1, refused at the int limit.
inline zamStatus report_size(int64_t bytes, int* out) {
    if (bytes >= INT32_MAX) return zamStatusNoMemory;
    *out = int(bytes);
    return zamStatusOk;
}

}  // namespace zams
