#include "core/text_file_reader.h"

#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::string_literals;
using testing::TemporaryFolder;
using Pieces = std::vector<std::u16string>;

struct Case {
    std::string bytes;
    Pieces pieces;
};

class PiecesOfAFile : public ::testing::TestWithParam<Case> {};

TEST_P(PiecesOfAFile, FollowTheMark) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadFileToPieces(folder.write("file", GetParam().bytes)), GetParam().pieces);
}

INSTANTIATE_TEST_SUITE_P(
    Marks, PiecesOfAFile,
    ::testing::Values(Case{"", {u""}}, Case{"\xEF\xBB\xBF", {u""}}, Case{"\xFF\xFE", {u""}},
                      Case{"\xEF\xBB\xBF\xC3\xA9\xF0\x9F\x98\x80", {u"\u00E9\U0001F600"}},
                      Case{"\xEF\xBB\xBF"
                           "a\xE2\x82",
                           {u"a\uFFFD"}},
                      Case{"\xC3\xA9", {u"\u00C3\u00A9"}}, Case{"\x80\x81", {{0x20AC, 0x0081}}},
                      Case{"\xFF\xFE"
                           "a\0b\0"s,
                           {u"ab"}},
                      Case{"\xFF\xFE"
                           "a\0b"s,
                           {u"a"}},
                      Case{"\xFE\xFF\0a"s, {{0xFFFE, 0x6100}}}, Case{"\xFF\xFE\0\0a\0\0\0"s, {{0, u'a', 0}}},
                      Case{"\0\0\xFE\xFF\0\0\0a"s, {{0, 0xFFFE, 0, 0x6100}}}, Case{"\xFF", {u"\u00FF"}},
                      Case{"\xEF\xBB", {u"\u00EF\u00BB"}}, Case{"\0\0\xFE"s, {{0, 0, 0x00FE}}}));

TEST(TextFileReader, CutsAt65536UnitsWithoutAMark) {
    const TemporaryFolder folder;
    const Pieces pieces = ReadFileToPieces(folder.write("file", std::string(65536, 'a') + "b"));
    EXPECT_EQ(pieces, (Pieces{std::u16string(65536, u'a'), u"b"}));
    EXPECT_EQ(ReadFileToPieces(folder.write("full", std::string(131072, 'a'))).size(), 2U);
}

TEST(TextFileReader, CutsUtf16AtTheSameCountBehindTheMark) {
    const TemporaryFolder folder;
    std::string bytes = "\xFF\xFE";
    for (int unit = 0; unit < 65537; ++unit)
        bytes += unit == 65536 ? "b\0"s : "a\0"s;
    EXPECT_EQ(ReadFileToPieces(folder.write("file", bytes)), (Pieces{std::u16string(65536, u'a'), u"b"}));
}

TEST(TextFileReader, FailsOnWhatIsNoReadableFile) {
    const TemporaryFolder folder;
    const auto failureOfReading = [](std::u16string_view path) {
        return testing::failureOf([&] { ReadFileToPieces(path); });
    };
    EXPECT_EQ(failureOfReading(folder.text("missing")), FailureNumber::fileNotFound);
    EXPECT_EQ(failureOfReading(folder.text("no folder/file")), FailureNumber::pathNotFound);
    EXPECT_EQ(failureOfReading(folder.text()), FailureNumber::permissionDenied);
}

} // namespace
} // namespace brindlewick
