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

/// What became of a fragment.
enum class FragmentReading {
    line,      ///< its line is the batch's last
    end,       ///< there is none: no text is left
    needsText, ///< its end is not in the text at hand
    tooLong,   ///< its line would be longer than lines may be; it is passed over
};

class LineReader {
public:
    /// Lines longer than `maxLineLength` code units are not given.
    explicit LineReader(std::size_t maxLineLength = maxTextLength);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// Forgets the lines read so far.
    void startBatch() noexcept;
    /// Reads the fragment at `at` (code units from 0, in and out) and adds its line to the batch. Unless
    /// `isWhole`, more text follows the one at hand: a fragment that comes near its end is put back, to be
    /// read again with more text. A batch longer than 2^20 code units is forgotten first. Linear in the text
    /// passed over.
    FragmentReading next(std::u16string_view text, std::size_t& at, bool isWhole = true) {
        return readBatch(text, at, isWhole, 0);
    }
    /// The same for one fragment after another, until the batch has `batchLength` code units, one ends at
    /// `stopAt` or after it, or one gives no line; returns what became of the last.
    FragmentReading readBatch(std::u16string_view text, std::size_t& at, bool isWhole,
                              std::size_t batchLength, std::size_t stopAt = std::u16string_view::npos);
    /// The texts that follow begin `units` code units after the place that starts() counts from.
    void setTextStart(std::uint64_t units) noexcept { textStart_ = units; }

    /// Valid until the next call.
    LineBatch batch() const noexcept { return {writer_.buffer().view(), ends_}; }
    /// Whether starts() is filled.
    void keepStarts(bool keeps) noexcept { keepsStarts_ = keeps; }
    /// Where each line's fragment began, if that is kept. Valid until the next call.
    const std::vector<std::uint64_t>& starts() const noexcept { return starts_; }
    /// Where the fragment began that was read last.
    std::uint64_t lastStart() const noexcept { return lastStart_; }
    /// The line read last.
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
