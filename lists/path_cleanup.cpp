#include "lists/path_cleanup.h"

#include <algorithm>

namespace brindlewick {

std::u16string CollapseDoubledBackslashes(std::u16string_view path) {
    std::u16string cleaned;
    cleaned.reserve(path.size() + 1);
    std::size_t at = 0;
    if (path.starts_with(u'\\')) {
        // A drive-relative path (\dir\a.json) comes out as a share's: odd, and kept.
        cleaned = u"\\\\";
        at = std::min(path.find_first_not_of(u'\\'), path.size());
    }
    while (at < path.size()) {
        const std::size_t pair = std::min(path.find(u"\\\\", at), path.size());
        cleaned.append(path, at, pair - at);
        if (pair < path.size())
            cleaned += u'\\';
        at = pair + 2;
    }
    return cleaned;
}

} // namespace brindlewick
