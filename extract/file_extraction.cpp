#include "extract/file_extraction.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brindlewick {

namespace {

// Rows, and fragments, between two calls of yield.
constexpr std::size_t rowsBetweenYields = 4096;
constexpr std::size_t fragmentsBetweenYields = 32;

} // namespace

bool FileExtraction::addRows(StretchJobs::Outcome& outcome, StretchJobs& jobs) {
    Stretch& stretch = outcome.job;
    const StretchLines& read = outcome.result;
    const bool isLast = stretch.isLast;
    if (stretch.number == 0 && !stretch.isAgain)
        startFile(stretch.path);
    if (file_ == FileState::read && at_.cut <= stretch.number) {
        const auto start = std::lower_bound(read.starts.begin(), read.starts.end(), at_);
        const bool startsRight = outcome.failure ? stretch.number == 0 || stretch.begin == at_
                                                 : start != read.starts.end() && *start == at_;
        if (!outcome.failure && !read.hasBytes) {
            file_ = FileState::empty;
        } else if (!startsRight) {
            readAgain(std::move(stretch), jobs);
            return false;
        } else if (outcome.failure) {
            guard_.report(*outcome.failure);
            dropFile();
        } else if (!addEntries(read, static_cast<std::uint32_t>(start - read.starts.begin()))) {
            readAgain(std::move(stretch), jobs);
            return false;
        } else {
            at_ = read.end;
        }
    }
    if (isLast) {
        filesRead_ += file_ == FileState::read ? 1 : 0;
        filesInPieces_ += file_ == FileState::read && piecesOfFile_ > 1 ? 1 : 0;
        filesEmpty_ += file_ == FileState::empty ? 1 : 0;
        endFile();
    }
    return isLast;
}

void FileExtraction::startFile(const std::u16string& path) {
    endFile();
    rowsBefore_ = table_.rowCount();
    walker_.clearTexts();
    at_ = {};
    piecesOfFile_ = 0;
    file_ = guard_([&] { table_.beginFile(path); }) ? FileState::read : FileState::unreadable;
}

void FileExtraction::endFile() {
    if (std::exchange(file_, FileState::none) != FileState::read || options_.mode() != ExtractionMode::all)
        return;
    guard_([&] { addRows(table_.store(walker_.keyText()), 1); });
    guard_([&] { addRows(table_.store(walker_.valueText()), 1); });
}

void FileExtraction::dropFile() {
    table_.truncateRows(rowsBefore_);
    file_ = FileState::unreadable;
}

/// Has the stretch read again from at_, which is certainly a fragment's start, and for the piece's mode.
void FileExtraction::readAgain(Stretch&& stretch, StretchJobs& jobs) {
    stretch.begin = at_;
    stretch.isAgain = true;
    stretch.wantsAllLines = mode_ == ExtractionMode::all;
    if (!guard_([&] { jobs.addFirst(std::move(stretch)); }))
        dropFile();
}

/// Adds the rows of the entries from `starts[firstStart]` on. False when the worker has kept other lines than
/// the mode needs; at_ is then the place from which to read again.
bool FileExtraction::addEntries(const StretchLines& read, std::uint32_t firstStart) {
    const auto isBefore = [](const StretchLines::Entry& entry, std::uint32_t start) {
        return entry.start < start;
    };
    const auto first = std::lower_bound(read.entries.begin(), read.entries.end(), firstStart, isBefore);
    const auto isForMode = [&] { return read.hasAllLines == (mode_ == ExtractionMode::all); };
    const bool startsPiece = first != read.entries.end() && first->kind == StretchLines::Kind::pieceStart;
    if (!startsPiece && !isForMode())
        return false;
    std::size_t start = first == read.entries.begin() ? 0 : std::prev(first)->end;
    std::size_t fragments = 0;
    for (auto entry = first; entry != read.entries.end(); start = entry++->end) {
        switch (entry->kind) {
        case StretchLines::Kind::pieceStart:
            at_ = read.starts[entry->start];
            user_.yield();
            mode_ = options_.mode();
            if (!isForMode())
                return false;
            ++piecesOfFile_;
            // Mode 4 starts again in every piece, so a file of several pieces gives the texts of its last
            // one.
            if (mode_ == ExtractionMode::all)
                walker_.clearTexts();
            break;
        case StretchLines::Kind::tooLong:
            guard_.report(FailureNumber::outOfMemory);
            break;
        case StretchLines::Kind::line:
            guard_([&] { extractLine({read.text.data() + start, entry->end - start}, entry->matches); });
            if (++fragments % fragmentsBetweenYields == 0)
                user_.yield();
            break;
        }
    }
    return true;
}

void FileExtraction::extractLine(std::u16string_view line, std::size_t matches) {
    if (mode_ == ExtractionMode::all) {
        readFirstTag();
        walker_.walk(line);
        return;
    }
    if (mode_ == ExtractionMode::entireLine) {
        if (const std::u16string_view text = trimmedBlanks(line); !text.empty())
            addRows(table_.store(text), matches);
        return;
    }
    // Every matching tag gives the same row, except in the fragment with the run's first array: there the
    // walk for the first tag starts before an array was seen, the others after.
    const bool arraySeenBefore = walker_.arraySeen();
    UnitBuffer& row = rowOf(line);
    const bool isFirstArray = !arraySeenBefore && walker_.arraySeen();
    addRows(row, isFirstArray ? 1 : matches);
    if (isFirstArray && matches > 1)
        addRows(rowOf(line), matches - 1);
}

/// The row's text, in a buffer of the walker; empty for a fragment without a value text, which has no row.
UnitBuffer& FileExtraction::rowOf(std::u16string_view line) {
    walker_.clearTexts();
    walker_.walk(line);
    UnitBuffer& value = walker_.valueText();
    if (mode_ != ExtractionMode::valueAndTag || value.length() == 0)
        return value;
    UnitBuffer& row = walker_.keyText();
    row.makeRoom(1 + value.length());
    row.put(u':');
    row.put(value.view());
    return row;
}

/// Adds a row for each of `count` tags; none for an empty text. May empty the text.
void FileExtraction::addRows(UnitBuffer& text, std::size_t count) {
    if (text.length() > 0)
        addRows(table_.store(text), count);
}

void FileExtraction::addRows(ResultsTable::Text text, std::size_t count) {
    for (; count > 0; --count) {
        table_.appendRow(text, options_.includeFilename());
        if (count % rowsBetweenYields == 0)
            user_.yield();
    }
}

/// Mode 4 does not use the first tag, but reads it. Without tags that fails, which is reported once a run.
void FileExtraction::readFirstTag() {
    if (tags_.empty() && !std::exchange(missingTagReported_, true))
        guard_.report(FailureNumber::subscriptOutOfRange);
}

} // namespace brindlewick
