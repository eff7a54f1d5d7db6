// The library frame: version record and typed allocation.
#include <cstdint>
#include <cstring>
#include <utility>

#include "digest.h"
#include "harness.h"

namespace {

TEST(Version, RecordFieldsAndTexts) {
    const ZamVersionRecord* v = zamsGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v, zamsGetLibVersion());
    EXPECT_EQ(v->versionMajor, 7);
    EXPECT_EQ(v->versionMinor, 1);
    EXPECT_EQ(v->versionPatch, 1);
    EXPECT_EQ(v->buildNumber, 37466);
    EXPECT_EQ(std::memcmp(v->cpuCode, "g9\0\0", 4), 0);
    EXPECT_STREQ(v->libraryName, "zamSP AVX (g9)");
    EXPECT_STREQ(v->versionText, "7.1.1 (r37466)");
    EXPECT_STREQ(v->buildDateText, "Sep 24 2012");
    if (sizeof(void*) == 4) {
        EXPECT_EQ(sizeof(ZamVersionRecord), 32u);
    }
}

TEST(Malloc, EveryTypeIsAlignedWritableAndFreed) {
    const std::pair<void*, size_t> blocks[] = {
        {zamsMalloc_8u(3), 1},   {zamsMalloc_8s(3), 1},   {zamsMalloc_16u(3), 2},  {zamsMalloc_16s(3), 2},
        {zamsMalloc_8sc(3), 2},  {zamsMalloc_32u(3), 4},  {zamsMalloc_32s(3), 4},  {zamsMalloc_32f(3), 4},
        {zamsMalloc_16sc(3), 4}, {zamsMalloc_64s(3), 8},  {zamsMalloc_64f(3), 8},  {zamsMalloc_32sc(3), 8},
        {zamsMalloc_32fc(3), 8}, {zamsMalloc_64sc(3), 16}, {zamsMalloc_64fc(3), 16}};
    for (auto [p, elem] : blocks) {
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
        std::memset(p, 0x5A, 3 * elem);
        zamsFree(p);
    }
}

TEST(Malloc, NonPositiveLengthGivesNull) {
    EXPECT_EQ(zamsMalloc_32f(0), nullptr);
    EXPECT_EQ(zamsMalloc_32f(-5), nullptr);
    EXPECT_EQ(zamsMalloc_64fc(-1), nullptr);
}

}  // namespace
