// Opening a file for the standard library, which cannot be asked to keep it from child processes.
#pragma once

#include <cstdio>
#include <string_view>

namespace brindlewick {

/// Creates the file for writing bytes, replacing one of that name. Whoever calls closes it. Fails as files.h
/// says.
std::FILE* createNativeFile(std::u16string_view path);

} // namespace brindlewick
