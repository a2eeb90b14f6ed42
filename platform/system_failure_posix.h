// What an errno means to the user.
#pragma once

#include "platform/failure.h"

#include <filesystem>

namespace brindlewick {

/// Throws the failure for an errno that an operation on `path` ended with.
[[noreturn]] void throwSystemFailure(int error, const std::filesystem::path& path);
/// The same without a path, for reading and writing what is open already.
[[noreturn]] void throwSystemFailure(int error);

} // namespace brindlewick
