#include "core/string_builder.h"

#include "support/failure_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace brindlewick {
namespace {

using testing::failureOf;

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

} // namespace
} // namespace brindlewick
