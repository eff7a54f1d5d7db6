// Every export, called with hostile arguments: each pointer null in turn,
// lengths 0, -1 and INT_MIN, extreme scale factors, odd modes, NaN and
// infinite values, structures zeroed, random, of another kind and freed.
// The calls of one export run in a child process with an alarm; a call that
// crashes or hangs is reported and the child restarted after it. Every call
// must leave the guard bytes around each buffer and every const source as
// they were, and write nothing when it returns an error; a null pointer
// gives -8, a length below 1 an error, a foreign structure -17.
#include <fnmatch.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "hostile.h"

namespace hostile {
namespace {

constexpr size_t kData = 16384, kPre = 64, kPage = 4096;
constexpr uint8_t kPattern = 0xA5;
constexpr int kChannels = 8;    // pointers behind an array argument
constexpr unsigned kAlarm = 10;  // seconds one call may take

// kData bytes of seeded random data, guard bytes on both sides, and a page
// that cannot be touched right after the trailing guard. `misalign` bytes of
// trailing guard beyond 64 put the data off the 64-byte grid.
class Buffer {
public:
    Buffer(size_t misalign, uint32_t seed) : guard_(64 + misalign), pristine_(kData) {
        total_ = (kPre + kData + guard_ + kPage - 1) / kPage * kPage;
        void* m = mmap(nullptr, total_ + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (m == MAP_FAILED) std::abort();
        map_ = static_cast<uint8_t*>(m);
        mprotect(map_ + total_, kPage, PROT_NONE);
        data_ = map_ + total_ - guard_ - kData;
        std::mt19937 g(seed);
        for (auto& b : pristine_) b = uint8_t(g());
        reset();
    }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    // Zero contents (an index cell the caller keeps in range).
    void zero() {
        std::fill(pristine_.begin(), pristine_.end(), uint8_t(0));
        reset();
    }
    ~Buffer() { munmap(map_, total_ + kPage); }
    void reset() {
        std::memset(map_, kPattern, total_);
        std::memcpy(data_, pristine_.data(), kData);
    }
    uint8_t* data() { return data_; }
    bool guards_intact() const {
        for (const uint8_t* p = map_; p < map_ + total_; ++p)
            if ((p < data_ || p >= data_ + kData) && *p != kPattern) return false;
        return true;
    }
    bool unchanged() const { return std::memcmp(data_, pristine_.data(), kData) == 0; }

private:
    size_t guard_, total_;
    std::vector<uint8_t> pristine_;
    uint8_t* map_;
    uint8_t* data_;
};

bool excepted(const char* name, const std::string& what) {
    for (size_t i = 0; i < kExceptionCount; ++i)
        if (what == kExceptions[i].what && fnmatch(kExceptions[i].exports, name, 0) == 0) return true;
    return false;
}

const Maker* maker_of(const char* type) {
    for (size_t i = 0; i < kMakerCount; ++i)
        if (std::strcmp(kMakers[i].type, type) == 0) return &kMakers[i];
    return nullptr;
}

// Valid and released structures of every type, built once before any child.
struct Structures {
    std::map<std::string, void*> valid, freed;
    Structures() {
        for (size_t i = 0; i < kMakerCount; ++i) {
            void* p = nullptr;
            EXPECT_EQ(kMakers[i].make(&p), zamStatusOk) << kMakers[i].type;
            valid[kMakers[i].type] = p;
            void* q = nullptr;
            EXPECT_EQ(kMakers[i].make(&q), zamStatusOk) << kMakers[i].type;
            EXPECT_EQ(kMakers[i].release(q), zamStatusOk) << kMakers[i].type;
            freed[kMakers[i].type] = q;
        }
    }
    ~Structures() {
        for (size_t i = 0; i < kMakerCount; ++i) kMakers[i].release(valid[kMakers[i].type]);
    }
    void* other(const char* type) {
        for (size_t i = 0; i < kMakerCount; ++i)
            if (std::strcmp(kMakers[i].type, type) == 0) return valid[kMakers[(i + 1) % kMakerCount].type];
        return nullptr;
    }
};

enum class Expect { Any, Null, Error, Mismatch };

// Where a changed structure argument points: the slot's pointer, or the
// frame's zeroed or random block.
enum class Pick { Slot, Zeroed, Random };

// One call: the baseline arguments with one change.
struct Variant {
    std::string label;
    int arg;  // the changed argument; -1: every pointer null and every length 0; -2: none
    Slot slot;
    Expect expect;
    Pick pick = Pick::Slot;
};

int64_t base_int(const Arg& a, int len = 8) {
    const std::string n = a.name;
    switch (a.kind) {
        case Kind::Length: return n == "nChannels" ? 2 : n == "maskSize" ? 3 : len;
        case Kind::Order: return n == "order" ? 3 : 1;
        case Kind::Scale: return 1;
        case Kind::Mode: return n == "flag" ? 8 : n == "rndMode" ? 1 : 0;
        default: return 3;
    }
}

// A complex constant of 3 in each part, read as integer or floating parts.
void base_bytes(unsigned char* b, size_t size) {
    std::memset(b, 0, 16);
    const size_t part = size / 2;
    for (size_t k = 0; k < 2; ++k) {
        unsigned char* p = b + k * part;
        if (part == 2) p[0] = 3;
        if (part == 4) std::memcpy(p, "\x00\x00\x40\x40", 4);                  // 3.0f
        if (part == 8) std::memcpy(p, "\x00\x00\x00\x00\x00\x00\x08\x40", 8);  // 3.0
    }
}

// The values every integer argument of a kind is tried with.
std::vector<int64_t> hostile_ints(Kind k) {
    switch (k) {
        case Kind::Order: return {0, -1, INT_MIN, INT_MAX};
        case Kind::Scale: return {INT_MIN, -1000, 1000, INT_MAX};
        case Kind::Mode: return {-1, 3, 5, 1000, INT_MIN, INT_MAX};
        default: return {INT_MIN, -1, 0, INT_MAX};
    }
}

bool is_pointer(Kind k) {
    return k == Kind::Src || k == Kind::Dst || k == Kind::SrcArray || k == Kind::DstArray || k == Kind::Spec ||
           k == Kind::SpecOut || k == Kind::SpecArray;
}

std::vector<Variant> variants(const Export& e, Structures& st, std::string& problem) {
    std::vector<Variant> v;
    auto add = [&](const std::string& label, int arg, Expect ex, auto set) {
        Variant x{label, arg, {}, ex};
        set(x.slot);
        v.push_back(x);
    };
    bool all_null = false;
    for (int i = 0; i < e.nargs; ++i) {
        const Arg& a = e.args[i];
        const std::string n = a.name;
        if (is_pointer(a.kind)) {
            all_null = true;
            if (!excepted(e.name, "null " + n)) add("null " + n, i, Expect::Null, [](Slot& s) { s.p = nullptr; });
        }
        switch (a.kind) {
            case Kind::Length:
                add(n + " = 0", i, Expect::Error, [](Slot& s) { s.i = 0; });
                if (!excepted(e.name, "negative " + n)) {
                    add(n + " = -1", i, Expect::Error, [](Slot& s) { s.i = -1; });
                    add(n + " = INT_MIN", i, Expect::Error, [](Slot& s) { s.i = INT_MIN; });
                }
                break;
            case Kind::Order:
            case Kind::Scale:
            case Kind::Mode:
            case Kind::Int:
                for (int64_t x : hostile_ints(a.kind))
                    add(n + " = " + std::to_string(x), i, Expect::Any, [x](Slot& s) { s.i = x; });
                break;
            case Kind::Real:
                for (double x : {NAN, INFINITY, -INFINITY})
                    add(n + " = " + std::to_string(x), i, Expect::Any, [x](Slot& s) { s.f = x; });
                break;
            case Kind::Bytes:
                for (int x : {0x80, 0xFF, 0x7F})
                    add(n + " bytes " + std::to_string(x), i, Expect::Any, [x](Slot& s) { std::memset(s.b, x, 16); });
                break;
            case Kind::Spec: {
                if (!maker_of(a.type)) {
                    problem = std::string("no maker for structure type ") + a.type + ": add a row to makers.cpp";
                    return {};
                }
                add(n + " zeroed", i, Expect::Mismatch, [](Slot&) {});
                v.back().pick = Pick::Zeroed;
                add(n + " random", i, Expect::Mismatch, [](Slot&) {});
                v.back().pick = Pick::Random;
                void* other = st.other(a.type);
                add(n + " of another kind", i, Expect::Mismatch, [other](Slot& s) { s.p = other; });
#if !defined(__SANITIZE_ADDRESS__)
                // Reading a released block is what the address checker reports by design.
                void* freed = st.freed[a.type];
                add(n + " freed", i, Expect::Mismatch, [freed](Slot& s) { s.p = freed; });
#endif
                break;
            }
            default: break;
        }
    }
    if (all_null && !excepted(e.name, "all null")) add("all null, lengths 0", -1, Expect::Null, [](Slot&) {});
    add("valid arguments", -2, Expect::Any, [](Slot&) {});  // last: it may release a structure
    return v;
}

// Where the buffers of a frame lie: off the 8-byte grid, each on its own
// (the hostile sweep), all on the 64-byte grid, or each at its own multiple
// of 8 bytes off it.
enum class Place { Odd, Aligned, Shifted };

size_t misalign_of(Place place, int k) {
    if (place == Place::Odd) return size_t(4 + 8 * (k % 8));
    const size_t off = place == Place::Aligned ? 0 : size_t(8 * (k % 7 + 1));  // data sits `off` past the grid
    return (64 - off) % 64;
}

// The arguments of one export: a buffer for each pointer, the valid values
// for the rest (lengths `len`).
struct Frame {
    const Export& e;
    Structures& st;
    std::vector<std::unique_ptr<Buffer>> bufs;   // one a pointer argument, kChannels an array
    std::vector<std::vector<void*>> tables;      // pointer tables of array arguments
    std::vector<std::vector<Buffer*>> owned;     // buffers of each argument
    Buffer zeroed{0, 1}, random{0, 2};
    Slot base[kMaxArgs] = {};

    Frame(const Export& ex, Structures& s, Place place = Place::Odd, int len = 8)
        : e(ex), st(s), tables(ex.nargs), owned(ex.nargs) {
        std::memset(zeroed.data(), 0, kData);
        for (int i = 0; i < e.nargs; ++i) {
            const Arg& a = e.args[i];
            Slot& sl = base[i];
            const int n = a.kind == Kind::SrcArray || a.kind == Kind::DstArray ? kChannels : 1;
            if (a.kind == Kind::Src || a.kind == Kind::Dst || a.kind == Kind::SpecOut || n > 1) {
                for (int c = 0; c < n; ++c) {
                    bufs.push_back(std::make_unique<Buffer>(misalign_of(place, i + c), uint32_t(1000 * i + c)));
                    // A delay-line index is the caller's to keep in range: start it at 0.
                    if (std::strstr(a.name, "Index")) bufs.back()->zero();
                    owned[i].push_back(bufs.back().get());
                    tables[i].push_back(bufs.back()->data());
                }
                sl.p = n > 1 ? static_cast<void*>(tables[i].data()) : tables[i][0];
            } else if (a.kind == Kind::Spec) {
                sl.p = st.valid[a.type];
            } else if (a.kind == Kind::SpecArray) {
                // a table of valid structures, one a channel
                tables[i].assign(kChannels, st.valid[a.type]);
                sl.p = tables[i].data();
            } else if (a.kind == Kind::Real) {
                sl.f = 0.25;
            } else if (a.kind == Kind::Bytes) {
                base_bytes(sl.b, a.elem);
            } else {
                sl.i = base_int(a, len);
            }
        }
    }

    // The valid call on fresh structures of the frame's own, made by the
    // makers (a stateful call changes its structure).
    zamStatus call_fresh(std::vector<std::pair<const Maker*, void*>>& made) {
        for (auto& b : bufs) b->reset();
        Slot s[kMaxArgs];
        std::memcpy(s, base, sizeof s);
        for (int i = 0; i < e.nargs; ++i) {
            if (e.args[i].kind != Kind::Spec && e.args[i].kind != Kind::SpecArray) continue;
            const Maker* m = maker_of(e.args[i].type);
            void* p = nullptr;
            if (!m || m->make(&p) != zamStatusOk) return zamStatusNoMemory;
            made.push_back({m, p});
            if (e.args[i].kind == Kind::Spec) s[i].p = p;
            else tables[i].assign(kChannels, p), s[i].p = tables[i].data();
        }
        return e.call(s);
    }

    // Runs one variant; returns an empty string if every check holds.
    std::string run(const Variant& v) {
        for (auto& b : bufs) b->reset();
        Slot s[kMaxArgs];
        std::memcpy(s, base, sizeof s);
        if (v.arg == -1) {
            for (int i = 0; i < e.nargs; ++i) {
                if (is_pointer(e.args[i].kind)) s[i].p = nullptr;
                if (e.args[i].kind == Kind::Length) s[i].i = 0;
            }
        } else if (v.arg >= 0) {
            s[v.arg] = v.slot;
            if (v.pick == Pick::Zeroed) s[v.arg].p = zeroed.data();
            if (v.pick == Pick::Random) s[v.arg].p = random.data();
        }
        alarm(kAlarm);
        const zamStatus r = e.call(s);
        alarm(0);
        std::string out;
        auto fail = [&](const std::string& m) { out += (out.empty() ? "" : "; ") + m; };
        if (v.expect == Expect::Null && r != zamStatusNullPointer) fail("gave " + std::to_string(r) + ", not -8");
        if (v.expect == Expect::Error && r >= 0) fail("gave " + std::to_string(r) + ", not an error");
        if (v.expect == Expect::Mismatch && r != zamStatusContextMismatch) fail("gave " + std::to_string(r) + ", not -17");
        for (int i = 0; i < e.nargs; ++i) {
            const Arg& a = e.args[i];
            const bool src = a.kind == Kind::Src || a.kind == Kind::SrcArray;
            for (Buffer* b : owned[i]) {
                if (!b->guards_intact()) fail(std::string("wrote outside ") + a.name);
                if (src && !b->unchanged()) fail(std::string("wrote into const ") + a.name);
                if (!src && r < 0 && !b->unchanged() && !excepted(e.name, "error writes"))
                    fail(std::string("wrote ") + a.name + " and returned " + std::to_string(r));
            }
            if (a.kind == Kind::SrcArray || a.kind == Kind::DstArray)
                for (int c = 0; c < kChannels; ++c)
                    if (tables[i][c] != owned[i][c]->data()) fail(std::string("changed the table ") + a.name);
        }
        return out;
    }
};

struct Record {
    int index;
    char message[248];
};

// Runs variants [from, end) of one export in a child; returns the index of a
// call that crashed or hung (with `how`), or -1 when the child finished.
int run_child(Frame& f, const std::vector<Variant>& v, int from, std::vector<std::string>& failures, std::string& how) {
    int fd[2];
    if (pipe(fd) != 0) std::abort();
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        close(fd[0]);
        for (int k = from; k < int(v.size()); ++k) {
            Record rec{k, {}};
            std::snprintf(rec.message, sizeof rec.message, "%s", f.run(v[k]).c_str());
            if (write(fd[1], &rec, sizeof rec) != ssize_t(sizeof rec)) _exit(3);
        }
        _exit(0);
    }
    close(fd[1]);
    int next = from;
    Record rec;
    for (;;) {
        const ssize_t got = read(fd[0], &rec, sizeof rec);
        if (got < 0 && errno == EINTR) continue;
        if (got != ssize_t(sizeof rec)) break;
        if (rec.message[0]) failures.push_back(v[rec.index].label + ": " + rec.message);
        next = rec.index + 1;
    }
    close(fd[0]);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {}
    if (next >= int(v.size())) return -1;
    if (WIFSIGNALED(status))
        how = WTERMSIG(status) == SIGALRM ? "hung" : std::string("crashed: ") + strsignal(WTERMSIG(status));
    else
        how = "exited with " + std::to_string(WEXITSTATUS(status));
    return next;
}

TEST(Hostile, EveryExport) {
    ASSERT_GT(kExportCount, 0u);
    Structures st;
    size_t calls = 0;
    for (size_t x = 0; x < kExportCount; ++x) {
        const Export& e = kExports[x];
        std::string problem;
        const std::vector<Variant> v = variants(e, st, problem);
        if (!problem.empty()) {
            ADD_FAILURE() << e.name << ": " << problem;
            continue;
        }
        Frame f(e, st);
        std::vector<std::string> failures;
        for (int from = 0; from < int(v.size());) {
            std::string how;
            const int bad = run_child(f, v, from, failures, how);
            if (bad < 0) break;
            failures.push_back(v[bad].label + ": " + how);
            from = bad + 1;
        }
        calls += v.size();
        for (const auto& m : failures) ADD_FAILURE() << e.name << ": " << m;
    }
    std::printf("%zu exports, %zu calls\n", kExportCount, calls);
}

// The same arguments give the same bits wherever the caller's buffers lie:
// each export's valid call, with short and long lengths, once with every
// buffer on the 64-byte grid and once with each off it by its own multiple
// of 8 bytes; status and every output byte (work buffers aside) must
// agree. A structure made into caller memory may hold its own address, so
// the Init calls are left out, and so are the Free calls, which release what
// they are given; structures are made afresh for each call.
TEST(Hostile, SameBitsAtAnyAddress) {
    Structures st;
    for (size_t x = 0; x < kExportCount; ++x) {
        const Export& e = kExports[x];
        if (std::strstr(e.name, "Init") || std::strstr(e.name, "Free") || excepted(e.name, "address")) continue;
        int fd[2];
        ASSERT_EQ(pipe(fd), 0);
        std::fflush(nullptr);
        const pid_t pid = fork();
        if (pid == 0) {
            close(fd[0]);
            std::string out;
            for (int len : {8, 203}) {
                Frame a(e, st, Place::Aligned, len), b(e, st, Place::Shifted, len);
                std::vector<std::pair<const Maker*, void*>> made;
                const zamStatus ra = a.call_fresh(made), rb = b.call_fresh(made);
                if (ra != rb) out += "len " + std::to_string(len) + ": status " + std::to_string(ra) + " and " + std::to_string(rb) + "; ";
                for (int i = 0; i < e.nargs; ++i) {
                    if (e.args[i].kind != Kind::Dst && e.args[i].kind != Kind::DstArray) continue;
                    if (std::strstr(e.args[i].name, "Buf")) continue;  // a work buffer: scratch
                    if (std::strncmp(e.args[i].name, "pp", 2) == 0) continue;  // a pointer handed back
                    for (size_t c = 0; c < a.owned[i].size(); ++c)
                        if (std::memcmp(a.owned[i][c]->data(), b.owned[i][c]->data(), kData) != 0)
                            out += "len " + std::to_string(len) + ": " + e.args[i].name + " differs; ";
                }
                for (auto& [m, p] : made) m->release(p);
            }
            Record rec{0, {}};
            std::snprintf(rec.message, sizeof rec.message, "%s", out.c_str());
            _exit(write(fd[1], &rec, sizeof rec) == ssize_t(sizeof rec) ? 0 : 3);
        }
        close(fd[1]);
        Record rec{-1, {}};
        ssize_t got;
        while ((got = read(fd[0], &rec, sizeof rec)) < 0 && errno == EINTR) {}
        close(fd[0]);
        int status = 0;
        while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {}
        if (got != ssize_t(sizeof rec)) ADD_FAILURE() << e.name << ": the valid call did not finish";
        else if (rec.message[0]) ADD_FAILURE() << e.name << ": " << rec.message;
    }
}

// Every exception names an export that exists and is still needed by its
// kind of case, so the list cannot outlive what it excuses.
TEST(Hostile, ExceptionsNameExports) {
    for (size_t i = 0; i < kExceptionCount; ++i) {
        bool any = false;
        for (size_t x = 0; x < kExportCount && !any; ++x) any = fnmatch(kExceptions[i].exports, kExports[x].name, 0) == 0;
        EXPECT_TRUE(any) << kExceptions[i].exports << " matches no export";
        EXPECT_TRUE(kExceptions[i].reason && *kExceptions[i].reason) << kExceptions[i].exports;
    }
}

}  // namespace
}  // namespace hostile
