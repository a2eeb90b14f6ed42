// What cases/*.cases cannot hold: deep nesting, many keys, members of every length, numbers as settings hold
// them.
#include "core/decimal_number.h"
#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/line_reader.h"
#include "core/text_file_reader.h"
#include "platform/failure.h"
#include "platform/native_path.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace brindlewick {
namespace {

/// The lines and positions of both readers are the same. Returns the first line.
std::u16string firstLineOfBoth(const std::u16string& text) {
    JsonParser parser;
    LineReader reader;
    std::u16string first;
    std::int32_t valuePosition = 1;
    std::size_t at = 0;
    while (const std::optional<JsonValue> fragment = parser.parse(text, valuePosition)) {
        EXPECT_EQ(reader.next(text, at), FragmentReading::line) << toUtf8(text);
        EXPECT_EQ(at + 1, valuePosition) << toUtf8(text);
        const std::u16string line = serialize(*fragment);
        EXPECT_EQ(toUtf8(reader.line()), toUtf8(line)) << toUtf8(text);
        if (::testing::Test::HasFailure())
            return {};
        if (first.empty())
            first = line;
    }
    EXPECT_EQ(reader.next(text, at), FragmentReading::end) << toUtf8(text);
    return first;
}

TEST(Readers, AgreeOnMembersOfEveryLength) {
    // Members far from the text's end are read by whole blocks, those near it unit by unit.
    const std::u16string farEnd = u"\n" + std::u16string(600, u' ') + u"[\"the end\"]\n";
    for (std::size_t length = 0; length < 600 && !HasFailure(); ++length)
        for (const std::u16string_view pattern :
             {u"{\"K\":\"\"}", u"{\"\":\"V\",", u"{\"K\":12}", u",\"k\": \"V/\"}", u"{ {\"K\" :'V'}",
              u"{\"k\":nullV,", u"{\"k\":\"V\u00E9\"}", u"{\"k\":\"V\\n\"}", u"{\"Kx:y\":true}"}) {
            std::u16string text(pattern);
            if (const std::size_t at = text.find_first_of(u"KV"); at != text.npos)
                text.replace(at, 1, std::u16string(length, u'x'));
            firstLineOfBoth(text);
            firstLineOfBoth(text + farEnd);
        }
}

TEST(Readers, ReadAThousandLevelsExactlyAndGoOnAfterMore) {
    const std::u16string nested = std::u16string(1000, u'[') + u"1" + std::u16string(1000, u']');
    EXPECT_EQ(firstLineOfBoth(nested), nested);
    for (const char16_t bracket : {u'[', u'{'})
        firstLineOfBoth(std::u16string(3000, bracket));

    const std::size_t depth = 200000;
    const std::u16string text(depth, u'[');
    EXPECT_EQ(firstLineOfBoth(text).size(), (depth - 1023) * 3 - 1 + 1023 * 2);
    JsonParser parser;
    std::int32_t position = 1;
    ASSERT_TRUE(parser.parse(text, position));
    EXPECT_NE(parser.parserErrors().find(u"Out of stack space: [[[["), std::u16string::npos);
}

TEST(Readers, FindADuplicateAmongManyKeys) {
    std::u16string text = u"{";
    for (int key = 0; key < 50000; ++key)
        text += fromUtf8("\"k" + std::to_string(key) + "\":1 ");
    EXPECT_EQ(firstLineOfBoth(text + u"\"k49999\":2}").size(),
              50000 * 4 + 10 + 90 * 2 + 900 * 3 + 9000 * 4 + 40000 * 5 + 50000 * 2 + 1);
}

/// Files that nobody here wrote.
TEST(Readers, AgreeOnForeignFiles) {
    const char* const folder = std::getenv("BRINDLEWICK_FOREIGN_JSON");
    if (folder == nullptr || *folder == '\0')
        GTEST_SKIP() << "BRINDLEWICK_FOREIGN_JSON names no folder of JSON files";
    std::size_t lines = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".json" && entry.is_regular_file())
            for (const std::u16string& piece : ReadFileToPieces(pathText(entry.path()))) {
                SCOPED_TRACE(entry.path());
                lines += firstLineOfBoth(piece).empty() ? 0 : 1;
            }
    EXPECT_GT(lines, 0U) << folder;
}

TEST(DecimalAsInteger, RoundsHalfToEvenAndChecksTheRange) {
    EXPECT_EQ(decimalAsInteger(u"2.5"), 2);
    EXPECT_EQ(decimalAsInteger(u"3.5"), 4);
    EXPECT_EQ(decimalAsInteger(u"-2147483648"), -2147483647 - 1);
    EXPECT_THROW(decimalAsInteger(u"2147483647.5"), Failure);
    EXPECT_THROW(decimalAsInteger(u"one"), Failure);
}

} // namespace
} // namespace brindlewick
