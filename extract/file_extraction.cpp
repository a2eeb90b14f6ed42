#include "extract/file_extraction.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <utility>

namespace brindlewick {

FileExtraction::FileExtraction(UserInterface& user, const Guard& guard, const ExtractionOptions& options,
                               const std::vector<std::u16string>& tags, ResultsTable& table,
                               std::function<void()> afterSome)
    : user_(user), guard_(guard), options_(options), tags_(tags), table_(table),
      afterSome_(std::move(afterSome)), matcher_(tags) {
    reader_.setPause(afterSome_);
}

void FileExtraction::extractFile(const std::u16string& path) {
    const std::size_t rowsBefore = table_.rowCount();
    bool hasPiece = false;
    bool isReadable = guard_([&] {
        if (!openUnlessEmpty(path))
            return;
        hasPiece = reader_.nextPiece();
        table_.beginFile(path);
    });
    const bool isRead = isReadable && hasPiece;
    walker_.clearTexts();
    while (isReadable && hasPiece)
        isReadable = extractPiece() && guard_([&] { hasPiece = reader_.nextPiece(); });
    reader_.close();
    if (!isReadable) {
        table_.truncateRows(rowsBefore);
        return;
    }
    if (isRead && options_.mode() == ExtractionMode::all) {
        mode_ = ExtractionMode::all;
        guard_([&] { addRows(walker_.keyText(), 1); });
        guard_([&] { addRows(walker_.valueText(), 1); });
    }
}

/// False for an empty file. It gives no rows and no report, even when it cannot be opened.
bool FileExtraction::openUnlessEmpty(const std::u16string& path) {
    try {
        return reader_.open(path);
    } catch (const Failure&) {
        if (fileLength(path) == 0)
            return false;
        throw;
    }
}

/// False when the piece's text could not be read.
bool FileExtraction::extractPiece() {
    user_.yield();
    mode_ = options_.mode();
    // Mode 4 gathers anew in every piece, so a file of several pieces ends with what its last one held.
    if (mode_ == ExtractionMode::all)
        walker_.clearTexts();

    for (;;) {
        BatchEnd end = BatchEnd::pieceEnd;
        const bool isRead = guard_([&] {
            end = reader_.nextBatch();
            if (mode_ != ExtractionMode::all)
                matcher_.findCandidates(reader_.batch(), candidates_);
        });
        if (!isRead)
            return false;
        extractBatch(reader_.batch());
        if (end == BatchEnd::pieceEnd)
            return true;
        // A fragment too long to become a line is reported like one that fails later: the next one follows.
        if (end == BatchEnd::tooLong)
            guard_([] { throw Failure(FailureNumber::outOfMemory); });
        afterSome_();
    }
}

void FileExtraction::extractBatch(const LineBatch& batch) {
    if (mode_ == ExtractionMode::all) {
        for (std::size_t line = 0; line < batch.size(); ++line)
            guard_([&] {
                readFirstTag();
                walker_.walk(batch[line]);
            });
        return;
    }
    for (const std::uint32_t line : candidates_)
        guard_([&] {
            if (const std::size_t matches = matcher_.countMatches(batch[line]); matches > 0)
                extractMatch(batch[line], matches);
        });
}

void FileExtraction::extractMatch(std::u16string_view line, std::size_t matches) {
    if (mode_ == ExtractionMode::entireLine) {
        addRows(trimmedBlanks(line), matches);
        return;
    }
    // The row is the same for every matching tag, but for the fragment that holds the run's first array: only
    // the first tag's pass begins before that array was seen.
    const bool arraySeenBefore = walker_.arraySeen();
    walkToRow(line);
    const bool isFirstArray = !arraySeenBefore && walker_.arraySeen();
    addRows(row_, isFirstArray ? 1 : matches);
    if (isFirstArray && matches > 1) {
        walkToRow(line);
        addRows(row_, matches - 1);
    }
}

/// Leaves the row's text in row_; empty for a fragment without a value text, which makes no row.
void FileExtraction::walkToRow(std::u16string_view line) {
    walker_.clearTexts();
    walker_.walk(line);
    row_.clear();
    if (walker_.valueText().empty())
        return;
    if (mode_ == ExtractionMode::valueAndTag)
        row_.append(walker_.keyText()).append(u":");
    row_.append(walker_.valueText());
}

/// One row for each of `count` tags; an empty text makes none, outside mode 4.
void FileExtraction::addRows(std::u16string_view text, std::size_t count) {
    if (text.empty() && mode_ != ExtractionMode::all)
        return;
    const ResultsTable::Text stored = table_.store(text);
    const bool withFilename = options_.includeFilename();
    for (; count > 0; --count)
        table_.appendRow(stored, withFilename);
}

/// Mode 4 needs no tag, but asks for the first one all the same; without any, that is a failure. It is told
/// once.
void FileExtraction::readFirstTag() {
    if (!tags_.empty() || std::exchange(missingTagReported_, true))
        return;
    guard_([] { throw Failure(FailureNumber::subscriptOutOfRange); });
}

} // namespace brindlewick
