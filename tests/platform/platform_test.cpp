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
    const std::pair<int, std::u16string_view> descriptions[] = {
        {5, u"Invalid procedure call or argument"},
        {6, u"Overflow"},
        {7, u"Out of memory"},
        {9, u"Subscript out of range"},
        {13, u"Type mismatch"},
        {28, u"Out of stack space"},
        {53, u"File not found"},
        {57, u"Device I/O error"},
        {61, u"Disk full"},
        {70, u"Permission denied"},
        {76, u"Path not found"},
        {481, u"Invalid picture"},
        {457, u"This key is already associated with an element of this collection"}};
    std::vector<std::pair<std::function<void()>, std::u16string_view>> cases = {
        {[] { throw std::bad_alloc(); }, u"Out of memory"},
        {[] { throw std::length_error(""); }, u"Out of memory"},
        {[] { throw 1; }, u"Invalid procedure call or argument"}};
    for (const auto& [number, description] : descriptions)
        cases.push_back(
            {[failure = Failure(static_cast<FailureNumber>(number))] { throw failure; }, description});
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
    Guard(user, u"A.B", u"Another").report(FailureNumber::diskFull, 7);
    EXPECT_EQ(user.report, u"Disk full\r\nin Another.A.B at line 7" + address);
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
    const auto allGive = [](bool expected, const std::string& namesAndPatterns) {
        std::istringstream words(namesAndPatterns);
        for (std::string name, pattern; words >> name >> pattern;)
            EXPECT_EQ(matchesPattern(fromUtf8(name), fromUtf8(pattern)), expected) << name << ' ' << pattern;
    };
    allGive(
        true,
        "A.JSON *.json .json *.json README *.* a.b a*.* abc a?c abcabd *abd aab *a?b xaybzc *a*b*c ab ab** "
        "\u00C4B \u00E4? a[b a[b");
    allGive(false, "a.jsonl *.json json *.json README *.** README *.?* ab a*.* ac a?c ab *a?b xaybz *a*b*c "
                   "a.json *.js*n.*");
    EXPECT_TRUE(matchesPattern(u"", u"*"));
    EXPECT_FALSE(matchesPattern(u"", u"?"));
    std::u16string pattern;
    for (int star = 0; star < 1000; ++star)
        pattern += u"*a";
    EXPECT_FALSE(matchesPattern(std::u16string(4000, u'a'), pattern + u"b")); // not in exponential time
}

TEST(PathBytes, BecomeTextWithAnEscapeForEachByteThatIsNone) {
    const std::pair<std::string, std::u16string> cases[] = {
        {"/a b/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", u"/a b/\u00E4\u20AC\U0001F600"},
        {"a\x80z", {u'a', 0xDC80, u'z'}},
        {"\xE2\x82", {0xDCE2, 0xDC82}},
        {"\xC0\xAF", {0xDCC0, 0xDCAF}},
        {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
        {"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
        {"\xF0\x90\x82\x80\x80", {0xD800, 0xDC80, 0xDC80}}, // a pair, then an escape
        {"\xEF\xBF\xBD\xFE", {0xFFFD, 0xDCFE}},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(textFromPathBytes(bytes), text);
        EXPECT_EQ(pathBytes(text), bytes);
    }
    EXPECT_EQ(pathBytes(std::u16string{0xD800, u'/', 0xDC7F, u'/', 0xDD00, u'/', 0xD800, u'a', 0xDC80}),
              "\xEF\xBF\xBD/\xEF\xBF\xBD/\xEF\xBF\xBD/\xEF\xBF\xBD\x61\x80");
    for (const std::u16string_view path : {u"b", u"/x\\a/b", u"/x/a\\b"})
        EXPECT_EQ(fileNamePart(path), u"b");
}

TEST(Encodings, KeepEveryByteAndReplaceWhatHasNone) {
    std::string all;
    for (int byte = 0; byte <= 256 + 0x80; ++byte) // no whole number of blocks
        all.push_back(static_cast<char>(byte));
    std::u16string text = u"kept";
    appendFromWindows1252(all, text);
    std::string bytes = "kept";
    appendAsWindows1252(std::u16string_view(text).substr(4), bytes);
    EXPECT_EQ(bytes, "kept" + all);
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto one = static_cast<char16_t>(unit);
        const std::size_t byte = text.find(one, 4);
        ASSERT_EQ(windows1252Byte(one), byte == text.npos ? '?' : static_cast<char>(byte - 4)) << unit;
    }
    EXPECT_EQ(toUtf8(std::u16string{0xD800, u'a', 0xDC00, 0xDC00, 0xDBFF, 0xD83D, 0xDE00, 0xD800}),
              "\xEF\xBF\xBD\x61\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST(Text, IsTrimmedAndReadAsHexadecimal) {
    EXPECT_EQ(trimmedBlanks(u"  \t a\u00A0 "), u"\t a\u00A0");
    const auto digits = hexadecimalDigits(0x1AF);
    EXPECT_EQ(std::u16string_view(digits.data(), digits.size()), u"01AF");
    EXPECT_EQ(unitFromHexadecimal(u"01aF"), u'\u01AF');
    for (const std::u16string_view other : {u"", u"123", u"12345", u"12g4", u" 123", u"12@4", u"/:`G"})
        EXPECT_EQ(unitFromHexadecimal(other), std::nullopt) << toUtf8(other);
}

TEST(TextFileWriter, WritesMoreThanItsBufferHoldsUntilItIsClosed) {
    const TemporaryFolder folder;
    TextFileWriter file(folder.text("out.txt"));
    file.write(u"Filename\u20AC\u00E4\u4E2D\U0001F600");
    file.writeLineEnd();
    file.write(std::u16string(1'000'001, u'\u00E9'));
    file.writeBlanks(1'000'001);
    file.close();
    file.write(u"lost");
    file.close();
    EXPECT_TRUE(folder.read("out.txt") ==
                "Filename\x80\xE4???\r\n" + std::string(1'000'001, '\xE9') + std::string(1'000'001, ' '));
    TextFileWriter(folder.text("out.txt")).write(u"closed by its end");
    EXPECT_EQ(folder.read("out.txt"), "closed by its end");
    if (std::filesystem::exists("/dev/full"))
        TextFileWriter(u"/dev/full").write(u"this failure is lost");
}

} // namespace
} // namespace brindlewick::testing
