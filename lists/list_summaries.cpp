#include "lists/list_summaries.h"

#include "lists/text_list.h"
#include "platform/text.h"

namespace brindlewick {

namespace {

std::u16string addedText(std::uint64_t count, std::u16string_view one, std::u16string_view many) {
    return (count == 0 ? std::u16string(u"No ").append(many) : countText(count, one, many)) + u" added";
}

std::u16string progressText(std::u16string_view doing, std::u16string_view count, std::u16string_view path) {
    std::u16string text(doing);
    return text.append(u", ").append(count).append(u" so far: ").append(path);
}

struct Added {
    std::uint64_t rows = 0;
    std::uint64_t empty = 0; ///< among them
};

Added addedFrom(const TextList& list, std::size_t before) {
    Added added;
    for (std::size_t row = before; row < list.size(); ++row, ++added.rows)
        added.empty += list[row].empty() ? 1 : 0;
    return added;
}

} // namespace

std::u16string scanProgress(std::u16string_view doing, std::uint64_t files, std::u16string_view folder) {
    return progressText(doing, countText(files, u"file", u"files"), folder);
}

std::u16string readingProgress(std::uint64_t lines, std::u16string_view path) {
    return progressText(u"Reading", countText(lines, u"line", u"lines"), path);
}

std::u16string scanSummary(std::uint64_t added, const LeftOut& leftOut) {
    return joinedClauses({
        addedText(added, u"file", u"files"),
        unlessNone(leftOut.byName, u"folder left out because of its name",
                   u"folders left out because of their names"),
        unlessNone(leftOut.unreadable, u"folder left out because it cannot be read",
                   u"folders left out because they cannot be read"),
        unlessNone(leftOut.links, u"link to a folder not followed", u"links to folders not followed"),
        unlessNone(leftOut.systemFolders, u"system folder left out", u"system folders left out"),
        unlessNone(leftOut.longPaths, u"folder with a long path not searched for folders",
                   u"folders with long paths not searched for folders"),
        unlessNone(leftOut.elsewhere, u"file of another computer left out",
                   u"files of other computers left out"),
    });
}

std::u16string filesAddedText(const TextList& files, std::size_t before) {
    const Added added = addedFrom(files, before);
    return joinedClauses(
        {addedText(added.rows, u"file", u"files"),
         unlessNone(added.empty, u"line is empty and names no file", u"lines are empty and name no file")});
}

std::u16string tagsAddedText(const TextList& tags, std::size_t before) {
    const Added added = addedFrom(tags, before);
    return joinedClauses({addedText(added.rows, u"tag", u"tags"),
                          unlessNone(added.empty, u"tag is empty and matches everything",
                                     u"tags are empty and match everything")});
}

} // namespace brindlewick
