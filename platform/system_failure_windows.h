// What an error code of the Windows API means to the user.
#pragma once

#include "platform/failure.h"

namespace brindlewick {

/// The failure for what GetLastError tells. Windows says by itself whether the file or its folder is missing.
FailureNumber failureOfSystemError(unsigned long error) noexcept;

} // namespace brindlewick
