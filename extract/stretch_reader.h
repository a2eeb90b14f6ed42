// A worker's job in a run: reads a stretch of a file and keeps the lines that the run needs.
#pragma once

#include "core/line_batch_reader.h"
#include "extract/tag_matcher.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace brindlewick {

/// The place after all text.
inline constexpr TextPlace textEnd{std::numeric_limits<std::uint64_t>::max(), 0};

/// How a file is divided. Shared by the workers that read it.
///
/// A file without a UTF-8 mark is divided between pieces, so its stretches are independent.
///
/// A file with a mark is one piece, and is divided at cuts. A cut is a ",", where a fragment most likely
/// starts; whether one does is only known when the text before it has been read. A stretch is read from its
/// cut as well, as a guess, and the reader of the stretch before continues past the cut for a few
/// fragments. A fragment depends only on the text and the place where it starts. So if both readings start a
/// fragment at the same place, they are the same from there on. If they do not, the stretch is read again,
/// from where the one before ended.
class FileStretches {
public:
    FileStretches(const TextFile& file, std::uint64_t minBytes);

    std::uint64_t count() const noexcept { return count_; }
    /// The length of every stretch but the last, which extends to the file's end.
    std::uint64_t bytes() const noexcept { return bytes_; }

    /// Called when reading a stretch of a marked file begins. Returns where the stretch before ended, or none
    /// if it is not finished.
    std::optional<TextPlace> begin(std::uint64_t stretch);
    /// Ends a stretch at a place past the next cut, unless reading the next stretch has begun. Then it
    /// returns false.
    bool endUnlessNextHasBegun(std::uint64_t stretch, TextPlace place);
    void end(std::uint64_t stretch, TextPlace place);

private:
    std::uint64_t bytes_;
    std::uint64_t count_;
    std::mutex mutex_;
    std::uint64_t begun_ = 0;                 ///< number of stretches
    std::map<std::uint64_t, TextPlace> ends_; ///< by stretch, until the next begins
};

/// A stretch of a file, and how it is to be read.
struct Stretch {
    std::u16string path;
    std::size_t fileNumber = 0;
    bool wantsAllLines = false; ///< else those that hold a tag
    std::uint64_t number = 0;
    std::shared_ptr<const TextFile> file{};     ///< none until the file is open
    std::shared_ptr<FileStretches> stretches{}; ///< none for a file of one stretch
    std::optional<TextPlace> begin{};           ///< where reading started, or must start
    bool isAgain = false;                       ///< read again: the next stretch has already been added
    bool isLast = true;                         ///< of the file

    /// The part of the file up to the stretch's end, 0 to 1.
    double shareUpToEnd() const {
        return stretches ? static_cast<double>(number + 1) / static_cast<double>(stretches->count()) : 1;
    }
};

/// The lines of a stretch that the run needs.
struct StretchLines {
    enum class Kind : std::uint8_t {
        line,
        tooLong,    ///< a fragment whose line would be too long
        pieceStart, ///< a piece starts before the next entry
    };
    struct Entry {
        std::uint32_t end = 0; ///< of the line, in code units of `text`; without a line, of the line before
        std::uint32_t matches = 0; ///< number of tags in the line; 0 if all lines are kept
        std::uint32_t start = 0; ///< of the fragment or piece: index in `starts`; beyond its end if not kept
        Kind kind = Kind::line;
    };

    bool hasBytes = true; ///< false for an empty file
    bool hasAllLines = false;
    std::u16string text; ///< of the lines, one after the other
    std::vector<Entry> entries;
    /// The starts of the first fragments; if these are all, also of the one after them. The stretch before
    /// should end at one of them. In a file of several pieces, the starts of the pieces.
    std::vector<TextPlace> starts;
    TextPlace end = textEnd; ///< the start of the next fragment

    /// Does not free memory.
    void clear() {
        hasBytes = true;
        text.clear();
        entries.clear();
        starts.clear();
        end = textEnd;
    }

    std::size_t heldBytes() const {
        return text.size() * sizeof(char16_t) + entries.size() * sizeof(Entry) +
               starts.size() * sizeof(TextPlace);
    }
};

/// Reads one stretch after another. Each worker has its own.
class StretchReader {
public:
    /// In a file of several pieces `minStretchBytes` is rounded to whole pieces.
    StretchReader(std::shared_ptr<const TagMatcher> matcher, std::uint64_t minStretchBytes)
        : matcher_(std::move(matcher)), minStretchBytes_(minStretchBytes) {}

    /// Opens the file if needed, passes the next stretch to `addNext` unless it was added before, and reads.
    /// Fails as TextFileReader does; `stretch.begin` is then where reading started.
    void read(Stretch& stretch, StretchLines& read, const std::function<void(Stretch)>& addNext);

private:
    bool open(Stretch& stretch);
    void readPieces(Stretch& stretch, StretchLines& read);
    void readMarked(Stretch& stretch, StretchLines& read);
    void keepLines(StretchLines& read, std::size_t firstStart, std::size_t step);
    void keepMark(StretchLines& read, StretchLines::Kind kind, std::size_t start);

    std::shared_ptr<const TagMatcher> matcher_;
    std::uint64_t minStretchBytes_;
    TagMatcher::Scratch scratch_;
    LineBatchReader lines_;
};

} // namespace brindlewick
