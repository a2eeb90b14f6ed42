// Reads a file's text as lines, many at a time, and holds no more text than it has to.
#pragma once

#include "core/line_reader.h"
#include "core/text_file_reader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

/// A place in a file's text that does not depend on where reading began. Text before the first cut is counted
/// from cut 0, the text's beginning; any other from the last cut before it. Places order as the text does.
struct TextPlace {
    std::uint64_t cut = 0;
    std::uint64_t units = 0; ///< code units from the cut on

    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

/// Why a batch of lines ended.
enum class BatchEnd {
    full,     ///< it is long enough, a cut is reached, or text has to be read; the piece may have more
    tooLong,  ///< the next fragment's line would be longer than `maxTextLength`; it is passed over
    pieceEnd, ///< the piece has no more
};

/// The text at hand is a window on the piece: what has been read is dropped, and the window grows only for a
/// fragment that does not fit, fourfold each time, so that reading it again costs a third of reading it once.
class LineBatchReader {
public:
    LineBatchReader() : window_(UnitBuffer::unlimited) {}

    TextFileReader& file() noexcept { return file_; }

    /// Goes on to the file's next piece; false when there is none. Fails as TextFileReader does.
    bool nextPiece();
    /// Replaces the batch by the lines of the fragments that follow: enough for about `minUnits` code units,
    /// and no fragment that begins after the next cut. Fails as TextFileReader does.
    BatchEnd nextBatch(std::size_t minUnits);
    /// Valid until the next call.
    LineBatch batch() const noexcept { return lines_.batch(); }

    // Places, in text with a UTF-8 mark. Cut number k is at the first separator at or after the byte k times
    // `cutDistance` from the text's beginning, if there is one before the next multiple.

    /// Makes the cuts up to number `lastCut` known. Reading is at `place`, with the file's reader at the
    /// place's cut.
    void startAt(TextPlace place, std::uint64_t cutDistance, std::uint64_t lastCut);
    /// Whether placeOf() can be asked; it costs a little time for every fragment.
    void keepPlaces(bool keeps) noexcept { lines_.keepStarts(keeps); }
    /// Where the batch's fragment number `line` began.
    TextPlace placeOf(std::size_t line) const { return placeAt(lines_.starts()[line]); }
    /// Where the fragment began that was read last, one without a line included.
    TextPlace placeOfLast() const { return placeAt(lines_.lastStart()); }
    /// Where the next fragment begins.
    TextPlace place() const { return placeAt(windowStart_ + at_); }

private:
    struct Cut {
        std::uint64_t cut;
        std::uint64_t start; ///< code units from where reading began
    };

    void readMoreText();
    void noteCut();
    void lookForCutAfter(std::uint64_t cut);
    std::size_t nextCutInWindow() const;
    TextPlace placeAt(std::uint64_t unit) const;

    TextFileReader file_;
    UnitBuffer window_;
    std::size_t at_ = 0;            ///< in the window, code units
    std::uint64_t windowStart_ = 0; ///< code units from where reading began
    LineReader lines_;
    std::uint64_t firstCut_ = 0;
    std::uint64_t cutDistance_ = 0; ///< bytes; 0 without cuts
    std::uint64_t lastCut_ = 0;
    std::vector<Cut> cuts_; ///< that have been decoded, after the first
};

} // namespace brindlewick
