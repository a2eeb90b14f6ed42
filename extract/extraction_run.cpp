#include "extract/extraction_run.h"

#include "extract/file_extraction.h"
#include "platform/busy_scope.h"
#include "platform/error_report.h"
#include "platform/processors.h"
#include "platform/text.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

namespace brindlewick {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t maxHeldBytes = std::size_t{1} << 22; // of results that wait
constexpr std::size_t maxFilesAhead = 2048;
constexpr auto patience = 10ms;              // the longest wait between handling events
constexpr std::uint64_t stepsPerFile = 1000; // of the progress bar

} // namespace

// "Start Extracting"
void ExtractionRun::PushButton7_Click() {
    const Guard guard(user_, u"Form1.PushButton7_Click");
    if (inputPaths_.empty()) {
        guard([&] { user_.showMessage(u"No files added."); });
        return;
    }
    BusyScope busy(user_, guard);
    guard([&] { table_.clearAll(); });
    guard([&] { table_.setColumns(options_.includeFilename()); });
    RunOutcome outcome{.files = inputPaths_.size(), .tags = tags_.size()};
    guard([&] { extractFiles(guard, outcome); });
    outcome.rows = table_.rowCount();
    outcome.mode = options_.mode();
    busy.end([&] { return runSummary(outcome); });
    guard([&] { user_.showMessage(u"Done."); });
}

void ExtractionRun::extractFiles(const Guard& guard, RunOutcome& outcome) {
    const auto matcher = std::make_shared<const TagMatcher>(tags_);
    const auto makeWork = [matcher, stretchBytes = readAhead_.stretchBytes] {
        const auto reader = std::make_shared<StretchReader>(matcher, stretchBytes);
        return [reader](Stretch& stretch, StretchLines& read, const StretchJobs::AddNext& addNext) {
            reader->read(stretch, read, addNext);
        };
    };
    const std::size_t workers = readAhead_.workers > 0 ? readAhead_.workers : availableProcessors();
    FileExtraction extraction(user_, guard, options_, tags_, table_);
    StretchJobs jobs(workers, maxHeldBytes, makeWork);

    const std::size_t files = outcome.files;
    std::size_t added = 0;
    std::size_t& ended = outcome.filesEnded;
    showProgress(guard, outcome, 0);
    while (!user_.isStopRequested()) {
        while (added < files && added - ended < maxFilesAhead) {
            guard([&] {
                if (added >= inputPaths_.size()) // an event has shortened the list
                    throw Failure(FailureNumber::subscriptOutOfRange);
                jobs.addLast({.path = inputPaths_[added],
                              .fileNumber = added,
                              .wantsAllLines = options_.mode() == ExtractionMode::all});
            });
            ++added;
        }
        std::optional<StretchJobs::Outcome> stretch = jobs.take(patience);
        if (stretch) {
            const std::size_t file = stretch->job.fileNumber;
            const double share = stretch->job.shareUpToEnd();
            const bool hasEnded = extraction.addRows(*stretch, jobs);
            jobs.giveBack(std::move(stretch->result));
            ended = hasEnded ? file + 1 : file;
            showProgress(guard, outcome, hasEnded ? 0 : share);
        } else if (added == files && jobs.empty()) {
            ended = files;
            break;
        }
        guard([&] { user_.yield(); });
    }
    extraction.endFile();
    outcome.filesRead = extraction.filesRead();
    outcome.filesEmpty = extraction.filesEmpty();
    outcome.filesInPieces = extraction.filesInPieces();
}

/// Shows the first file that has not ended. `share` is the part of that file that is done, 0 to 1.
void ExtractionRun::showProgress(const Guard& guard, const RunOutcome& outcome, double share) {
    const std::size_t ended = outcome.filesEnded;
    const auto steps = static_cast<std::uint64_t>((static_cast<double>(ended) + share) * stepsPerFile);
    guard([&] {
        if (ended < std::min(outcome.files, inputPaths_.size()))
            user_.showProgress(runProgress(ended + 1, outcome.files, table_.rowCount(), inputPaths_[ended]),
                               steps, outcome.files * stepsPerFile);
    });
}

} // namespace brindlewick
