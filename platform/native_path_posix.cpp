// Paths are bytes here: UTF-8 by custom, but any byte except NUL and the separator can stand in a name.
#include "platform/native_path.h"

namespace brindlewick {

std::filesystem::path nativePath(std::u16string_view path) {
    return pathBytes(path);
}

std::u16string pathText(const std::filesystem::path& path) {
    return textFromPathBytes(path.native());
}

} // namespace brindlewick
