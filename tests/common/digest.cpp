// Runs every digest case registered in this test binary and compares the
// results with the committed files, one file per registering source file.
#include "digest.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace zt {
namespace {

struct Case {
    std::string name;
    DigestFn fn;
};

std::map<std::string, std::vector<Case>>& registry() {
    static std::map<std::string, std::vector<Case>> r;
    return r;
}

std::string stem(const char* path) {
    std::string s(path);
    size_t slash = s.find_last_of('/');
    if (slash != std::string::npos) s = s.substr(slash + 1);
    size_t dot = s.find_last_of('.');
    return dot == std::string::npos ? s : s.substr(0, dot);
}

std::string hex(uint64_t v) {
    char buf[17];
    std::snprintf(buf, sizeof buf, "%016llx", static_cast<unsigned long long>(v));
    return buf;
}

}  // namespace

int register_digest(const char* file, const char* name, DigestFn fn) {
    registry()[stem(file)].push_back({name, fn});
    return 0;
}

TEST(Digest, MatchesCommittedFiles) {
    const bool write = std::getenv("ZAMS_DIGEST_WRITE") != nullptr;
    for (auto& [file, cases] : registry()) {
        const std::string path = std::string(ZAMS_DIGEST_DIR) + "/" + file + ".digest";
        std::map<std::string, std::string> got;
        for (auto& c : cases) {
            Digest d;
            c.fn(d);
            ASSERT_TRUE(got.emplace(c.name, hex(d.value())).second) << "case named twice: " << c.name;
        }
        if (write) {
            std::ofstream out(path);
            for (auto& [n, h] : got) out << n << ' ' << h << '\n';
            continue;
        }
        std::ifstream in(path);
        ASSERT_TRUE(in) << "no digest file " << path << " (run with ZAMS_DIGEST_WRITE=1)";
        std::map<std::string, std::string> want;
        std::string line;
        while (std::getline(in, line)) {
            std::istringstream ls(line);
            std::string n, h;
            if (ls >> n >> h) want[n] = h;
        }
        for (auto& [n, h] : got) {
            auto it = want.find(n);
            if (it == want.end())
                ADD_FAILURE() << path << ": no entry for case " << n;
            else
                EXPECT_EQ(it->second, h) << path << ": case " << n << " differs";
        }
        for (auto& [n, h] : want)
            if (!got.count(n)) ADD_FAILURE() << path << ": stale entry " << n;
    }
}

}  // namespace zt
