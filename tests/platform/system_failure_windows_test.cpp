#include "platform/system_failure_windows.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace brindlewick {
namespace {

struct Case {
    unsigned long error;
    FailureNumber number;
};

class SystemFailure : public ::testing::TestWithParam<Case> {};

TEST_P(SystemFailure, FollowsTheErrorCode) {
    EXPECT_EQ(failureOfSystemError(GetParam().error), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Errors, SystemFailure,
                         ::testing::Values(Case{ERROR_FILE_NOT_FOUND, FailureNumber::fileNotFound},
                                           Case{ERROR_INVALID_NAME, FailureNumber::fileNotFound},
                                           Case{ERROR_PATH_NOT_FOUND, FailureNumber::pathNotFound},
                                           Case{ERROR_DIRECTORY, FailureNumber::pathNotFound},
                                           Case{ERROR_ACCESS_DENIED, FailureNumber::permissionDenied},
                                           Case{ERROR_SHARING_VIOLATION, FailureNumber::permissionDenied},
                                           Case{ERROR_WRITE_PROTECT, FailureNumber::permissionDenied},
                                           Case{ERROR_DISK_FULL, FailureNumber::diskFull},
                                           Case{ERROR_NOT_ENOUGH_MEMORY, FailureNumber::outOfMemory},
                                           Case{ERROR_CRC, FailureNumber::deviceIoError}));

} // namespace
} // namespace brindlewick
