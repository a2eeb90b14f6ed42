#include "platform/native_path.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(NativePath, IsTheBytesOfTheText) {
    const std::u16string text{u'/', u'\u00E4', 0xDCFF};
    EXPECT_EQ(nativePath(text).native(), "/\xC3\xA4\xFF");
    EXPECT_EQ(pathText("/\xC3\xA4\xFF"), text);
}

} // namespace
} // namespace brindlewick
