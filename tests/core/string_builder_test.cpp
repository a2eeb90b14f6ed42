#include "core/string_builder.h"

#include "support/failure_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace brindlewick {
namespace {

using testing::failureOf;

TEST(StringBuilder, GrowsByWholeChunks) {
    cStringBuilder builder;
    EXPECT_EQ(builder.Length(), 0);
    EXPECT_EQ(builder.Capacity(), 0);
    EXPECT_EQ(builder.ChunkSize(), 8192);
    builder.Append(u"");
    EXPECT_EQ(builder.Capacity(), 0);
    builder.Append(u"a");
    EXPECT_EQ(builder.Capacity(), 8192);
    builder.Clear();
    builder.Append(std::u16string(8193, u'x'));
    EXPECT_EQ(builder.Capacity(), 16384);
    builder.TheString(u"short");
    EXPECT_EQ(builder.Capacity(), 16384);
    EXPECT_EQ(builder.toString(), u"short");
    builder.HeapMinimize();
    EXPECT_EQ(builder.Capacity(), 8192);
    builder.TheString(u"");
    EXPECT_EQ(builder.Capacity(), 0);
}

TEST(StringBuilder, FailsWithoutChangingAnything) {
    cStringBuilder builder;
    builder.Append(u"abc");
    for (const std::int32_t place : {-1, 4})
        EXPECT_EQ(failureOf([&] { builder.Insert(place, u"x"); }), FailureNumber::subscriptOutOfRange);
    for (const std::int32_t count : {-1, 3, std::numeric_limits<std::int32_t>::max()})
        EXPECT_EQ(failureOf([&] { builder.Remove(1, count); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { builder.setChunkSize(1 << 30); }), FailureNumber::overflow);
    EXPECT_EQ(builder.ChunkSize(), 8192);
    builder.setChunkSize(0);
    builder.Append(u"still fits");
    EXPECT_EQ(failureOf([&] { builder.Append(std::u16string(9000, u'x')); }), FailureNumber::outOfMemory);
    EXPECT_EQ(builder.toString(), u"abcstill fits");
}

TEST(StringBuilder, FindsInsideTheBufferButNotAtItsLastUnit) {
    cStringBuilder builder;
    builder.Append(u"one Two");
    EXPECT_EQ(builder.Find(u"two"), 5);
    EXPECT_EQ(builder.Find(u"two", 1, TextComparison::binary), 0);
    EXPECT_EQ(builder.Find(u"o", 2), 0);  // the only other one is the last unit
    EXPECT_EQ(builder.Find(u"wo   "), 6); // the spare tail reads as blanks
    EXPECT_EQ(builder.Find(u"  "), 0);    // and alone is no hit
    EXPECT_EQ(builder.Find(u"", 3), 3);
    EXPECT_EQ(builder.Find(u"x", 99999), 0);
}

} // namespace
} // namespace brindlewick
