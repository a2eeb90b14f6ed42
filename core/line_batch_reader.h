// Reads a file's pieces as lines, many at a time, and holds no more text than it has to.
#pragma once

#include "core/line_reader.h"
#include "core/text_file_reader.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace brindlewick {

/// Why a batch of lines ended.
enum class BatchEnd {
    full,     ///< it is long enough; the piece may have more
    tooLong,  ///< the next fragment's line would be longer than `maxTextLength`; it is passed over
    pieceEnd, ///< the piece has no more
};

/// The text at hand is a window on the piece: what has been read is dropped, and the window grows only for a
/// fragment that does not fit, twofold each time, so that reading it again costs no more than reading it
/// once.
class LineBatchReader {
public:
    LineBatchReader() : window_(maxTextLength) {}

    /// Has `pause` called now and then while a very long fragment is read, and while the file's bytes are
    /// long in coming.
    void setPause(const std::function<void()>& pause) {
        file_.setPause(pause);
        lines_.setPause(pause);
    }
    /// Opens the file; false when it has no bytes. Fails as TextFileReader does.
    bool open(std::u16string_view path) { return file_.open(path); }
    void close() noexcept { file_.close(); }
    /// Goes on to the file's next piece; false when there is none. Fails as TextFileReader does.
    bool nextPiece();
    /// Replaces the batch by the lines of the fragments that follow: enough for about 16,000 code units.
    /// Fails as TextFileReader does.
    BatchEnd nextBatch();
    /// Valid until the next call.
    LineBatch batch() const noexcept { return lines_.batch(); }
    /// Of all files opened.
    std::uint64_t bytesRead() const noexcept { return file_.bytesRead(); }

private:
    void readMoreText();

    TextFileReader file_;
    UnitBuffer window_;
    std::size_t at_ = 0; ///< in the window, code units
    LineReader lines_;
};

} // namespace brindlewick
