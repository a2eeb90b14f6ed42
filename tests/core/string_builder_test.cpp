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

TEST(StringBuilder, HeapMinimizeLeavesAtMostOneSpareChunk) {
    cStringBuilder builder;
    builder.setChunkSize(10);
    builder.Append(std::u16string(35, u'x'));
    EXPECT_EQ(builder.Capacity(), 40);
    builder.Remove(0, 20); // 15 used, 25 spare
    builder.HeapMinimize();
    EXPECT_EQ(builder.Capacity(), 20);
    builder.Remove(0, 5); // 10 used, 10 spare: one whole chunk may stay
    builder.HeapMinimize();
    EXPECT_EQ(builder.Capacity(), 20);
}

TEST(StringBuilder, FailsWithoutChangingAnything) {
    cStringBuilder builder;
    builder.Append(u"abc");
    EXPECT_EQ(failureOf([&] { builder.Insert(4, u"x"); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { builder.Insert(-1, u"x"); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { builder.Remove(2, 2); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { builder.Remove(1, -1); }), FailureNumber::subscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { builder.Remove(1, std::numeric_limits<std::int32_t>::max()); }),
              FailureNumber::subscriptOutOfRange);
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

TEST(StringBuilder, CrossesTheArgumentsOfFindBelowStartOne) {
    cStringBuilder builder;
    builder.Append(u"2    ");
    EXPECT_EQ(builder.Find(u"10011", 0, TextComparison::text), 4);
    EXPECT_EQ(builder.Find(u"10011", 0, TextComparison::binary), 2);
    builder.TheString(u"0");
    EXPECT_EQ(failureOf([&] { (void)builder.Find(u"x", 0); }), FailureNumber::invalidProcedureCall);
    builder.TheString(u"two");
    EXPECT_EQ(failureOf([&] { (void)builder.Find(u"x", -1); }), FailureNumber::typeMismatch);
}

} // namespace
} // namespace brindlewick
