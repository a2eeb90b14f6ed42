#include "platform/native_path.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(NativePath, IsTheTextUnitByUnit) {
    std::u16string text = u"C:\\a/b";
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) // lone surrogates among them, in pairs and out of order
        text += static_cast<char16_t>(unit);
    const std::wstring wide = nativePath(text).native();
    ASSERT_EQ(wide.size(), text.size());
    for (std::size_t at = 0; at < text.size(); ++at)
        ASSERT_EQ(static_cast<char16_t>(wide[at]), text[at]) << at;
    EXPECT_EQ(pathText(nativePath(text)), text);
    EXPECT_EQ(pathSeparator, u'\\');
}

} // namespace
} // namespace brindlewick
