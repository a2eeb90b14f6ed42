#include "core/fragment_line_reader.h"

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

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

/// JSON as a program would write it, with blanks here and there.
class Generator {
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    std::u16string value(int depth) {
        switch (below(depth > 0 ? 8 : 5)) {
        case 0:
            return pick({u"1", u"-0", u"0.10", u"1.5e3", u"12345678901234567890123456789.5", u"007", u"5.",
                         u"-0.0", u"1e40"});
        case 1:
            return pick({u"true", u"false", u"null", u"tru", u"nul", u"TRUE"});
        case 2:
        case 3:
        case 4:
            return string();
        case 5:
            return list(u'[', u']', depth, false);
        default:
            return list(u'{', u'}', depth, true);
        }
    }
    /// Takes units out, doubles them and puts others in.
    std::u16string mutated(std::u16string text) {
        static constexpr std::u16string_view units = u"{}[]:,\"'\\/* \r\n\t()tfnu+-0.eE9\u00E9\x7F";
        for (std::size_t change = below(4); change > 0 && !text.empty(); --change) {
            const std::size_t at = below(text.size());
            const char16_t unit = units[below(units.size())];
            switch (below(3)) {
            case 0:
                text.erase(at, 1 + below(3));
                break;
            case 1:
                text.insert(at, 1, unit);
                break;
            default:
                text[at] = unit;
            }
        }
        return text;
    }
    std::u16string noise(std::size_t length) {
        static constexpr std::u16string_view units = u"{{}[[],,::\"\"'\\/* \ntfnue1a";
        std::u16string text;
        for (; length > 0; --length)
            text.push_back(units[below(units.size())]);
        return text;
    }
    std::size_t below(std::size_t limit) { return random_() % limit; }

private:
    std::u16string pick(std::vector<std::u16string> choices) { return choices[below(choices.size())]; }
    std::u16string blank() { return pick({u"", u"", u" ", u"\r\n\t", u"/* c */", u"// c\n", u"("}); }
    std::u16string string() {
        return pick({u"\"name\"", u"\"\"", u"'a\"b'", u"\"a\\u00e9\\n\\/\\x\"", u"\"http://x/y\"",
                     u"\"\u00E9\U0001F600\"", u"\"it's {odd} [here]: a,b\"", u"\"\\u12\""});
    }
    std::u16string list(char16_t open, char16_t close, int depth, bool isObject) {
        std::u16string text(1, open);
        for (std::size_t count = below(isObject ? 12 : 4); count > 0; --count) {
            text += blank();
            if (isObject)
                text += pick({string(), u"key", u"\"a\"",
                              u"\"k" + std::u16string(1, static_cast<char16_t>(u'a' + count)) + u"\""}) +
                        u":";
            text += blank() + value(depth - 1) + blank();
            text += isObject && below(2) == 0 ? u" " : u",";
        }
        text.push_back(close);
        return text;
    }

    std::mt19937 random_;
};

/// What follows keeps the text's end away, so that the members are read by whole blocks.
const std::u16string farEnd = u"\n" + std::u16string(600, u' ') + u"[\"the end\"]\n";

TEST(FragmentLineReader, AgreesWithThePlainWayOnGeneratedTexts) {
    Generator generator(2026);
    for (int round = 0; round < 20000; ++round) {
        const std::u16string text = generator.mutated(generator.value(4) + u"\n");
        expectTheSame(text);
        expectTheSame(text + farEnd);
    }
}

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

TEST(FragmentLineReader, PutsBackWhatIsCutOff) {
    Generator generator(11);
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = generator.mutated(generator.value(4) + u"\n") + farEnd;
        FragmentLineReader whole;
        FragmentLineReader cut;
        std::int32_t wholePosition = 1;
        std::int32_t cutPosition = 1;
        for (std::size_t known = 0;;) {
            const FragmentReading reading =
                cut.next(std::u16string_view(text).substr(0, known), cutPosition, known >= text.size());
            if (reading == FragmentReading::needsText) {
                ++known;
                continue;
            }
            ASSERT_EQ(reading, whole.next(text, wholePosition)) << toUtf8(text);
            ASSERT_EQ(cutPosition, wholePosition) << toUtf8(text);
            if (reading == FragmentReading::end)
                break;
            ASSERT_EQ(toUtf8(cut.line()), toUtf8(whole.line())) << toUtf8(text);
        }
    }
}

TEST(FragmentLineReader, AgreesWithThePlainWayOnNoise) {
    Generator generator(7);
    for (int round = 0; round < 50000; ++round)
        expectTheSame(generator.noise(1 + generator.below(40)));
}

TEST(FragmentLineReader, KnowsWhereAFragmentEndsWhoseLineIsTooLong) {
    constexpr std::size_t longestLine = 1000;
    Generator generator(5);
    int tooLong = 0;
    for (int round = 0; round < 2000; ++round) {
        std::u16string text = u"{\"first\":1}[";
        for (std::size_t elements = generator.below(60); elements > 0; --elements)
            text += generator.value(4) + u",";
        text = generator.mutated(text + std::u16string(generator.below(4000), u'\u00E9') +
                                 u"\\n\u00E9\"],\"k\":2}") +
               farEnd;
        FragmentLineReader reader(longestLine);
        std::int32_t position = 1;
        std::int32_t plainPosition = 1;
        while (const std::optional<JsonValue> fragment = JsonParser().parse(text, plainPosition)) {
            const std::u16string line = serialize(*fragment);
            const FragmentReading reading = reader.next(text, position);
            ASSERT_EQ(reading, line.size() > longestLine ? FragmentReading::tooLong : FragmentReading::line)
                << toUtf8(text);
            ASSERT_EQ(position, plainPosition) << toUtf8(text);
            tooLong += reading == FragmentReading::tooLong ? 1 : 0;
        }
    }
    EXPECT_GT(tooLong, 100);
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
