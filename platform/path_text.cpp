// What can be told from a path without asking the operating system.
#include "platform/native_path.h"

namespace brindlewick {

std::u16string_view fileNamePart(std::u16string_view path) noexcept {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

} // namespace brindlewick
