#include "core/json_serialiser.h"

#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(EncodeString, WritesPrintableAsciiAlone) {
    const std::pair<std::u16string, std::string> cases[] = {
        {u"", ""},
        {u"plain 'text' ~", "plain 'text' ~"},
        {u"\"\\/\b\f\n\r\t", "\\\"\\\\\\/\\b\\f\\n\\r\\t"},
        {u"\u00E9\u007F\u001F", "\\u00E9\\u007F\\u001F"},
        {std::u16string(1, u'\0'), "\\u0000"},
        {u"\U0001F600", "\\uD83D\\uDE00"},
        {{0xDC80, 0xFFFF}, "\\uDC80\\uFFFF"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(toUtf8(encodeString(text)), expected);
}

TEST(Serialize, WritesKeysAsTheyStandAndEmptyAsNothing) {
    auto object = std::make_shared<JsonObject>();
    EXPECT_TRUE(object->add(u"a\\/\u00E9", std::monostate()));
    EXPECT_TRUE(object->add(u"b", JsonNull()));
    EXPECT_FALSE(object->add(u"b", true));
    EXPECT_TRUE(object->add(u"B", std::shared_ptr<JsonArray>()));
    EXPECT_EQ(serialize(object), u"{\"a\\/\u00E9\":,\"b\":null,\"B\":}");
}

TEST(SerializeNativeArray, FindsSingleDigitIndexesOfOneDimensionAlone) {
    const auto textOf = [](NativeArray array, std::size_t elements) {
        for (std::size_t element = 0; element < elements; ++element)
            array.elements.emplace_back(std::u16string(1, static_cast<char16_t>(u'a' + element)));
        std::u16string path;
        return toUtf8(serializeNativeArray(array, 1, u"", path));
    };
    EXPECT_EQ(textOf({{{0, 2}}, {}}, 3), R"(["a","b","c"])");
    EXPECT_EQ(textOf({{{8, 11}}, {}}, 4), R"(["a","b",,])");
    EXPECT_EQ(textOf({{{-1, 1}}, {}}, 3), R"([,"b","c"])");
    EXPECT_EQ(textOf({{{0, 1}, {0, 1}}, {}}, 4), "[[,],[,]]");
    EXPECT_EQ(textOf({{{0, -1}}, {}}, 0), "[]");
}

} // namespace
} // namespace brindlewick
