// Sorts a listing by names folded beforehand, since a sort looks at each of them many times.
#include "platform/folder_order.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <utility>

namespace brindlewick {

void sortByName(std::vector<FolderEntry>& entries) {
    struct Named {
        std::u16string folded;
        FolderEntry entry;
    };
    std::vector<Named> named;
    named.reserve(entries.size());
    for (FolderEntry& entry : entries) {
        std::u16string folded = foldedCase(entry.name);
        named.push_back({std::move(folded), std::move(entry)});
    }
    std::sort(named.begin(), named.end(), [](const Named& left, const Named& right) {
        const int order = left.folded.compare(right.folded);
        return order != 0 ? order < 0 : left.entry.name < right.entry.name;
    });
    for (std::size_t at = 0; at < named.size(); ++at)
        entries[at] = std::move(named[at].entry);
}

} // namespace brindlewick
