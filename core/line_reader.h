// Reads a text's fragments as lines, many at a time.
#pragma once

#include "core/fragment_reader.h"
#include "core/line_batch.h"
#include "core/line_writer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

/// The outcome of reading a fragment.
enum class FragmentReading {
    line,      ///< its line is now the batch's last
    end,       ///< there is no fragment: no text is left
    needsText, ///< the text ends before the fragment does
    tooLong,   ///< its line would be longer than the maximum; it is skipped
};

class LineReader {
public:
    /// `maxLineLength` in code units.
    explicit LineReader(std::size_t maxLineLength = maxTextLength);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// Empties the batch.
    void startBatch() noexcept;
    /// Reads the fragment at `at` (code units from 0, in and out) and adds its line to the batch. Unless
    /// `isWhole`, more text follows: a fragment that ends near the end of `text` is undone, to be read again
    /// with more text. A batch longer than 2^20 code units is emptied first. Linear in the text that is read.
    FragmentReading next(std::u16string_view text, std::size_t& at, bool isWhole = true) {
        return readBatch(text, at, isWhole, 0);
    }
    /// The same for one fragment after another, until the batch has `batchLength` code units, a fragment ends
    /// at or after `stopAt`, or one has no line. Returns the outcome of the last.
    FragmentReading readBatch(std::u16string_view text, std::size_t& at, bool isWhole,
                              std::size_t batchLength, std::size_t stopAt = std::u16string_view::npos);
    /// Sets the position of the texts that follow, in the code units in which starts() counts.
    void setTextStart(std::uint64_t units) noexcept { textStart_ = units; }

    /// Valid until the next call.
    LineBatch batch() const noexcept { return {writer_.buffer().view(), ends_}; }
    /// Sets whether starts() is filled.
    void keepStarts(bool keeps) noexcept { keepsStarts_ = keeps; }
    /// The start of each line's fragment, if kept. Valid until the next call.
    const std::vector<std::uint64_t>& starts() const noexcept { return starts_; }
    /// The start of the last fragment.
    std::uint64_t lastStart() const noexcept { return lastStart_; }
    /// The last line.
    std::u16string_view line() const { return writer_.buffer().view().substr(lineStart_); }

private:
    LineWriter writer_;
    FragmentSkipper skipper_;
    FragmentReader<LineWriter> lines_{writer_};
    FragmentReader<FragmentSkipper> skips_{skipper_};
    std::size_t maxLineLength_;
    std::size_t lineStart_ = 0;
    std::vector<std::uint32_t> ends_;
    std::vector<std::uint64_t> starts_;
    bool keepsStarts_ = false;
    std::uint64_t textStart_ = 0;
    std::uint64_t lastStart_ = 0;
};

} // namespace brindlewick
