#include "platform/system_failure_posix.h"

#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace brindlewick {
namespace {

TEST(SystemFailure, FollowsTheErrorAndTheParentFolder) {
    const testing::TemporaryFolder folder;
    folder.write("file", "");
    const struct {
        int error;
        std::string_view path;
        FailureNumber number;
    } cases[] = {
        {ENOENT, "missing", FailureNumber::fileNotFound},
        {ENOENT, "missing/below", FailureNumber::pathNotFound},
        {ENOTDIR, "file/below", FailureNumber::pathNotFound},
        {ENAMETOOLONG, "any", FailureNumber::fileNotFound},
        {EACCES, "any", FailureNumber::permissionDenied},
        {EPERM, "any", FailureNumber::permissionDenied},
        {EROFS, "any", FailureNumber::permissionDenied},
        {EISDIR, "any", FailureNumber::permissionDenied},
        {ENOSPC, "any", FailureNumber::diskFull},
        {ENOMEM, "any", FailureNumber::outOfMemory},
        {EIO, "any", FailureNumber::deviceIoError},
    };
    for (const auto& [error, path, number] : cases)
        EXPECT_EQ(testing::failureOf([&] { throwSystemFailure(error, folder.path() / path); }), number)
            << error;
}

} // namespace
} // namespace brindlewick
