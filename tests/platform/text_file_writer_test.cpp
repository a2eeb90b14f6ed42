#include "platform/text_file_writer.h"

#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::failureOf;
using testing::TemporaryFolder;

TEST(TextFileWriter, ReplacesTheFileAndEndsLinesWithCrLf) {
    const TemporaryFolder folder;
    const std::u16string path = folder.write("out.txt", std::string(100, 'x'));
    TextFileWriter file(path);
    file.write(u"Filename");
    file.writeBlanks(3);
    file.write(u"\t\u20AC\u00E4\u4E2D\U0001F600");
    file.writeLineEnd();
    file.writeLineEnd();
    file.close();
    EXPECT_EQ(folder.read("out.txt"), "Filename   \t\x80\xE4???\r\n\r\n");
}

TEST(TextFileWriter, WritesMoreThanItsBufferHoldsInOrder) {
    const TemporaryFolder folder;
    std::string expected;
    {
        TextFileWriter file(folder.text("out.txt"));
        for (int line = 0; line < 200000; ++line) {
            const std::string digits = std::to_string(line);
            file.write(std::u16string(digits.begin(), digits.end()));
            file.writeLineEnd();
            expected += digits + "\r\n";
        }
        file.write(std::u16string(3'000'001, u'\u00E9'));
        file.writeBlanks(3'000'001);
        expected += std::string(3'000'001, '\xE9') + std::string(3'000'001, ' ');
    } // closed by its end alone
    EXPECT_TRUE(folder.read("out.txt") == expected);
}

struct Refused {
    std::u16string name;
    FailureNumber number;
};

class FileThatCannotBeCreated : public ::testing::TestWithParam<Refused> {};

TEST_P(FileThatCannotBeCreated, FailsAtOnce) {
    const TemporaryFolder folder;
    folder.write("file", "");
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_EQ(failureOf([&] { TextFileWriter file(folder.text() + GetParam().name); }), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Names, FileThatCannotBeCreated,
                         ::testing::Values(Refused{u"/missing/out.txt", FailureNumber::pathNotFound},
                                           Refused{u"/file/out.txt", FailureNumber::pathNotFound},
                                           Refused{u"/folder", FailureNumber::permissionDenied},
                                           Refused{std::u16string(u"/a\0b", 4), FailureNumber::fileNotFound},
                                           Refused{u"/" + std::u16string(5000, u'a'),
                                                   FailureNumber::fileNotFound}));

TEST(FullDisk, IsReportedOnceByTheWriteThatMeetsIt) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    TextFileWriter file(u"/dev/full");
    EXPECT_EQ(failureOf([&] { file.write(std::u16string(5'000'000, u'x')); }), FailureNumber::diskFull);
    EXPECT_EQ(failureOf([&] {
                  file.write(std::u16string(5'000'000, u'x'));
                  file.writeBlanks(5'000'000);
                  file.writeLineEnd();
                  file.close();
                  file.close();
              }),
              std::nullopt);
}

TEST(FullDisk, IsReportedByClosingWhenTheBufferKeptItAway) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    TextFileWriter file(u"/dev/full");
    file.write(u"short");
    EXPECT_EQ(failureOf([&] { file.close(); }), FailureNumber::diskFull);
    EXPECT_EQ(failureOf([&] { file.close(); }), std::nullopt);
    EXPECT_NO_THROW({
        TextFileWriter unclosed(u"/dev/full");
        unclosed.write(u"short");
    });
}

TEST(TextFileWriter, DoesNothingOnceClosed) {
    const TemporaryFolder folder;
    TextFileWriter file(folder.text("out.txt"));
    file.write(u"kept");
    file.close();
    file.write(std::u16string(1'000'000, u'x'));
    file.writeBlanks(1'000'000);
    file.writeLineEnd();
    file.close();
    EXPECT_EQ(folder.read("out.txt"), "kept");
}

} // namespace
} // namespace brindlewick
