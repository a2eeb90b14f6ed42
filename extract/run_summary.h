// The status bar's texts about a run and about the results table.
#pragma once

#include "extract/extraction_options.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlewick {

/// What a run has done so far.
struct RunOutcome {
    std::size_t rows = 0;
    std::size_t files = 0;      ///< in the list when the run started
    std::size_t filesEnded = 0; ///< fewer when the user has stopped the run
    std::size_t filesRead = 0;  ///< among the ended ones, which are otherwise empty or unreadable
    std::size_t filesEmpty = 0;
    std::size_t filesInPieces = 0; ///< among those read; in more than one piece
    std::size_t tags = 0;
    bool hasFoundTag =
        false; ///< a fragment may still give no row: after an array, its value text may be empty
    ExtractionMode mode = ExtractionMode::none;
};

/// "Extracting file 3 of 6, 31 rows so far: PATH". `file` counts from 1.
[[nodiscard]] std::u16string runProgress(std::size_t file, std::size_t files, std::size_t rows,
                                         std::u16string_view path);
/// "31 rows found; 5 files read; 1 file could not be read". Without rows, it says why.
[[nodiscard]] std::u16string runSummary(const RunOutcome& outcome);

/// "31 rows, 28 ticked"; empty without rows.
[[nodiscard]] std::u16string rowCountText(std::size_t rows, std::size_t ticked);

} // namespace brindlewick
