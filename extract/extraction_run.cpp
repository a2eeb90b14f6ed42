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

constexpr std::size_t maxHeldBytes = std::size_t{1} << 22; // of lines that have been read ahead
constexpr std::size_t maxFilesAhead = 2048;
constexpr auto patience = 10ms;              // between two looks at the window's events
constexpr std::uint64_t stepsPerFile = 1000; // of the progress bar

std::u16string progressText(std::size_t file, std::size_t files, std::size_t rows) {
    return u"Extracting: file " + decimalText(file) + u" of " + decimalText(files) + u", " +
           decimalText(rows) + u" rows";
}

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
    guard([&] { extractFiles(guard); });
    busy.end([&] { return decimalText(table_.rowCount()) + u" rows found"; });
    guard([&] { user_.showMessage(u"Done."); });
}

void ExtractionRun::extractFiles(const Guard& guard) {
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

    const std::size_t files = inputPaths_.size();
    std::size_t added = 0;
    std::size_t ended = 0;
    showProgress(guard, 0, 0);
    while (!user_.isStopRequested()) {
        while (added < files && added - ended < maxFilesAhead) {
            guard([&] {
                if (added >= inputPaths_.size()) // the list has become shorter while the window was alive
                    throw Failure(FailureNumber::subscriptOutOfRange);
                jobs.addLast({.path = inputPaths_[added],
                              .fileNumber = added,
                              .wantsAllLines = options_.mode() == ExtractionMode::all});
            });
            ++added;
        }
        std::optional<StretchJobs::Outcome> outcome = jobs.take(patience);
        if (outcome) {
            const std::size_t file = outcome->job.fileNumber;
            const double share = outcome->job.shareBefore();
            const bool hasEnded = extraction.addRows(*outcome, jobs);
            jobs.giveBack(std::move(outcome->result));
            ended = hasEnded ? file + 1 : file;
            showProgress(guard, ended, hasEnded ? 0 : share);
        } else if (added == files && jobs.empty()) {
            break;
        }
        guard([&] { user_.yield(); });
    }
    extraction.endFile();
}

/// `share` is of the file at hand, 0 to 1.
void ExtractionRun::showProgress(const Guard& guard, std::size_t file, double share) {
    const std::size_t files = inputPaths_.size();
    const auto steps = static_cast<std::uint64_t>((static_cast<double>(file) + share) * stepsPerFile);
    guard([&] {
        user_.showProgress(progressText(std::min(file + 1, files), files, table_.rowCount()), steps,
                           files * stepsPerFile);
    });
}

} // namespace brindlewick
