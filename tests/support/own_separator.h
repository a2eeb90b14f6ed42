// Paths written once for every platform.
#pragma once

#include "platform/native_path.h"

#include <algorithm>
#include <string>

namespace brindlewick::testing {

/// The text with the platform's own separator for every "/".
inline std::u16string own(std::u16string text) {
    std::replace(text.begin(), text.end(), u'/', pathSeparator);
    return text;
}
/// A name as bytes, in UTF-8 where the system's own names are no bytes.
inline std::string nameBytes(std::u16string_view name) {
    const std::u8string bytes = nativePath(name).u8string();
    return {bytes.begin(), bytes.end()};
}
/// What a path looks like in the tables of the tests: as bytes, with "/".
inline std::string shownPath(std::u16string path) {
    std::replace(path.begin(), path.end(), pathSeparator, u'/');
    return nameBytes(path);
}

} // namespace brindlewick::testing
