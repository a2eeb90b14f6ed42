// The one place where an error code of the Windows API becomes a failure.
#include "platform/system_failure_windows.h"

#include <windows.h>

namespace brindlewick {

namespace {

constexpr unsigned long diskQuotaExceeded = 1295; // ERROR_DISK_QUOTA_EXCEEDED, which MinGW does not name

} // namespace

FailureNumber failureOfSystemError(unsigned long error) noexcept {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return FailureNumber::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return FailureNumber::pathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return FailureNumber::permissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
        return FailureNumber::diskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return FailureNumber::outOfMemory;
    default:
        return FailureNumber::deviceIoError;
    }
}

} // namespace brindlewick
