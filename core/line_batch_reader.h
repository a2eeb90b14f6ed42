// Reads a file's text as lines, many at a time, with little text in memory.
#pragma once

#include "core/line_reader.h"
#include "core/text_file_reader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

/// A place in a file's text, independent of where reading began. It is counted from the last cut at or before
/// it; cut 0 is the beginning of the text. Places compare in the order of the text.
struct TextPlace {
    std::uint64_t cut = 0;
    std::uint64_t units = 0; ///< code units from the cut on

    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

/// Why a batch of lines ended.
enum class BatchEnd {
    full, ///< it is long enough, a cut is reached, or more text must be read first; the piece may have more
    tooLong,  ///< the next fragment's line would be longer than `maxTextLength`; it is skipped
    pieceEnd, ///< the piece has no more
};

/// The text in memory is a window of the piece: text that has been read is dropped. The window grows only for
/// a fragment that does not fit, fourfold each time, so that the repeated readings together cost a third of
/// the last.
class LineBatchReader {
public:
    LineBatchReader() : window_(UnitBuffer::unlimited) {}

    TextFileReader& file() noexcept { return file_; }

    /// Moves to the file's next piece; false when there is none. Fails as TextFileReader does.
    bool nextPiece();
    /// Replaces the batch by the lines of the next fragments: about `minUnits` code units, and no fragment
    /// that begins after the next cut. Fails as TextFileReader does.
    BatchEnd nextBatch(std::size_t minUnits);
    /// Valid until the next call.
    LineBatch batch() const noexcept { return lines_.batch(); }

    // Places exist only in text with a UTF-8 mark. Cut k is at the first separator at or after the byte k *
    // `cutDistance` of the text, if there is one before the byte (k + 1) * `cutDistance`.

    /// Starts reading at `place`; the file's reader must be at the place's cut. Batches end at cuts up to
    /// `lastCut`.
    void startAt(TextPlace place, std::uint64_t cutDistance, std::uint64_t lastCut);
    /// Sets whether placeOf() can be called; this costs a little time for every fragment.
    void keepPlaces(bool keeps) noexcept { lines_.keepStarts(keeps); }
    /// The start of the fragment of the batch's line number `line`.
    TextPlace placeOf(std::size_t line) const { return placeAt(lines_.starts()[line]); }
    /// The start of the last fragment, also of one without a line.
    TextPlace placeOfLast() const { return placeAt(lines_.lastStart()); }
    /// The start of the next fragment.
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
    std::vector<Cut> cuts_; ///< decoded cuts after the first
};

} // namespace brindlewick
