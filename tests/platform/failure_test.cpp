#include "platform/failure.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

struct Case {
    int number;
    std::u16string_view description;
};

class Description : public ::testing::TestWithParam<Case> {};

TEST_P(Description, FollowsTheNumber) {
    EXPECT_EQ(Failure(static_cast<FailureNumber>(GetParam().number)).description(), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    Failures, Description,
    ::testing::Values(Case{5, u"Invalid procedure call or argument"}, Case{6, u"Overflow"},
                      Case{7, u"Out of memory"}, Case{9, u"Subscript out of range"},
                      Case{13, u"Type mismatch"}, Case{28, u"Out of stack space"},
                      Case{53, u"File not found"}, Case{57, u"Device I/O error"}, Case{61, u"Disk full"},
                      Case{70, u"Permission denied"}, Case{76, u"Path not found"},
                      Case{457, u"This key is already associated with an element of this collection"},
                      Case{481, u"Invalid picture"}));

} // namespace
} // namespace brindlewick
