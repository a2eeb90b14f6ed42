// Paths are UTF-16 here as well: every code unit, a lone surrogate included, goes over as it is.
#include "platform/native_path.h"

namespace brindlewick {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::filesystem::path nativePath(std::u16string_view path) {
    return std::wstring(path.begin(), path.end());
}

std::u16string pathText(const std::filesystem::path& path) {
    return {path.native().begin(), path.native().end()};
}

} // namespace brindlewick
