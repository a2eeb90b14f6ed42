#include "lists/listed_paths.h"

#include "platform/native_path.h"

#include <algorithm>
#include <cstddef>

namespace brindlewick {

namespace {

constexpr std::size_t selectionBufferSize = 260; // code units

} // namespace

std::u16string CollapseDoubledBackslashes(std::u16string_view path) {
    std::u16string cleaned;
    cleaned.reserve(path.size() + 1);
    std::size_t at = 0;
    if (path.starts_with(u'\\')) {
        // Deliberate: a drive-relative path (\dir\a.json) becomes a network path.
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
        const std::u16string_view name = selection.substr(start, end - start);
        paths.push_back(CollapseDoubledBackslashes(joinedPath(folder, name)));
    }
    return paths;
}

bool selectionFitsBuffer(std::u16string_view selection) noexcept {
    return selection.size() + 1 <= selectionBufferSize;
}

} // namespace brindlewick
