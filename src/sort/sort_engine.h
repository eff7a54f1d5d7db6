// The sorting engine: the order of keys, a stable insertion sort for short
// vectors and a stable least-significant-digit radix sort for the rest.
//
// Every element type maps to an unsigned key of its own width whose plain
// order is the sort's order; descending sorts take the complement of the
// ascending key, so they are the exact reverse and just as stable. The radix
// sort counts 8-bit digits, skips a digit that every key shares, and moves
// elements between the caller's vector and a work area of the same size;
// the first move reads elements and the last writes them back, keys live in
// between. Long radix sorts run over the parallel frame: each thread counts
// and moves its own slice, and a thread's keys of one digit value go after
// the keys of the thread before it, so the result is the one-thread result.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "../common/check.h"
#include "../common/spec.h"
#include "../core/parallel.h"

namespace zams::sorting {

enum class Dir { Ascend, Descend };

template <class T>
using Key = std::conditional_t<sizeof(T) == 1, uint8_t,
                               std::conditional_t<sizeof(T) == 2, uint16_t,
                                                  std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>>>;

template <class T> constexpr Key<T> kSign = Key<T>(Key<T>(1) << (8 * sizeof(T) - 1));

// Integers by value. Floats in IEEE total order: a negative element has every
// bit flipped (larger magnitudes and negative NaN payloads first, -0 last of
// them), a positive one only its sign bit (above every negative, +NaN last).
template <class T, Dir D> inline Key<T> to_key(T x) {
    using U = Key<T>;
    const U b = std::bit_cast<U>(x);
    U k;
    if constexpr (std::is_floating_point_v<T>) k = (b & kSign<T>) ? U(~b) : U(b | kSign<T>);
    else if constexpr (std::is_signed_v<T>) k = U(b ^ kSign<T>);
    else k = b;
    return D == Dir::Descend ? U(~k) : k;
}

template <class T, Dir D> inline T from_key(Key<T> k) {
    using U = Key<T>;
    if constexpr (D == Dir::Descend) k = U(~k);
    U b;
    if constexpr (std::is_floating_point_v<T>) b = (k & kSign<T>) ? U(k ^ kSign<T>) : U(~k);
    else if constexpr (std::is_signed_v<T>) b = U(k ^ kSign<T>);
    else b = k;
    return std::bit_cast<T>(b);
}

// Elements and keys share the vector and the work area, so both are read
// and written as bytes.
template <class V> inline V load(const void* p, int i) {
    V v;
    std::memcpy(&v, static_cast<const uint8_t*>(p) + size_t(i) * sizeof(V), sizeof(V));
    return v;
}
template <class V> inline void store(void* p, int i, V v) {
    std::memcpy(static_cast<uint8_t*>(p) + size_t(i) * sizeof(V), &v, sizeof(V));
}

// Up to this length a sort is an insertion sort, in place, without a work area.
inline constexpr int kShort = 48;

template <class T, Dir D> void insertion(T* a, int* idx, int len) {
    for (int i = 1; i < len; ++i) {
        const T x = a[i];
        const Key<T> k = to_key<T, D>(x);
        int j = i;
        for (; j > 0 && to_key<T, D>(a[j - 1]) > k; --j) a[j] = a[j - 1];
        a[j] = x;
        if (idx) {
            const int v = idx[i];
            for (int m = i; m > j; --m) idx[m] = idx[m - 1];
            idx[j] = v;
        }
    }
}

// The work area of a radix sort of len elements of `bytes` each: the keys,
// then the indices of an index sort, each from a 64-byte boundary. The size
// queries report this plus the 64 bytes that align a caller's buffer.
struct Layout {
    int64_t idxAt, total;
};
inline Layout layout(int len, int bytes, bool withIdx) {
    auto r64 = [](int64_t n) { return (n + 63) / 64 * 64; };
    const int64_t keys = r64(int64_t(len) * bytes);
    return {keys, keys + (withIdx ? r64(int64_t(len) * 4) : 0)};
}

inline zamStatus buffer_size(int len, int bytes, bool withIdx, int* pSize) {
    if (zamStatus s = check_args(len, pSize)) return s;
    return report_size(layout(len, bytes, withIdx).total + 64, pSize);
}

// One radix sort: the steps the parallel frame runs and what each thread
// works out between them. Step 0 counts every digit of each slice; each
// thread makes the same plan from those counts and places its own slice
// before each move.
template <class T, Dir D> class Radix {
    using U = Key<T>;
    static constexpr int kDigits = int(sizeof(U));
    static constexpr int kTeam = 2;
    enum class Op : uint8_t { Move, CopyBack, Identity };
    struct Step {
        Op op;
        int8_t pass;  // which move: 0 first
    };
    // What one thread knows: the same plan on every thread, its own places.
    struct Plan {
        int digit[kDigits];  // the digit each move sorts by
        int moves, steps, members;
        uint32_t bound;      // the first position of the second slice
        Step step[kDigits + 1];
        uint32_t pos[256];   // where this slice's keys of each digit value go
    };

public:
    Radix(T* a, int* idx, int len, uint8_t* work)
        : a_(a), idx_(idx), len_(len), tk_(work),
          ti_(reinterpret_cast<int*>(work + layout(len, sizeof(T), idx != nullptr).idxAt)) {}

    void run(int threshold) {
        run_steps(
            len_, threshold, [&](int k, int t, int off, int n) { step(k, t, off, n); },
            [&](int k, int t, int members) { return then(k, t, members); });
    }

private:
    T* a_;
    int* idx_;
    int len_;
    uint8_t* tk_;
    int* ti_;
    uint32_t all_[kTeam][kDigits][256];       // step 0: every digit of each slice of the vector
    uint32_t next_[2][kTeam][kTeam][256];     // move j, thread t: the next digit by destination
                                              // slice, in next_[j % 2][t]
    Plan plan_[kTeam];

    // Move j reads the vector when j is even and the work area when odd.
    void* keys_from(int j) const { return j % 2 ? static_cast<void*>(tk_) : static_cast<void*>(a_); }
    void* keys_to(int j) const { return j % 2 ? static_cast<void*>(a_) : static_cast<void*>(tk_); }
    int* idx_from(int j) const { return j % 2 ? ti_ : idx_; }
    int* idx_to(int j) const { return j % 2 ? idx_ : ti_; }

    void count_all(int t, int off, int n) {
        std::memset(all_[t], 0, sizeof all_[t]);
        for (int i = off; i < off + n; ++i) {
            const U k = to_key<T, D>(a_[i]);
            for (int d = 0; d < kDigits; ++d) ++all_[t][d][(k >> (8 * d)) & 255];
        }
    }

    // A team's later moves need each slice's counts of their digit, and the
    // slices then hold other keys: a move counts the next digit of every key
    // it writes, by the slice the key lands in. The digit's shift is a
    // constant and the loop runs a negative index up to zero from the end of
    // the slice, so that i386's seven integer registers hold the loop
    // without spills: index, source, destination, the two index arrays and
    // the key and its place (the places themselves stay on the stack).
    template <bool First, bool Last, bool WithIdx, bool Next, int Shift> void move(int j, int t, int off, int n) {
        using S = std::conditional_t<First, T, U>;
        const Plan& pl = plan_[t];
        const uint8_t* src = static_cast<const uint8_t*>(keys_from(j)) + size_t(off + n) * sizeof(S);
        void* dst = keys_to(j);
        const int* si = WithIdx && !First ? idx_from(j) + (off + n) : nullptr;
        int* di = idx_to(j);
        const int end = off + n, nshift = Next ? 8 * pl.digit[j + 1] : 0;
        const uint32_t bound = pl.bound;
        uint32_t pos[256], next[kTeam][256];
        std::memcpy(pos, pl.pos, sizeof pos);
        if constexpr (Next) std::memset(next, 0, sizeof next);
        for (int i = -n; i < 0; ++i) {
            S v;
            std::memcpy(&v, src + ptrdiff_t(i) * ptrdiff_t(sizeof(S)), sizeof(S));
            U k;
            if constexpr (First) k = to_key<T, D>(v);
            else k = v;
            const uint32_t p = pos[(k >> Shift) & 255]++;
            if constexpr (Last) store<T>(dst, int(p), from_key<T, D>(k));
            else store<U>(dst, int(p), k);
            if constexpr (WithIdx) {
                if constexpr (First) di[p] = end + i;
                else di[p] = si[i];
            }
            if constexpr (Next) ++next[p >= bound][(k >> nshift) & 255];
        }
        if constexpr (Next) std::memcpy(next_[j % 2][t], next, sizeof next);
    }

    // Move j by its digit, one form a digit.
    template <bool First, bool Last, bool WithIdx, bool Next> void move_digit(int j, int t, int off, int n) {
        const int d = plan_[t].digit[j];
        [&]<int... I>(std::integer_sequence<int, I...>) {
            (void)((d == I ? (move<First, Last, WithIdx, Next, 8 * I>(j, t, off, n), true) : false) || ...);
        }(std::make_integer_sequence<int, kDigits>{});
    }

    template <bool WithIdx> void move_any(int j, int t, int off, int n) {
        const Plan& pl = plan_[t];
        const bool first = j == 0, last = j == pl.moves - 1, next = !last && pl.members > 1;
        if (last) {
            if (first) move_digit<true, true, WithIdx, false>(j, t, off, n);
            else move_digit<false, true, WithIdx, false>(j, t, off, n);
        } else if (next) {
            if (first) move_digit<true, false, WithIdx, true>(j, t, off, n);
            else move_digit<false, false, WithIdx, true>(j, t, off, n);
        } else {
            if (first) move_digit<true, false, WithIdx, false>(j, t, off, n);
            else move_digit<false, false, WithIdx, false>(j, t, off, n);
        }
    }

    void step(int k, int t, int off, int n) {
        if (k == 0) return count_all(t, off, n);
        const Step s = plan_[t].step[k - 1];
        switch (s.op) {
            case Op::Move:
                if (idx_) move_any<true>(s.pass, t, off, n);
                else move_any<false>(s.pass, t, off, n);
                break;
            case Op::CopyBack:
                std::memcpy(a_ + off, tk_ + size_t(off) * sizeof(T), size_t(n) * sizeof(T));
                if (idx_) std::memcpy(idx_ + off, ti_ + off, size_t(n) * sizeof(int));
                break;
            case Op::Identity:
                for (int i = off; i < off + n; ++i) idx_[i] = i;
                break;
        }
    }

    // The plan: a digit that every key shares moves nothing and is skipped.
    void make_plan(Plan& pl, int members) const {
        pl.members = members;
        pl.bound = uint32_t(len_ / members);
        pl.moves = pl.steps = 0;
        for (int d = 0; d < kDigits; ++d) {
            bool shared = false;
            for (int v = 0; v < 256 && !shared; ++v) {
                uint32_t c = 0;
                for (int t = 0; t < members; ++t) c += all_[t][d][v];
                shared = c == uint32_t(len_);
            }
            if (!shared) pl.digit[pl.moves++] = d;
        }
        for (int j = 0; j < pl.moves; ++j) pl.step[pl.steps++] = {Op::Move, int8_t(j)};
        if (pl.moves % 2) pl.step[pl.steps++] = {Op::CopyBack, 0};
        if (pl.moves == 0 && idx_) pl.step[pl.steps++] = {Op::Identity, 0};
    }

    // Slice t's keys of digit value v go after the smaller values and after
    // the earlier slices' keys of value v. The first move and every move of
    // one thread take their counts from step 0, a team's later moves from
    // the move before.
    void place(Plan& pl, int j, int t) const {
        const int d = pl.digit[j], members = pl.members;
        const bool fromAll = j == 0 || members == 1;
        uint32_t at = 0;
        for (int v = 0; v < 256; ++v)
            for (int s = 0; s < members; ++s) {
                if (s == t) pl.pos[v] = at;
                if (fromAll) {
                    at += all_[s][d][v];
                } else {
                    for (int u = 0; u < members; ++u) at += next_[(j - 1) % 2][u][s][v];
                }
            }
    }

    bool then(int k, int t, int members) {
        Plan& pl = plan_[t];
        if (k == 0) make_plan(pl, members);
        if (k < pl.steps && pl.step[k].op == Op::Move) place(pl, pl.step[k].pass, t);
        return k < pl.steps;
    }
};

// A whole sort: short vectors by insertion, the rest by the radix sort in
// the work area (the caller's, or the call's own when `caller` is null).
// With idx, idx receives the permutation: idx[i] is the position the
// element now at i had before the sort.
template <class T, Dir D> zamStatus sort(T* a, int* idx, int len, uint8_t* caller, int threshold) {
    if (len <= kShort) {
        if (idx)
            for (int i = 0; i < len; ++i) idx[i] = i;
        insertion<T, D>(a, idx, len);
        return zamStatusOk;
    }
    WorkBuf w;
    if (zamStatus s = w.get(layout(len, sizeof(T), idx != nullptr).total, caller)) return s;
    Radix<T, D>(a, idx, len, w.p).run(threshold);
    return zamStatusOk;
}

}  // namespace zams::sorting
