// Makes rows of the stretches that workers have read, in order.
#pragma once

#include "extract/extraction_options.h"
#include "extract/fragment_walker.h"
#include "extract/ordered_jobs.h"
#include "extract/results_table.h"
#include "extract/stretch_reader.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

using StretchJobs = OrderedJobs<Stretch, StretchLines>;

/// One object is used for a whole run, because arrays in one file affect the rows of the next (see
/// FragmentWalker). Used on the window's thread only.
class FileExtraction {
public:
    FileExtraction(UserInterface& user, const Guard& guard, const ExtractionOptions& options,
                   const std::vector<std::u16string>& tags, ResultsTable& table) noexcept
        : user_(user), guard_(guard), options_(options), tags_(tags), table_(table) {}

    /// Adds the rows of the next stretch. If it was read from a wrong place, or for another mode, it is added
    /// to `jobs` again. A file that cannot be read is reported once and has no rows; a fragment that fails is
    /// reported and left out. True at the end of the file.
    bool addRows(StretchJobs::Outcome& outcome, StretchJobs& jobs);
    /// Ends the current file, if there is one.
    void endFile();

    /// How many of the files that have ended were read, how many were empty, and how many were read in more
    /// than one piece.
    [[nodiscard]] std::size_t filesRead() const noexcept { return filesRead_; }
    [[nodiscard]] std::size_t filesEmpty() const noexcept { return filesEmpty_; }
    [[nodiscard]] std::size_t filesInPieces() const noexcept { return filesInPieces_; }

private:
    enum class FileState { none, empty, read, unreadable };

    void startFile(const std::u16string& path);
    void dropFile();
    bool addEntries(const StretchLines& read, std::uint32_t firstStart);
    void extractLine(std::u16string_view line, std::size_t matches);
    void readFirstTag();
    UnitBuffer& rowOf(std::u16string_view line);
    void addRows(UnitBuffer& text, std::size_t count);
    void addRows(ResultsTable::Text text, std::size_t count);
    void readAgain(Stretch&& stretch, StretchJobs& jobs);

    UserInterface& user_;
    const Guard& guard_;
    const ExtractionOptions& options_;
    const std::vector<std::u16string>& tags_;
    ResultsTable& table_;
    FragmentWalker walker_;
    FileState file_ = FileState::none;
    TextPlace at_;                               ///< the start of the file's next fragment
    std::size_t rowsBefore_ = 0;                 ///< rows of the files before
    std::size_t piecesOfFile_ = 0;               ///< so far
    ExtractionMode mode_ = ExtractionMode::none; ///< as it was at the start of the piece
    bool missingTagReported_ = false;
    std::size_t filesRead_ = 0;
    std::size_t filesEmpty_ = 0;
    std::size_t filesInPieces_ = 0;
};

} // namespace brindlewick
