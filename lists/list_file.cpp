#include "lists/list_file.h"

#include "lists/list_summaries.h"
#include "platform/busy_scope.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text_encoding.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace brindlewick {

namespace {

/// Splits the bytes of a file, passed block by block, into the entries of a list.
class EntrySplitter {
public:
    explicit EntrySplitter(TextList& list) noexcept : list_(list) {}

    void add(std::string_view bytes) {
        std::size_t start = 0;
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            const char byte = bytes[at];
            if (byte != '\r' && byte != '\n')
                continue;
            extendEntry(bytes.substr(start, at - start));
            start = at + 1;
            if (byte == '\r')
                endLine();
            else if (!std::exchange(afterReturn_, false))
                splitLine();
        }
        extendEntry(bytes.substr(start));
    }

    /// The end of the file: an unfinished line is an entry, also an empty one after a LF alone.
    void finish() {
        if (lineHasBegun_)
            endLine();
    }

private:
    void extendEntry(std::string_view bytes) {
        if (bytes.empty())
            return;
        if (bytes.size() > maxTextLength - entry_.size())
            throw Failure(FailureNumber::outOfMemory);
        appendFromWindows1252(bytes, entry_);
        lineHasBegun_ = true;
        afterReturn_ = false;
    }
    void splitLine() {
        list_.append(std::exchange(entry_, {}));
        lineHasBegun_ = true;
    }
    void endLine() {
        list_.append(std::exchange(entry_, {}));
        lineHasBegun_ = false;
        afterReturn_ = true;
    }

    TextList& list_;
    std::u16string entry_;      ///< at most maxTextLength
    bool lineHasBegun_ = false; ///< there was a byte, or a LF alone, after the last line end
    bool afterReturn_ = false;  ///< the last byte was a CR, so a LF now is part of its line end
};

} // namespace

void ReadListFile(UserInterface& user, std::u16string_view path, TextList& list) {
    if (!FileExists(path)) {
        user.showMessage(u"File not found");
        return;
    }
    const InputFile file(path);
    std::vector<char> block(std::size_t{1} << 16);
    EntrySplitter splitter(list);
    const std::size_t before = list.size();
    std::uint64_t offset = 0;
    while (const std::size_t count = file.readAt(offset, block)) {
        offset += count;
        splitter.add({block.data(), count});
        user.showProgress(readingProgress(list.size() - before, path), offset, file.length());
        user.yield();
        if (user.isStopRequested() && offset < file.length())
            return; // without the line that is not read to its end
    }
    splitter.finish();
}

void ReadListFiles(UserInterface& user, const Guard& guard, const std::vector<std::u16string>& paths,
                   TextList& list, std::u16string (&summary)(const TextList&, std::size_t)) {
    if (paths.empty())
        return;
    const std::size_t before = list.size();
    BusyScope busy(user, guard);
    for (const std::u16string& path : paths)
        if (!user.isStopRequested())
            guard([&] { ReadListFile(user, path, list); });
    busy.end([&] { return summary(list, before); });
}

} // namespace brindlewick
