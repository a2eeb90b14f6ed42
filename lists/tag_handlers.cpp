#include "lists/tag_handlers.h"

#include "lists/list_file.h"
#include "lists/list_summaries.h"
#include "lists/listed_paths.h"
#include "platform/error_report.h"
#include "platform/failure.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace brindlewick {

namespace {

constexpr std::u16string_view tagSeparator = u"||MySeparator12||";
/// Rows are counted in a signed 16-bit number: up to 32,767 tags are saved, pieces 0 to 32,767 restored.
constexpr std::size_t maxRowCounter = 32767;

} // namespace

// "Add Tag"
void TagHandlers::PushButton3_Click(std::u16string_view typed) {
    const Guard guard(user_, u"Form1.PushButton3_Click");
    std::u16string tag;
    guard([&] { tag = user_.askText(u"Enter tag to add: ", typed, ProposedAnswer::isContinued); });
    if (tag.empty())
        return;
    const std::size_t before = tags_.size();
    guard([&] { tags_.append(std::move(tag)); });
    guard([&] { user_.endProgress(tagsAddedText(tags_, before)); });
}

// "Load Tags From Text File"
void TagHandlers::PushButton4_Click() {
    const Guard guard(user_, u"Form1.PushButton4_Click");
    std::vector<std::u16string> paths;
    guard([&] {
        paths = pathsOfSelection(
            user_.chooseFilesToOpen({u"Load List(s) - Hold Ctrl to select multiple list files",
                                     u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"}));
    });
    ReadListFiles(user_, guard, paths, tags_, tagsAddedText);
}

// "Delete Selected Tag"
void TagHandlers::PushButton8_Click(std::optional<std::size_t> selectedRow) {
    if (tags_.empty() || !selectedRow)
        return;
    const Guard guard(user_, u"Form1.PushButton8_Click");
    guard([&] { tags_.removeAt(*selectedRow); });
}

// "Clear List"
void TagHandlers::PushButton10_Click() {
    const Guard guard(user_, u"Form1.PushButton10_Click");
    guard([&] { tags_.clear(); });
}

void TagHandlers::ListView3_Paste(std::u16string_view text) {
    const Guard guard(user_, u"Form1.ListView3_Paste");
    guard([&] {
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find_first_of(u"\r\n", start), text.size());
            if (end > start)
                tags_.append(std::u16string(text.substr(start, end - start)));
            start = end + 1;
        }
    });
}

void TagHandlers::ListView3_KeyDown(int keyCode, std::optional<std::size_t> selectedRow) {
    if (keyCode != deleteKeyCode || user_.isBusy() || tags_.empty() || !selectedRow)
        return;
    const Guard guard(user_, u"Form1.ListView3_KeyDown");
    guard([&] { tags_.removeAt(*selectedRow); });
}

std::u16string tagsToSetting(const TextList& tags) {
    if (tags.size() > maxRowCounter)
        throw Failure(FailureNumber::overflow);
    std::u16string setting;
    for (const std::u16string& tag : tags) {
        if (tag.size() + tagSeparator.size() > maxTextLength - setting.size())
            throw Failure(FailureNumber::outOfMemory);
        setting += tag;
        setting += tagSeparator;
    }
    return setting;
}

void appendTagsFromSetting(std::u16string_view stored, TextList& tags) {
    std::size_t start = 0;
    for (std::size_t piece = 0; start <= stored.size(); ++piece) {
        if (piece > maxRowCounter)
            throw Failure(FailureNumber::overflow);
        const std::size_t end = std::min(stored.find(tagSeparator, start), stored.size());
        if (end > start)
            tags.append(std::u16string(stored.substr(start, end - start)));
        // After a final separator there is one more piece, an empty one.
        start = end < stored.size() ? end + tagSeparator.size() : stored.size() + 1;
    }
}

} // namespace brindlewick
