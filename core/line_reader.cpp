#include "core/line_reader.h"

#include <algorithm>

namespace brindlewick {

namespace {

// The grammar looks ahead at most as far as the letters of "false" or the digits of an escape.
constexpr std::size_t maxLookAhead = 8;
// Code units of other lines in the buffer, besides a line of the maximum length.
constexpr std::size_t maxBatchBefore = std::size_t{1} << 20;

} // namespace

LineReader::LineReader(std::size_t maxLineLength)
    : writer_(maxLineLength + std::min(16 * maxLineLength, maxBatchBefore)), maxLineLength_(maxLineLength) {}

void LineReader::startBatch() noexcept {
    writer_.buffer().cutTo(0);
    lineStart_ = 0;
    ends_.clear();
    starts_.clear();
}

FragmentReading LineReader::readBatch(std::u16string_view text, std::size_t& at, bool isWhole,
                                      std::size_t batchLength, std::size_t stopAt) {
    UnitBuffer& lines = writer_.buffer();
    if (lines.length() > maxBatchBefore)
        startBatch();
    // A fragment that ends this near the text's end may read differently with more text.
    const std::size_t cutAt =
        isWhole ? std::u16string_view::npos : text.size() - std::min(text.size(), maxLookAhead - 1);
    const std::size_t lookUpAt = std::min(stopAt, cutAt);
    std::size_t start = at;
    std::size_t lineStart = lines.length();
    FragmentReading reading = FragmentReading::line;
    try {
        lines_.start(text);
        lines_.moveTo(std::min(at, text.size()));
        for (;;) {
            const bool isFragment = lines_.readNext();
            at = lines_.place();
            const std::size_t lineEnd = lines.length();
            if (!isFragment)
                reading = FragmentReading::end;
            else if (lineEnd - lineStart > maxLineLength_)
                reading = FragmentReading::tooLong;
            if (at >= cutAt)
                reading = FragmentReading::needsText;
            if (reading != FragmentReading::line)
                break;
            ends_.push_back(static_cast<std::uint32_t>(lineEnd));
            if (keepsStarts_)
                starts_.push_back(textStart_ + start);
            if (lineEnd >= batchLength || at >= lookUpAt)
                break;
            start = at;
            lineStart = lineEnd;
        }
    } catch (const Failure&) {
        // The line does not fit: read again without writing, to find the fragment's end.
        at = start;
        skips_.start(text);
        skips_.read(at);
        reading = at >= cutAt ? FragmentReading::needsText : FragmentReading::tooLong;
    }
    lastStart_ = textStart_ + start;
    if (reading != FragmentReading::line)
        lines.cutTo(lineStart);
    lineStart_ = lineStart;
    if (reading == FragmentReading::needsText)
        at = start;
    return reading;
}

} // namespace brindlewick
