#include "platform/native_path.h"

#include "platform/path_bytes.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

class NativePath : public ::testing::TestWithParam<testing::PathBytes> {};

TEST_P(NativePath, IsTheBytesOfTheText) {
    EXPECT_EQ(pathText(GetParam().bytes), GetParam().text);
    EXPECT_EQ(nativePath(GetParam().text).native(), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Names, NativePath, ::testing::ValuesIn(testing::pathBytes));

} // namespace
} // namespace brindlewick
