// Failures and their report, encodings, letter case, paths as text, the text-file writer.
#include "platform/error_report.h"
#include "platform/letter_case.h"
#include "platform/text.h"
#include "platform/text_file_writer.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

#include <functional>
#include <new>
#include <sstream>
#include <stdexcept>

namespace brindlewick::testing {
namespace {

TEST(Guard, ReportsWhateverEndsAStepAndGoesOn) {
    struct : ScriptedUser {
        std::u16string report;
        void showApplicationError(std::u16string_view text) override {
            report = text;
            throw std::bad_alloc(); // a report that fails is left out
        }
    } user;
    const std::pair<std::function<void()>, std::u16string_view> cases[] = {
        {[] { throw std::bad_alloc(); }, u"Out of memory"},
        {[] { throw std::length_error(""); }, u"Out of memory"},
        {[] { throw Failure(FailureNumber::invalidPicture); }, u"Invalid picture"},
        {[] { throw Failure(FailureNumber::deviceIoError); }, u"Device I/O error"},
        {[] { throw 1; }, u"Invalid procedure call or argument"}};
    const std::u16string address =
        u"\r\rPlease email screenshot of this message to support@brindlewick.example";
    const Guard guard(user, u"Form1.PushButton7_Click");
    EXPECT_TRUE(guard([] {}));
    for (const auto& [step, description] : cases) {
        const std::u16string line = decimalText(__LINE__ + 1);
        EXPECT_FALSE(guard(step));
        EXPECT_EQ(user.report, std::u16string(description) +
                                   u"\r\nin Corvane2021/08/31.Form1.PushButton7_Click at line " + line +
                                   address);
    }
}

TEST(FoldCase, GivesTheLastOfALettersForms) {
    const std::u16string_view letters[] = {
        u"Aa",       u"Zz",     u"Ää",   u"Þþ", u"ẞ\u00DF", u"÷",  u"×",   u"Σςσ", u"\u212AKk", u"\u212BÅå",
        u"\u00B5Μμ", u"ſSs",    u"İIıi", u"Ÿÿ", u"Āā",      u"Žž", u"Ǆǅǆ", u"Жж",  u"Ёё",       u"Աա",
        u"ႠႠⴀ",      u"Ꭰꭰ", u"Ⅷⅷ",   u"Ⓐⓐ", u"Ａａ",    u"@",  u"[",   u"中"};
    for (const std::u16string_view forms : letters)
        for (const char16_t form : forms)
            EXPECT_EQ(foldCase(form), forms.back()) << static_cast<unsigned>(form);
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const char16_t folded = foldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(foldCase(folded), folded) << unit;
        ASSERT_TRUE(folded == unit || unit < 0xD800 || unit > 0xDFFF) << unit;
    }
    EXPECT_EQ(foldedCase(u"GRÖSSE \U00010400"), u"grösse \U00010400");
}

TEST(MatchesPattern, TakesStarsAndQuestionMarks) {
    const std::pair<bool, std::string> cases[] = {
        {true, "A.JSON *.json .json *.json README *.* a.b a*.* abc a?c abcabd *abd aab *a?b xaybzc *a*b*c "
               "\u00C4B \u00E4?"},
        {false, "a.jsonl *.json json *.json README *.** README *.?* ab a*.* ac a?c ab *a?b xaybz *a*b*c"}};
    for (const auto& [expected, text] : cases) {
        std::istringstream words(text);
        for (std::string name, pattern; words >> name >> pattern;)
            EXPECT_EQ(matchesPattern(fromUtf8(name), fromUtf8(pattern)), expected) << name << ' ' << pattern;
    }
    EXPECT_TRUE(matchesPattern(u"", u"*"));
    EXPECT_FALSE(matchesPattern(u"", u"?"));
    std::u16string pattern;
    for (int star = 0; star < 1000; ++star)
        pattern += u"*a";
    EXPECT_FALSE(matchesPattern(std::u16string(4000, u'a'), pattern + u"b")); // not in exponential time
}

TEST(Encodings, KeepEveryByteAndReplaceWhatHasNone) {
    std::string all;
    for (int byte = 0; byte <= 256 + 0x80; ++byte) // no whole number of blocks
        all.push_back(static_cast<char>(byte));
    std::u16string text = u"kept";
    appendFromWindows1252(all, text);
    std::string bytes = "kept";
    EXPECT_EQ(appendAsWindows1252(std::u16string_view(text).substr(4), bytes), 0U);
    EXPECT_EQ(bytes, "kept" + all);
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto one = static_cast<char16_t>(unit);
        const std::size_t byte = text.find(one, 4);
        ASSERT_EQ(windows1252Byte(one), byte == text.npos ? '?' : static_cast<char>(byte - 4)) << unit;
    }
    EXPECT_EQ(toUtf8(std::u16string{0xD800, u'a', 0xDC00, 0xDC00, 0xDBFF, 0xD83D, 0xDE00, 0xD800}),
              "\xEF\xBF\xBD\x61\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST(TextFileWriter, WritesMoreThanItsBufferHoldsUntilItIsClosed) {
    const TemporaryFolder folder;
    TextFileWriter file(folder.text("out.txt"), {});
    file.write(u"Filename\u20AC\u00E4\u4E2D\U0001F600");
    file.writeLineEnd();
    file.write(std::u16string(1'000'001, u'\u00E9'));
    file.writeBlanks(1'000'001);
    file.close();
    file.write(u"lost");
    file.close();
    EXPECT_TRUE(folder.read("out.txt") ==
                "Filename\x80\xE4???\r\n" + std::string(1'000'001, '\xE9') + std::string(1'000'001, ' '));
}

} // namespace
} // namespace brindlewick::testing
