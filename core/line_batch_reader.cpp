#include "core/line_batch_reader.h"

#include <algorithm>
#include <iterator>

namespace brindlewick {

namespace {

constexpr std::size_t minWindow = std::size_t{1} << 14; // code units

} // namespace

bool LineBatchReader::nextPiece() {
    lines_.startBatch();
    window_.cutTo(0);
    at_ = 0;
    windowStart_ = 0;
    cuts_.clear();
    return file_.nextPiece();
}

void LineBatchReader::startAt(TextPlace place, std::uint64_t cutDistance, std::uint64_t lastCut) {
    nextPiece();
    firstCut_ = place.cut;
    cutDistance_ = cutDistance;
    lastCut_ = lastCut;
    at_ = static_cast<std::size_t>(
        place.units); // the window is still empty: it is filled, and its front dropped, on demand
    lookForCutAfter(place.cut);
}

BatchEnd LineBatchReader::nextBatch(std::size_t minUnits) {
    lines_.startBatch();
    for (;;) {
        lines_.setTextStart(windowStart_);
        switch (lines_.readBatch(window_.view(), at_, file_.isPieceComplete(), minUnits, nextCutInWindow())) {
        case FragmentReading::line:
            return BatchEnd::full;
        case FragmentReading::needsText:
            if (lines_.batch().size() > 0)
                return BatchEnd::full;
            readMoreText();
            break;
        case FragmentReading::tooLong:
            return BatchEnd::tooLong;
        case FragmentReading::end:
            return BatchEnd::pieceEnd;
        }
    }
}

void LineBatchReader::readMoreText() {
    const std::size_t read = std::min(window_.length(), at_);
    window_.dropFront(read);
    windowStart_ += read;
    at_ -= read;
    const std::size_t wanted = std::max(minWindow, window_.length() * 4);
    while (window_.length() < wanted && file_.readMore(window_))
        if (file_.isAtBreak())
            noteCut();
}

void LineBatchReader::lookForCutAfter(std::uint64_t cut) {
    if (cut < lastCut_)
        file_.breakAtSeparatorFrom(file_.file()->textStart + (cut + 1) * cutDistance_);
}

void LineBatchReader::noteCut() {
    const std::uint64_t cut = (file_.offset() - file_.file()->textStart) / cutDistance_;
    if (cut > lastCut_)
        return;
    cuts_.push_back({cut, windowStart_ + window_.length()});
    lookForCutAfter(cut);
}

/// Code units from the window's start; beyond its end when no cut is known.
std::size_t LineBatchReader::nextCutInWindow() const {
    const std::uint64_t unit = windowStart_ + at_;
    const auto isAfter = [](std::uint64_t one, const Cut& cut) { return one < cut.start; };
    const auto next = std::upper_bound(cuts_.begin(), cuts_.end(), unit, isAfter);
    return next == cuts_.end() ? std::u16string_view::npos
                               : static_cast<std::size_t>(next->start - windowStart_);
}

TextPlace LineBatchReader::placeAt(std::uint64_t unit) const {
    const auto isAfter = [](std::uint64_t one, const Cut& cut) { return one < cut.start; };
    const auto next = std::upper_bound(cuts_.begin(), cuts_.end(), unit, isAfter);
    if (next == cuts_.begin())
        return {firstCut_, unit};
    const Cut& last = *std::prev(next);
    return {last.cut, unit - last.start};
}

} // namespace brindlewick
