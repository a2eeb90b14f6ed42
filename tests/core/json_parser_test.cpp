#include "core/json_parser.h"

#include "core/json_serialiser.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <vector>

namespace brindlewick {
namespace {

struct Fragments {
    std::vector<std::string> lines;
    std::vector<std::string> errors; ///< one text a call, the last call's (without a fragment) included
};

Fragments fragmentsOf(std::u16string_view text) {
    Fragments fragments;
    JsonParser parser;
    std::int32_t position = 1;
    for (;;) {
        const std::optional<JsonValue> fragment = parser.parse(text, position);
        fragments.errors.push_back(toUtf8(parser.parserErrors()));
        if (!fragment)
            return fragments;
        fragments.lines.push_back(toUtf8(serialize(*fragment)));
    }
}

using Lines = std::vector<std::string>;

struct Case {
    std::u16string text;
    Lines lines;
};

class FragmentsOfAText : public ::testing::TestWithParam<Case> {};

TEST_P(FragmentsOfAText, ComeInOrder) {
    EXPECT_EQ(fragmentsOf(GetParam().text).lines, GetParam().lines) << toUtf8(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(AnObjectEndsAtItsFirstCommaOrBracket, FragmentsOfAText,
                         ::testing::Values(Case{u"", {}}, Case{u"   ", {}}, Case{u"{", {}},
                                           Case{u"{}", {"{}"}}, Case{u"[]", {"[]"}},
                                           Case{u"{\"a\":1,\"b\":{\"c\":2,\"d\":3},\"e\":[1,2]}",
                                                {"{\"a\":1}", "{\"b\":{\"c\":2}}", "{\"d\":3}",
                                                 "{\"e\":[1,2]}"}},
                                           Case{u"{\"a\":1}{\"b\":2} ", {"{\"a\":1}", "{\"b\":2}"}},
                                           Case{u"{\"a\":1,[2]}", {"{\"a\":1}", "{}", "[2]"}},
                                           Case{u"[{\"a\":1,\"b\":2}]", {"[{\"a\":1},\"b\"]", "{\"2}]\":}"}},
                                           Case{u"{\"a\":1 \"b\":2}", {"{\"a\":1,\"b\":2}"}},
                                           Case{u"{\"a\":1 \"a\":2 \"c\":3}", {"{\"a\":1}", "{\"c:3}\":}"}}));

INSTANTIATE_TEST_SUITE_P(
    KeysAreLenient, FragmentsOfAText,
    ::testing::Values(Case{u"{a : 1}", {"{\"a\":1}"}}, Case{u"{\"first name\":1}", {"{\"firstname\":1}"}},
                      Case{u"{'a':'x\"y'}", {"{\"a\":\"x\\\"y\"}"}}, Case{u"{\"a:b\":1}", {"{\"a:b\":1}"}},
                      Case{u"{\"a\" /*c*/ :1}", {"{\"a\":1}"}}, Case{u"{\"a\\\\b\":1}", {"{\"a\\\\b\":1}"}},
                      Case{u"{\"a'b':\":1}", {"{\"ab:\":1}"}}));

INSTANTIATE_TEST_SUITE_P(
    StringsKnowTheirEscapes, FragmentsOfAText,
    ::testing::Values(Case{u"{\"a\":\"\\u00e9\\uD83D\\uDE00\"}", {"{\"a\":\"\\u00E9\\uD83D\\uDE00\"}"}},
                      Case{u"{\"a\":\"\\u12\"x\"}", {"{\"a\":\"\\u0012\"}"}},
                      Case{u"{\"a\":\"\\uzz12x\"}", {"{\"a\":\"\\u0000x\"}"}},
                      Case{u"{\"a\":\"\\b\\f\\n\\r\\t\\/\\\\\\'\\x\"}",
                           {"{\"a\":\"\\b\\f\\n\\r\\t\\/\\\\'x\"}"}},
                      Case{u"{\"a\":\"open", {"{\"a\":\"open\"}"}}, Case{u"{\"a\":\"\\", {"{\"a\":\"\"}"}},
                      Case{u"{\"a\":\"\\u1", {"{\"a\":\"\\u0001\"}"}}));

INSTANTIATE_TEST_SUITE_P(
    WordsAndNumbers, FragmentsOfAText,
    ::testing::Values(Case{u"{\"a\":true,\"b\":false,\"c\":null}",
                           {"{\"a\":true}", "{\"b\":false}", "{\"c\":null}"}},
                      Case{u"{\"a\":5", {"{\"a\":}"}}, Case{u"{\"a\":1.5e3}", {"{\"a\":1500}"}},
                      Case{u"{\"a\":-}", {"{}"}}, Case{u"{\"a\":tx}", {"{\"a\":false,\"tx}\":}"}},
                      Case{u"{\"a\":nul}", {"{\"a\":,\"nul}\":}"}}, Case{u"[1,2,]", {"[1,2]"}},
                      Case{u"[tx]", {"[false]", "{\"x]\":}"}}, Case{u"[nx] ", {"[]", "{\"x]\":}"}},
                      Case{u"[1,tx]", {"[1,false]", "{\"x]\":}"}}));

INSTANTIATE_TEST_SUITE_P(BlanksAndComments, FragmentsOfAText,
                         ::testing::Values(Case{u"({\"a\":(1)})", {"{\"a\":1}"}},
                                           Case{u"// x\n{\"a\":1}", {"{\"a\":1}"}},
                                           Case{u"/* {\"x\":1} */{\"a\":1}", {"{\"a\":1}"}},
                                           Case{u"/ * {\"a\":1}\n */ {\"b\":1}", {"{\"b\":1}"}},
                                           Case{u"*/ comment\n{\"a\":1}", {"{\"a\":1}"}},
                                           Case{u"/* * x / {\"a\":1}", {"{\"a\":1}"}},
                                           Case{u"/* **/ {\"a\":1} ", {}},
                                           Case{u"\f{\"a\":1}", {"{\"{a\":1}"}}));

struct ErrorCase {
    std::u16string text;
    const char* errors; ///< of the first call
};

class ErrorsOfTheFirstFragment : public ::testing::TestWithParam<ErrorCase> {};

TEST_P(ErrorsOfTheFirstFragment, AreWordForWord) {
    EXPECT_EQ(fragmentsOf(GetParam().text).errors.front(), GetParam().errors) << toUtf8(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Readers, ErrorsOfTheFirstFragment,
    ::testing::Values(ErrorCase{u"", "Invalid JSON"}, ErrorCase{u" {", "Invalid JSON"}, ErrorCase{u"{}", ""},
                      ErrorCase{u"{\"a\":1 \"a\":2}",
                                "This key is already associated with an element of this collection: a\r\n"},
                      ErrorCase{u"[1,2,]", "Type mismatch: ]\r\n"},
                      ErrorCase{u"[{\"a\":1,\"b\":2}]", "Type mismatch: :2}]\r\n"},
                      ErrorCase{u"{\"a\":1e29}", "Overflow: a\r\n"},
                      ErrorCase{u"{\"a\":5", "Missing '}': {\"a\":5\r\n"},
                      ErrorCase{u"[[1,2", "Missing ']': [[1,2\r\nMissing ']': [[1,2\r\n"},
                      ErrorCase{u"{\"a\":tx,1}",
                                "Invalid Boolean at position 6 : tx,1}\r\nMissing '}': {\"a\":tx,1}\r\n"},
                      ErrorCase{u"{\"a\":nx,1}",
                                "Invalid null value at position 6 : nx,1}\r\nMissing '}': {\"a\":nx,1}\r\n"},
                      ErrorCase{u"{\"ab\"x:1}", "Invalid Key at position 6 : ab\r\nType mismatch: ab\r\n"},
                      ErrorCase{u"[tx]", "Invalid Boolean at position 2 : tx]\r\nOut of memory: tx]\r\n"},
                      ErrorCase{u"{\"a\":\"0123456789012345678901234567890123456789",
                                "Missing '}': 01234567890123456789\r\n"}));

TEST(JsonParser, ReportsALastCallOnTheRestOfABrokenArray) {
    const Fragments fragments = fragmentsOf(u"[{\"a\":1,\"b\":2}]");
    ASSERT_EQ(fragments.errors.size(), 3U);
    EXPECT_EQ(fragments.errors[1], "Missing '}': [{\"a\":1,\"b\":2}]\r\n");
    EXPECT_EQ(fragments.errors[2], "Invalid JSON");
}

TEST(JsonParser, ReadsAThousandLevelsExactly) {
    const std::u16string text = std::u16string(1000, u'[') + u"1" + std::u16string(1000, u']');
    EXPECT_EQ(fragmentsOf(text).lines, Lines{std::string(1000, '[') + "1" + std::string(1000, ']')});
}

TEST(JsonParser, GoesOnBehindLevelsThatAreTooDeep) {
    const std::size_t depth = 200000;
    JsonParser parser;
    std::int32_t position = 1;
    const std::u16string text(depth, u'[');
    const std::optional<JsonValue> fragment = parser.parse(text, position);
    ASSERT_TRUE(fragment);
    EXPECT_EQ(serialize(*fragment).size(), (depth - 1023) * 3 - 1 + 1023 * 2);
    EXPECT_NE(parser.parserErrors().find(u"Out of stack space: [[[["), std::u16string::npos);
    EXPECT_FALSE(parser.parse(text, position));
}

TEST(JsonParser, FindsADuplicateAmongManyKeys) {
    std::u16string text = u"{";
    for (int key = 0; key < 50000; ++key) {
        const std::string member = "\"k" + std::to_string(key) + "\":1 ";
        text.append(member.begin(), member.end());
    }
    text += u"\"k49999\":2}";
    JsonParser parser;
    std::int32_t position = 1;
    const std::optional<JsonValue> fragment = parser.parse(text, position);
    ASSERT_TRUE(fragment);
    EXPECT_EQ(std::get<std::shared_ptr<JsonObject>>(*fragment)->members().size(), 50000U);
    EXPECT_EQ(parser.parserErrors(),
              u"This key is already associated with an element of this collection: k49999\r\n");
}

} // namespace
} // namespace brindlewick
