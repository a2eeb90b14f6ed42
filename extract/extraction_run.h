// The extraction run: every input file is read, cut into fragments, and every fragment that holds a tag
// becomes a row.
#pragma once

#include "extract/extraction_options.h"
#include "extract/results_table.h"
#include "extract/run_summary.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace brindlewick {

/// How a run reads ahead.
struct ReadAhead {
    std::size_t workers = 0; ///< threads; 0: one for each processor that the process may use
    std::uint64_t stretchBytes = std::uint64_t{1} << 18; ///< of a file that one worker reads at a time
};

class ExtractionRun {
public:
    /// The lists, the options and the table are referred to, not copied: the run reads them as they stand at
    /// the moment it needs them. Tags are read once, when a run starts.
    ExtractionRun(UserInterface& user, const ExtractionOptions& options,
                  const std::vector<std::u16string>& inputPaths, const std::vector<std::u16string>& tags,
                  ResultsTable& table, ReadAhead readAhead = {}) noexcept
        : user_(user), options_(options), inputPaths_(inputPaths), tags_(tags), table_(table),
          readAhead_(readAhead) {}

    /// "Start Extracting". Fills the table from empty; every failure is reported and the run goes on. Workers
    /// read and match ahead; rows are added on the caller's thread, in the order of the files, while the
    /// window's events are handled. Time and memory are linear in the files' bytes and the rows' text; of the
    /// files, no more is held than a few stretches.
    void PushButton7_Click();

private:
    void extractFiles(const Guard& guard, RunOutcome& outcome);
    void showProgress(const Guard& guard, const RunOutcome& outcome, double share);

    UserInterface& user_;
    const ExtractionOptions& options_;
    const std::vector<std::u16string>& inputPaths_;
    const std::vector<std::u16string>& tags_;
    ResultsTable& table_;
    ReadAhead readAhead_;
};

} // namespace brindlewick
