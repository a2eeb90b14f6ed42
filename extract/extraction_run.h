// The extraction run: every input file is read, cut into fragments, and every fragment that holds a tag
// becomes a row.
#pragma once

#include "extract/extraction_options.h"
#include "extract/results_table.h"
#include "platform/user_interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brindlewick {

class ExtractionRun {
public:
    /// The lists, the options and the table are referred to, not copied: the run reads them as they stand at
    /// the moment it needs them. Tags are read once, when a run starts.
    ExtractionRun(UserInterface& user, const ExtractionOptions& options,
                  const std::vector<std::u16string>& inputPaths, const std::vector<std::u16string>& tags,
                  ResultsTable& table) noexcept
        : user_(user), options_(options), inputPaths_(inputPaths), tags_(tags), table_(table) {}

    /// "Start Extracting". Fills the table from empty; every failure is reported and the run goes on. Time
    /// and memory are linear in the files' bytes and the rows' text; no more than a window on one file is
    /// held.
    void PushButton7_Click();
    /// How many bytes of the files the last run read.
    std::uint64_t bytesRead() const noexcept { return bytesRead_; }

private:
    UserInterface& user_;
    const ExtractionOptions& options_;
    const std::vector<std::u16string>& inputPaths_;
    const std::vector<std::u16string>& tags_;
    ResultsTable& table_;
    std::uint64_t bytesRead_ = 0;
};

} // namespace brindlewick
