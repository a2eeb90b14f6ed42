#include "platform/system_failure_posix.h"

#include "support/failure_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

namespace brindlewick {
namespace {

TEST(SystemFailure, FollowsTheErrorAndTheParentFolder) {
    const testing::TemporaryFolder folder;
    folder.write("file", "");
    const std::pair<FailureNumber, std::vector<std::pair<int, std::string_view>>> cases[] = {
        {FailureNumber::fileNotFound, {{ENOENT, "missing"}, {ENAMETOOLONG, "any"}}},
        {FailureNumber::pathNotFound, {{ENOENT, "missing/below"}, {ENOTDIR, "file/below"}}},
        {FailureNumber::permissionDenied, {{EACCES, ""}, {EPERM, ""}, {EROFS, ""}, {EISDIR, ""}}},
        {FailureNumber::diskFull, {{ENOSPC, ""}}},
        {FailureNumber::outOfMemory, {{ENOMEM, ""}}},
        {FailureNumber::deviceIoError, {{EIO, ""}}},
    };
    for (const auto& [number, errors] : cases)
        for (const auto& one : errors)
            EXPECT_EQ(testing::failureOf([&] { throwSystemFailure(one.first, folder.path() / one.second); }),
                      number)
                << one.first;
}

} // namespace
} // namespace brindlewick
