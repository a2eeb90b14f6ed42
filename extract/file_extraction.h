// What a run does with one file: pieces to fragments, fragments to lines, lines that hold a tag to rows.
#pragma once

#include "core/line_batch_reader.h"
#include "extract/extraction_options.h"
#include "extract/fragment_walker.h"
#include "extract/results_table.h"
#include "extract/tag_matcher.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Lives as long as a run, because what it has seen in one file steers what it makes of the next (see
/// FragmentWalker).
class FileExtraction {
public:
    /// `afterSome` is called now and then during long pieces, so that the window stays alive.
    FileExtraction(UserInterface& user, const Guard& guard, const ExtractionOptions& options,
                   const std::vector<std::u16string>& tags, ResultsTable& table,
                   std::function<void()> afterSome);

    /// Adds the file's rows. A file that cannot be read is reported once and adds no row; a fragment that
    /// fails is reported and left out.
    void extractFile(const std::u16string& path);
    std::uint64_t bytesRead() const noexcept { return reader_.bytesRead(); }

private:
    bool openUnlessEmpty(const std::u16string& path);
    bool extractPiece();
    void extractBatch(const LineBatch& batch);
    void extractMatch(std::u16string_view line, std::size_t matches);
    void readFirstTag();
    void walkToRow(std::u16string_view line);
    void addRows(std::u16string_view text, std::size_t count);

    UserInterface& user_;
    const Guard& guard_;
    const ExtractionOptions& options_;
    const std::vector<std::u16string>& tags_;
    ResultsTable& table_;
    std::function<void()> afterSome_;
    LineBatchReader reader_;
    TagMatcher matcher_;
    std::vector<std::uint32_t> candidates_; ///< lines of a batch, kept between batches for its room
    FragmentWalker walker_;
    ExtractionMode mode_ = ExtractionMode::none; ///< as it stood when the piece was started
    std::u16string row_;                         ///< room for a row's text, kept between fragments
    bool missingTagReported_ = false;
};

} // namespace brindlewick
