#include "platform/system_failure_posix.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace brindlewick {
namespace {

struct Case {
    int error;
    std::string_view path; ///< in a folder that holds the file "file"
    FailureNumber number;
};

class SystemFailure : public ::testing::TestWithParam<Case> {};

TEST_P(SystemFailure, FollowsTheErrorAndTheParentFolder) {
    const testing::TemporaryFolder folder;
    folder.write("file", "");
    try {
        throwSystemFailure(GetParam().error, folder.path() / GetParam().path);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), GetParam().number);
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, SystemFailure,
                         ::testing::Values(Case{ENOENT, "missing", FailureNumber::fileNotFound},
                                           Case{ENOENT, "missing/below", FailureNumber::pathNotFound},
                                           Case{ENOTDIR, "file/below", FailureNumber::pathNotFound},
                                           Case{ENAMETOOLONG, "any", FailureNumber::fileNotFound},
                                           Case{EACCES, "any", FailureNumber::permissionDenied},
                                           Case{EPERM, "any", FailureNumber::permissionDenied},
                                           Case{EROFS, "any", FailureNumber::permissionDenied},
                                           Case{EISDIR, "any", FailureNumber::permissionDenied},
                                           Case{ENOSPC, "any", FailureNumber::diskFull},
                                           Case{ENOMEM, "any", FailureNumber::outOfMemory},
                                           Case{EIO, "any", FailureNumber::deviceIoError},
                                           Case{ENXIO, "any", FailureNumber::deviceIoError}));

} // namespace
} // namespace brindlewick
