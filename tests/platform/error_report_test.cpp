#include "platform/error_report.h"

#include "platform/text.h"
#include "support/fake_user.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

namespace brindlewick {
namespace {

using testing::FakeUser;

TEST(Guard, ReportsEveryExceptionWithItsText) {
    const auto failing = [](int number) {
        return [number] { throw Failure(static_cast<FailureNumber>(number)); };
    };
    const std::pair<std::function<void()>, std::u16string> cases[] = {
        {failing(5), u"Invalid procedure call or argument"},
        {failing(6), u"Overflow"},
        {failing(7), u"Out of memory"},
        {failing(9), u"Subscript out of range"},
        {failing(13), u"Type mismatch"},
        {failing(28), u"Out of stack space"},
        {failing(53), u"File not found"},
        {failing(57), u"Device I/O error"},
        {failing(61), u"Disk full"},
        {failing(70), u"Permission denied"},
        {failing(76), u"Path not found"},
        {failing(457), u"This key is already associated with an element of this collection"},
        {failing(481), u"Invalid picture"},
        {[] { throw std::bad_alloc(); }, u"Out of memory"},
        {[] { throw std::bad_array_new_length(); }, u"Out of memory"},
        {[] { throw std::length_error(""); }, u"Out of memory"},
        {[] { throw std::out_of_range(""); }, u"Invalid procedure call or argument"},
        {[] { throw 1; }, u"Invalid procedure call or argument"},
    };
    for (const auto& [step, description] : cases) {
        FakeUser user;
        const Guard guard(user, u"Form1.PushButton7_Click");
        EXPECT_TRUE(guard([] {}));
        const std::u16string line = decimalText(__LINE__ + 1);
        EXPECT_FALSE(guard(step));
        const std::u16string report =
            description + u"\r\nin Corvane2021/08/31.Form1.PushButton7_Click at line " + line +
            u"\r\rPlease email screenshot of this message to support@brindlewick.example";
        EXPECT_EQ(user.errors, std::vector{report});
    }
}

TEST(Guard, CatchesWhatTheReportThrows) {
    struct : FakeUser {
        void showApplicationError(std::u16string_view) override { throw std::bad_alloc(); }
    } user;
    EXPECT_NO_THROW(EXPECT_FALSE(Guard(user, u"")([] { throw Failure(FailureNumber::overflow); })));
}

TEST(Guard, ReportsAFailureThatWasNotThrown) {
    FakeUser user;
    Guard(user, u"A.B", u"Another").report(FailureNumber::diskFull, 7);
    EXPECT_EQ(user.errors,
              std::vector<std::u16string>{u"Disk full\r\nin Another.A.B at line 7\r\rPlease email screenshot "
                                          u"of this message to support@brindlewick.example"});
    const std::uint_least32_t line = __LINE__ + 1;
    Guard(user, u"A.B").report(FailureNumber::diskFull);
    EXPECT_NE(user.errors.back().find(u"at line " + decimalText(line) + u"\r\r"), std::u16string::npos);
}

} // namespace
} // namespace brindlewick
