// The extraction run: reads every input file and makes a row of every fragment that contains a tag.
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

/// How worker threads read ahead.
struct ReadAhead {
    std::size_t workers = 0; ///< number of threads; 0: one for each processor that the process may use
    std::uint64_t stretchBytes = std::uint64_t{1} << 18; ///< the part of a file that one job reads
};

class ExtractionRun {
public:
    /// Refers to the lists, the options and the table, and copies none: a run uses their current state. Only
    /// the tags are read once, when a run starts.
    ExtractionRun(UserInterface& user, const ExtractionOptions& options,
                  const std::vector<std::u16string>& inputPaths, const std::vector<std::u16string>& tags,
                  ResultsTable& table, ReadAhead readAhead = {}) noexcept
        : user_(user), options_(options), inputPaths_(inputPaths), tags_(tags), table_(table),
          readAhead_(readAhead) {}

    /// "Start Extracting". Clears the table and fills it; a failure is reported and the run continues. Worker
    /// threads read and match ahead; the caller's thread adds the rows in the order of the files and handles
    /// events. Time is linear in the files' bytes and the rows' text. Of the files, only a few stretches are
    /// in memory.
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
