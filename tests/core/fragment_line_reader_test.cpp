// The cases that need a text of a certain length; fuzz/fuzz_json.cpp holds both ways against each other on
// any text.
#include "core/fragment_line_reader.h"

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

/// Lines and positions, the plain way and the fast way, have to be the same.
void expectTheSame(const std::u16string& text) {
    JsonParser parser;
    FragmentLineReader reader;
    std::int32_t plainPosition = 1;
    std::int32_t fastPosition = 1;
    for (;;) {
        const std::optional<JsonValue> fragment = parser.parse(text, plainPosition);
        const FragmentReading reading = reader.next(text, fastPosition);
        ASSERT_EQ(reading, fragment ? FragmentReading::line : FragmentReading::end) << toUtf8(text);
        ASSERT_EQ(fastPosition, plainPosition) << toUtf8(text);
        if (!fragment)
            return;
        ASSERT_EQ(toUtf8(reader.line()), toUtf8(serialize(*fragment))) << toUtf8(text);
    }
}

/// What follows keeps the text's end away, so that the members are read by whole blocks.
const std::u16string farEnd = u"\n" + std::u16string(600, u' ') + u"[\"the end\"]\n";

TEST(FragmentLineReader, AgreesWithThePlainWayOnMembersOfEveryLength) {
    for (std::size_t length = 0; length < 600; ++length)
        for (const std::u16string_view pattern :
             {u"{\"K\":\"\"}", u"{\"\":\"V\",", u"{\"K\":12}", u",\"k\": \"V/\"}", u"{ {\"K\" :'V'}",
              u"{\"k\":nullV,", u"{\"k\":\"V\u00E9\"}", u"{\"k\":\"V\\n\"}", u"{\"Kx:y\":true}"}) {
            std::u16string text(pattern);
            for (const char16_t letter : {u'K', u'V'})
                if (const std::size_t at = text.find(letter); at != std::u16string::npos)
                    text.replace(at, 1, std::u16string(length, u'x'));
            expectTheSame(text);
            expectTheSame(text + farEnd);
        }
}

TEST(FragmentLineReader, AgreesWithThePlainWayAtTheLimits) {
    std::u16string manyKeys = u"{";
    for (int key = 0; key < 3000; ++key) {
        const std::string member = "k" + std::to_string(key % 2900) + ":1 ";
        manyKeys.append(member.begin(), member.end());
    }
    for (const std::u16string& text :
         {std::u16string(3000, u'['), std::u16string(3000, u'{'), manyKeys + u"} ",
          std::u16string(1500, u'[') + u"1" + std::u16string(1500, u']'), std::u16string(),
          std::u16string(1, u'\0')})
        expectTheSame(text);
}

} // namespace
} // namespace brindlewick
