#include "platform/error_report.h"

#include "support/fake_user.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

namespace brindlewick {
namespace {

using testing::FakeUser;

constexpr std::u16string_view location = u"in Corvane2021/08/31.Form1.PushButton7_Click ";

TEST(ApplicationErrorText, HoldsItsPiecesWithNothingBetween) {
    EXPECT_EQ(applicationErrorText(location, u"File not found", 4096),
              u"File not found\r\nin Corvane2021/08/31.Form1.PushButton7_Click at line 4096\r\r"
              u"Please email screenshot of this message to support@brindlewick.example");
    EXPECT_EQ(applicationErrorText(u"", u"", 0),
              u"\r\nat line 0\r\rPlease email screenshot of this message to support@brindlewick.example");
}

struct Case {
    std::function<void()> step;
    std::u16string description;
};

class ReportedException : public ::testing::TestWithParam<Case> {};

TEST_P(ReportedException, NamesTheLineOfItsStepAndEndsIt) {
    FakeUser user;
    const Guard guard(user, location);
    bool hasGoneOn = true;
    const bool isDone = guard([&] {
        GetParam().step();
        hasGoneOn = false;
    });
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(hasGoneOn);
    const std::uint_least32_t line = __LINE__ + 1;
    EXPECT_FALSE(guard([&] { GetParam().step(); }));
    ASSERT_EQ(user.errors.size(), 2U);
    EXPECT_EQ(user.errors[1], applicationErrorText(location, GetParam().description, line));
}

INSTANTIATE_TEST_SUITE_P(Exceptions, ReportedException,
                         ::testing::Values(Case{[] { throw Failure(FailureNumber::diskFull); }, u"Disk full"},
                                           Case{[] { throw std::bad_alloc(); }, u"Out of memory"},
                                           Case{[] { throw std::bad_array_new_length(); }, u"Out of memory"},
                                           Case{[] { throw std::length_error(""); }, u"Out of memory"},
                                           Case{[] { throw std::out_of_range(""); },
                                                u"Invalid procedure call or argument"},
                                           Case{[] { throw 1; }, u"Invalid procedure call or argument"}));

TEST(Guard, LetsASoundStepPassWithoutAReport) {
    FakeUser user;
    int runs = 0;
    EXPECT_TRUE(Guard(user, location)([&] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(user.errors.empty());
}

TEST(Guard, KeepsInsideWhatTheReportItselfThrows) {
    struct : FakeUser {
        void showApplicationError(std::u16string_view) override { throw std::bad_alloc(); }
    } user;
    EXPECT_NO_THROW(EXPECT_FALSE(Guard(user, location)([] { throw Failure(FailureNumber::overflow); })));
}

} // namespace
} // namespace brindlewick
