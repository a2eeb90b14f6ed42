#include "core/line_batch_reader.h"

#include <algorithm>

namespace brindlewick {

namespace {

// Code units of lines: few enough to stay in the processor's first cache until they are looked through.
constexpr std::size_t batchLength = std::size_t{1} << 14;
constexpr std::size_t shortestWindow = std::size_t{1} << 14; // code units

} // namespace

bool LineBatchReader::nextPiece() {
    lines_.startBatch();
    window_.cutTo(0);
    at_ = 0;
    return file_.nextPiece();
}

BatchEnd LineBatchReader::nextBatch() {
    lines_.startBatch();
    for (;;) {
        switch (lines_.readBatch(window_.view(), at_, file_.isPieceComplete(), batchLength)) {
        case FragmentReading::line:
            return BatchEnd::full;
        case FragmentReading::needsText:
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
    window_.dropFront(std::min(window_.length(), at_));
    at_ = 0;
    const std::size_t wanted = std::max(shortestWindow, window_.length() * 4);
    while (window_.length() < wanted && file_.readMore(window_)) {
    }
}

} // namespace brindlewick
