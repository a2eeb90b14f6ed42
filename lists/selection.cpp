// What an open dialog returned, taken apart into paths.
#include "lists/selection.h"

#include "lists/path_cleanup.h"
#include "platform/native_path.h"

#include <algorithm>

namespace brindlewick {

std::vector<std::u16string> pathsOfSelection(std::u16string_view selection) {
    std::vector<std::u16string> paths;
    if (selection.empty())
        return paths;
    std::size_t end = selection.find(u'\0');
    if (end == selection.npos) {
        paths.emplace_back(selection);
        return paths;
    }
    const std::u16string_view folder = selection.substr(0, end);
    while (end < selection.size()) {
        const std::size_t start = end + 1;
        end = std::min(selection.find(u'\0', start), selection.size());
        const std::u16string path = joinedPath(folder, selection.substr(start, end - start));
        paths.push_back(CollapseDoubledBackslashes(path));
    }
    return paths;
}

bool selectionFitsBuffer(std::u16string_view selection) noexcept {
    return selection.size() + 1 <= selectionBufferSize;
}

} // namespace brindlewick
