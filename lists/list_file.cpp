// Reads a list file block by block, so that neither a long file nor a long line is held twice.
#include "lists/list_file.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text_encoding.h"

#include <utility>
#include <vector>

namespace brindlewick {

namespace {

/// Cuts the bytes of a file, handed in block by block, into the entries of a list.
class EntryCutter {
public:
    explicit EntryCutter(TextList& list) noexcept : list_(list) {}

    void take(std::string_view bytes) {
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
                cutLine();
        }
        extendEntry(bytes.substr(start));
    }

    /// At the end of the file: a line that has begun is an entry, even when a bare LF was the last of it.
    void finish() {
        if (lineHasBegun_)
            endLine();
    }

private:
    void extendEntry(std::string_view bytes) {
        if (bytes.empty())
            return;
        if (bytes.size() > longestText - entry_.size())
            throw Failure(FailureNumber::outOfMemory);
        appendFromSingleByte(bytes, entry_);
        lineHasBegun_ = true;
        afterReturn_ = false;
    }
    void cutLine() {
        list_.append(std::exchange(entry_, {}));
        lineHasBegun_ = true;
    }
    void endLine() {
        list_.append(std::exchange(entry_, {}));
        lineHasBegun_ = false;
        afterReturn_ = true;
    }

    TextList& list_;
    std::u16string entry_;      ///< at most longestText
    bool lineHasBegun_ = false; ///< something, a bare LF included, stands behind the last line end
    bool afterReturn_ = false;  ///< the last byte was a CR: a LF here belongs to it
};

} // namespace

void ReadListFile(UserInterface& user, std::u16string_view path, TextList& list) {
    if (!FileExists(path)) {
        user.showMessage(u"File not found");
        return;
    }
    InputFile file(path);
    std::vector<char> block(std::size_t{1} << 16);
    EntryCutter cutter(list);
    while (const std::size_t count = file.read(block))
        cutter.take({block.data(), count});
    cutter.finish();
}

} // namespace brindlewick
