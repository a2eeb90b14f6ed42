#include "platform/text_file_writer.h"

#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using testing::failureOf;
using testing::TemporaryFolder;

TEST(TextFileWriter, ReplacesTheFileAndDoesNothingAfterClose) {
    const TemporaryFolder folder;
    TextFileWriter file(folder.write("out.txt", std::string(100, 'x')));
    file.write(u"Filename");
    file.writeBlanks(3);
    file.write(u"\t\u20AC\u00E4\u4E2D\U0001F600");
    file.writeLineEnd();
    file.close();
    file.write(std::u16string(1'000'000, u'x'));
    file.writeBlanks(1'000'000);
    file.writeLineEnd();
    file.close();
    EXPECT_EQ(folder.read("out.txt"), "Filename   \t\x80\xE4???\r\n");
}

TEST(TextFileWriter, WritesMoreThanItsBufferInOrder) {
    const TemporaryFolder folder;
    std::string expected;
    {
        TextFileWriter file(folder.text("out.txt"));
        for (int line = 0; line < 100'000; ++line) {
            const std::string digits = std::to_string(line);
            file.write(std::u16string(digits.begin(), digits.end()));
            file.writeLineEnd();
            expected += digits + "\r\n";
        }
        file.write(std::u16string(3'000'001, u'\u00E9'));
        file.writeBlanks(3'000'001);
        expected += std::string(3'000'001, '\xE9') + std::string(3'000'001, ' ');
    } // closed by the destructor
    EXPECT_TRUE(folder.read("out.txt") == expected);
}

TEST(FullDisk, IsReportedOnceByTheFirstOperationThatFails) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no device that is always full";
    for (const std::size_t length : {1u, 5'000'000u}) {
        const bool isKeptInTheBuffer = length == 1;
        TextFileWriter file(u"/dev/full");
        const auto write = [&] { file.write(std::u16string(length, u'x')); };
        const auto close = [&] { file.close(); };
        EXPECT_EQ(failureOf(write),
                  isKeptInTheBuffer ? std::nullopt : std::optional(FailureNumber::diskFull));
        EXPECT_EQ(failureOf(write), std::nullopt);
        EXPECT_EQ(failureOf(close),
                  isKeptInTheBuffer ? std::optional(FailureNumber::diskFull) : std::nullopt);
        EXPECT_EQ(failureOf(close), std::nullopt);
        EXPECT_NO_THROW(TextFileWriter(u"/dev/full").write(u"x")); // closed by the destructor
    }
}

} // namespace
} // namespace brindlewick
