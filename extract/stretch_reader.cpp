#include "extract/stretch_reader.h"

#include "platform/files.h"

#include <algorithm>

namespace brindlewick {

namespace {

// Code units of lines: few enough to stay in the processor's first cache until they are searched.
constexpr std::size_t batchUnits = std::size_t{1} << 14;
// Fragments that are read past a cut, to find one at which the next stretch starts a fragment too.
constexpr int maxFragmentsPastCut = 8;
// Starts that are kept of a stretch, and code units of lines per batch while they are kept.
constexpr std::size_t enoughStarts = 256;
constexpr std::size_t unitsBetweenCounts = std::size_t{1} << 11;

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

void StretchReader::read(Stretch& stretch, StretchLines& read, const std::function<void(Stretch)>& addNext) {
    read.clear();
    read.hasAllLines = stretch.wantsAllLines;
    if (!stretch.file && !open(stretch)) {
        read.hasBytes = false;
        return;
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
    if (!stretch.stretches)
        stretch.file.reset(); // close the file here, not on the window's thread
}

/// False for an empty file. It has no rows and no report, even if it cannot be opened.
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
    if (stretch.isAgain || stretch.number > 0)
        lines_.file().start(stretch.file,
                            stretch.file->textStart + stretch.number * bytes + piece.units * bytesPerUnit);
    lines_.keepPlaces(false);
    for (; (stretch.isLast || piece.units * bytesPerUnit < bytes) && lines_.nextPiece();
         piece.units += pieceLength) {
        const std::size_t start = read.starts.size();
        read.starts.push_back(piece);
        keepMark(read, StretchLines::Kind::pieceStart, start);
        for (BatchEnd end = BatchEnd::full; end != BatchEnd::pieceEnd;) {
            end = lines_.nextBatch(batchUnits);
            keepLines(read, start, 0);
            if (end == BatchEnd::tooLong)
                keepMark(read, StretchLines::Kind::tooLong, start);
        }
    }
    if (read.starts.empty()) // the file has become shorter
        read.starts.push_back(piece);
    read.end = stretch.isLast ? textEnd : TextPlace{stretch.number + 1, 0};
}

void StretchReader::readMarked(Stretch& stretch, StretchLines& read) {
    FileStretches* const stretches = stretch.stretches.get();
    TextFileReader& file = lines_.file();
    const std::uint64_t number = stretch.number;
    if (!stretch.begin)
        stretch.begin = stretches == nullptr ? TextPlace{0, 0} : stretches->begin(number);
    if (stretch.begin && stretch.begin->cut > number) { // the stretch before extends past this one
        read.end = *stretch.begin;
        stretches->end(number, read.end);
        return;
    }
    const std::uint64_t bytes = stretches == nullptr ? 1 : stretches->bytes();
    if (number > 0 || stretch.isAgain) {
        const std::uint64_t from = stretch.file->textStart + number * bytes;
        file.start(stretch.file, from);
        if (number > 0 && !file.skipToSeparator(from + bytes)) {
            if (stretch.begin) { // the cut no longer exists: the file has become shorter
                read.starts.push_back(*stretch.begin);
                return;
            }
            return; // without a cut, the stretch before extends past this one
        }
    }
    if (!stretch.begin)
        stretch.begin = TextPlace{number, 0};
    read.starts.push_back(*stretch.begin);
    lines_.startAt(*stretch.begin, bytes, stretches == nullptr ? 0 : stretches->count() - 1);
    if (number == 0)
        keepMark(read, StretchLines::Kind::pieceStart, 0);

    bool keepsStarts = number > 0;
    std::size_t fragments = 0;
    bool isPastCut = false;
    for (int pastCut = 0; pastCut <= maxFragmentsPastCut; pastCut += isPastCut ? 1 : 0) {
        lines_.keepPlaces(keepsStarts);
        const BatchEnd end = lines_.nextBatch(isPastCut ? 1 : keepsStarts ? unitsBetweenCounts : batchUnits);
        keepLines(read, fragments, 1);
        for (std::size_t line = fragments == 0 ? 1 : 0; keepsStarts && line < lines_.batch().size(); ++line)
            read.starts.push_back(lines_.placeOf(line));
        fragments += lines_.batch().size();
        if (end == BatchEnd::tooLong) {
            keepMark(read, StretchLines::Kind::tooLong, fragments);
            if (keepsStarts && fragments > 0)
                read.starts.push_back(lines_.placeOfLast());
            ++fragments;
        }
        read.end = end == BatchEnd::pieceEnd ? textEnd : lines_.place();
        if (keepsStarts && fragments >= enoughStarts)
            keepsStarts = false;
        isPastCut = read.end.cut > number;
        if (end == BatchEnd::pieceEnd || (isPastCut && stretches->endUnlessNextHasBegun(number, read.end)))
            break;
    }
    if (keepsStarts)
        read.starts.push_back(read.end);
    if (stretches != nullptr)
        stretches->end(number, read.end);
}

/// Keeps the lines of the batch that the run needs. The first line has the start number `firstStart`, each
/// further line one that is `step` higher.
void StretchReader::keepLines(StretchLines& read, std::size_t firstStart, std::size_t step) {
    const LineBatch batch = lines_.batch();
    const auto startOf = [&](std::size_t line) {
        return static_cast<std::uint32_t>(firstStart + line * step);
    };
    if (read.hasAllLines) {
        const std::size_t before = read.text.size();
        read.text += batch.text;
        for (std::size_t line = 0; line < batch.size(); ++line)
            read.entries.push_back(
                {.end = static_cast<std::uint32_t>(before + batch.ends[line]), .start = startOf(line)});
        return;
    }
    const std::size_t known = matcher_->matchesOfCandidates();
    for (const std::uint32_t line : matcher_->findCandidates(batch, scratch_)) {
        const std::size_t matches = known > 0 ? known : matcher_->countMatches(batch[line], scratch_);
        if (matches == 0)
            continue;
        read.text += batch[line];
        read.entries.push_back({.end = static_cast<std::uint32_t>(read.text.size()),
                                .matches = static_cast<std::uint32_t>(matches),
                                .start = startOf(line)});
    }
}

/// An entry without a line.
void StretchReader::keepMark(StretchLines& read, StretchLines::Kind kind, std::size_t start) {
    read.entries.push_back({.end = static_cast<std::uint32_t>(read.text.size()),
                            .start = static_cast<std::uint32_t>(start),
                            .kind = kind});
}

} // namespace brindlewick
