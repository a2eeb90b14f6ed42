// The one place where an errno becomes a failure.
#include "platform/system_failure_posix.h"

#include <cerrno>
#include <system_error>

namespace brindlewick {

void throwSystemFailure(int error, const std::filesystem::path& path) {
    if (error == ENOENT || error == ENOTDIR) {
        std::error_code ignored;
        const std::filesystem::path parent = path.parent_path();
        if (!parent.empty() && !std::filesystem::is_directory(parent, ignored))
            throw Failure(FailureNumber::pathNotFound);
        throw Failure(FailureNumber::fileNotFound);
    }
    if (error == ENAMETOOLONG)
        throw Failure(FailureNumber::fileNotFound);
    throwSystemFailure(error);
}

void throwSystemFailure(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        throw Failure(FailureNumber::permissionDenied);
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        throw Failure(FailureNumber::diskFull);
    case ENOMEM:
        throw Failure(FailureNumber::outOfMemory);
    default:
        throw Failure(FailureNumber::deviceIoError);
    }
}

} // namespace brindlewick
