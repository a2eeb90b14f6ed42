// What a worker does for a run: reads a stretch of a file and keeps the lines that the run needs.
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
/// A file without a UTF-8 mark is divided between pieces, so its stretches are independent. A marked file is
/// one piece. What a fragment is depends on nothing but the text and the place where its reading starts. So a
/// stretch may be read from a cut, a "," where a fragment most likely starts, before it is known whether one
/// does. The reading of the stretch before goes on past the cut for a few fragments: if it arrives at a place
/// where the other reading starts a fragment too, all that follows is the same. If it does not, the stretch
/// is read once more, from the right place.
class FileStretches {
public:
    FileStretches(const TextFile& file, std::uint64_t minBytes);

    std::uint64_t count() const noexcept { return count_; }
    /// Of each but the last, which goes on to the file's end.
    std::uint64_t bytes() const noexcept { return bytes_; }

    /// Where the reading of a stretch of a marked file starts: where the one before ended, if that is known,
    /// else none.
    std::optional<TextPlace> begin(std::uint64_t stretch);
    /// Ends the reading of a stretch at a place after the next cut, unless the next stretch has been begun
    /// already.
    bool endUnlessNextHasBegun(std::uint64_t stretch, TextPlace place);
    void end(std::uint64_t stretch, TextPlace place);

private:
    std::uint64_t bytes_;
    std::uint64_t count_;
    std::mutex mutex_;
    std::uint64_t begun_ = 0;                 ///< stretches
    std::map<std::uint64_t, TextPlace> ends_; ///< by stretch; the next has not been begun
};

/// A stretch of a file, and how it is to be read.
struct Stretch {
    std::u16string path;
    std::size_t fileNumber = 0;
    bool wantsAllLines = false; ///< else those that hold a tag
    std::uint64_t number = 0;
    std::shared_ptr<const TextFile> file{};     ///< none before the file is open
    std::shared_ptr<FileStretches> stretches{}; ///< of a file of several
    std::optional<TextPlace> begin{};           ///< where reading started, or has to start
    bool isAgain = false;                       ///< what follows has been added before
    bool isLast = true;                         ///< of the file

    /// The part of the file up to the end of the stretch, 0 to 1.
    double shareUpToEnd() const {
        return stretches ? static_cast<double>(number + 1) / static_cast<double>(stretches->count()) : 1;
    }
};

/// What was read of a stretch.
struct StretchLines {
    enum class Kind : std::uint8_t {
        line,
        tooLong,    ///< a fragment whose line is longer than lines may be
        pieceStart, ///< a piece starts before the next entry
    };
    struct Entry {
        std::uint32_t end = 0; ///< of the line, in code units of `text`; of the line before, if it has none
        std::uint32_t matches = 0; ///< tags in the line; 0 when all lines are kept
        std::uint32_t start = 0; ///< of the fragment or piece: place in `starts`; at least its size if later
        Kind kind = Kind::line;
    };

    bool hasBytes = true; ///< the file has
    bool hasAllLines = false;
    std::u16string text; ///< of the lines, one after the other
    std::vector<Entry> entries;
    /// Where reading began, the next fragments started, and, if that is all, the fragment after them. In a
    /// file of several pieces, where the pieces start. Enough to find in it where the reading before has
    /// ended.
    std::vector<TextPlace> starts;
    TextPlace end = textEnd; ///< where the next fragment starts

    /// Keeps the memory.
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

/// Reads one stretch after another. Each thread has its own.
class StretchReader {
public:
    /// `minStretchBytes` is made a whole number of pieces in a file that has several.
    StretchReader(std::shared_ptr<const TagMatcher> matcher, std::uint64_t minStretchBytes)
        : matcher_(std::move(matcher)), minStretchBytes_(minStretchBytes) {}

    /// Opens the file if it is not open, has the stretch that follows added unless that is done, and reads.
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
