#include "extract/stretch_reader.h"

#include "platform/files.h"

#include <algorithm>

namespace brindlewick {

namespace {

// Code units of lines: few enough to stay in the processor's first cache until they are looked through.
constexpr std::size_t batchUnits = std::size_t{1} << 14;
// Fragments that are read past a cut, so that two readings meet.
constexpr int maxFragmentsPastCut = 8;
// Starts that are kept of a stretch, so that the reading before it can be found among them.
constexpr std::size_t maxStarts = 256;

/// An entry without a line.
void keepMark(StretchLines& read, TextPlace place, StretchLines::Kind kind) {
    read.entries.push_back(
        {.place = place, .end = static_cast<std::uint32_t>(read.text.size()), .kind = kind});
}

} // namespace

FileStretches::FileStretches(const TextFile& file, std::uint64_t minBytes) : bytes_(minBytes) {
    if (!file.mark.isUtf8) {
        const std::uint64_t pieceBytes = pieceLength * file.bytesPerUnit();
        bytes_ = std::max<std::uint64_t>(minBytes / pieceBytes, 1) * pieceBytes;
    }
    const std::uint64_t textBytes = file.bytes.length() - std::min(file.bytes.length(), file.textStart);
    count_ = std::max<std::uint64_t>((textBytes + bytes_ - 1) / bytes_, 1);
}

std::optional<TextPlace> FileStretches::begin(std::uint64_t stretch) {
    const std::lock_guard lock(mutex_);
    begun_ = std::max(begun_, stretch + 1);
    if (stretch == 0)
        return TextPlace{0, 0};
    const auto before = ends_.extract(stretch - 1);
    return before ? std::optional(before.mapped()) : std::nullopt;
}

bool FileStretches::endUnlessNextHasBegun(std::uint64_t stretch, TextPlace place) {
    const std::lock_guard lock(mutex_);
    if (begun_ > stretch + 1)
        return false;
    ends_.insert_or_assign(stretch, place);
    return true;
}

void FileStretches::end(std::uint64_t stretch, TextPlace place) {
    static_cast<void>(endUnlessNextHasBegun(stretch, place));
}

StretchLines StretchReader::read(Stretch& stretch, const std::function<void(Stretch)>& addNext) {
    StretchLines read;
    read.hasAllLines = stretch.wantsAllLines;
    if (!stretch.file && !open(stretch)) {
        read.hasBytes = false;
        return read;
    }
    if (!stretch.isAgain && !stretch.isLast) {
        Stretch next = stretch;
        ++next.number;
        next.isLast = next.number + 1 == stretch.stretches->count();
        addNext(std::move(next));
    }
    if (stretch.file->mark.isUtf8)
        readMarked(stretch, read);
    else
        readPieces(stretch, read);
    lines_.file().close();
    return read;
}

/// False for an empty file. It has no rows and no report, even when it cannot be opened.
bool StretchReader::open(Stretch& stretch) {
    try {
        if (!lines_.file().open(stretch.path))
            return false;
    } catch (const Failure&) {
        if (fileLength(stretch.path) == 0)
            return false;
        throw;
    }
    stretch.file = lines_.file().file();
    if (stretch.file->bytes.length() > minStretchBytes_) {
        stretch.stretches = std::make_shared<FileStretches>(*stretch.file, minStretchBytes_);
        stretch.isLast = stretch.stretches->count() == 1;
    }
    return true;
}

void StretchReader::readPieces(Stretch& stretch, StretchLines& read) {
    const std::uint64_t bytesPerUnit = stretch.file->bytesPerUnit();
    const std::uint64_t bytes = stretch.stretches ? stretch.stretches->bytes() : 0;
    TextPlace piece = stretch.begin.value_or(TextPlace{stretch.number, 0});
    stretch.begin = piece;
    read.starts = {piece};
    if (piece != TextPlace{0, 0} || lines_.file().file() != stretch.file)
        lines_.file().start(stretch.file,
                            stretch.file->textStart + stretch.number * bytes + piece.units * bytesPerUnit);
    for (; (stretch.isLast || piece.units * bytesPerUnit < bytes) && lines_.nextPiece();
         piece.units += pieceLength) {
        keepMark(read, piece, StretchLines::Kind::pieceStart);
        BatchEnd end = BatchEnd::full;
        while (end != BatchEnd::pieceEnd) {
            end = lines_.nextBatch(batchUnits);
            keepLines(read, piece);
            if (end == BatchEnd::tooLong)
                keepMark(read, piece, StretchLines::Kind::tooLong);
        }
    }
    read.end = stretch.isLast ? textEnd : TextPlace{stretch.number + 1, 0};
}

void StretchReader::readMarked(Stretch& stretch, StretchLines& read) {
    FileStretches* const stretches = stretch.stretches.get();
    TextFileReader& file = lines_.file();
    const std::uint64_t number = stretch.number;
    if (!stretch.begin)
        stretch.begin = stretches == nullptr ? TextPlace{0, 0} : stretches->begin(number);
    if (stretch.begin && stretch.begin->cut > number) { // the reading before went on past this stretch
        read.end = *stretch.begin;
        stretches->end(number, read.end);
        return;
    }
    const std::uint64_t bytes = stretches == nullptr ? 1 : stretches->bytes();
    if (number > 0 || stretch.isAgain) {
        const std::uint64_t from = stretch.file->textStart + number * bytes;
        file.start(stretch.file, from);
        if (number > 0 && !file.skipToComma(from + bytes)) {
            if (stretch.begin) // the cut has gone: the file has been changed
                throw Failure(FailureNumber::deviceIoError);
            return; // without a cut, the reading before goes on past this stretch
        }
    }
    if (!stretch.begin)
        stretch.begin = TextPlace{number, 0};
    read.starts.push_back(*stretch.begin);
    lines_.startAt(*stretch.begin, bytes, stretches == nullptr ? 0 : stretches->count() - 1);
    if (number == 0)
        keepMark(read, {0, 0}, StretchLines::Kind::pieceStart);

    bool isPastCut = false;
    for (int pastCut = 0; pastCut <= maxFragmentsPastCut; pastCut += isPastCut ? 1 : 0) {
        const BatchEnd end = lines_.nextBatch(isPastCut ? 1 : batchUnits);
        for (std::size_t line = 0;
             number > 0 && line < lines_.batch().size() && read.starts.size() < maxStarts; ++line)
            read.starts.push_back(lines_.placeOf(line));
        keepLines(read, std::nullopt);
        if (end == BatchEnd::pieceEnd) {
            read.end = textEnd;
            break;
        }
        if (end == BatchEnd::tooLong)
            keepMark(read, lines_.placeOfLast(), StretchLines::Kind::tooLong);
        read.end = lines_.place();
        isPastCut = read.end.cut > number;
        if (isPastCut && stretches->endUnlessNextHasBegun(number, read.end))
            break;
    }
    if (read.starts.size() < maxStarts)
        read.starts.push_back(read.end);
    if (stretches != nullptr)
        stretches->end(number, read.end);
}

/// `piece` is where the piece starts in a file of several, whose fragments need no places of their own.
void StretchReader::keepLines(StretchLines& read, std::optional<TextPlace> piece) {
    const LineBatch batch = lines_.batch();
    if (read.hasAllLines) {
        for (std::size_t line = 0; line < batch.size(); ++line)
            keepLine(read, line, 0, piece);
        return;
    }
    for (const std::uint32_t line : matcher_->findCandidates(batch, scratch_))
        if (const std::size_t matches = matcher_->countMatches(batch[line], scratch_); matches > 0)
            keepLine(read, line, static_cast<std::uint32_t>(matches), piece);
}

void StretchReader::keepLine(StretchLines& read, std::size_t line, std::uint32_t matches,
                             std::optional<TextPlace> piece) {
    read.text += lines_.batch()[line];
    read.entries.push_back({.place = piece ? *piece : lines_.placeOf(line),
                            .end = static_cast<std::uint32_t>(read.text.size()),
                            .matches = matches});
}

} // namespace brindlewick
