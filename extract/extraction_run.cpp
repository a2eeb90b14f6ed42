#include "extract/extraction_run.h"

#include "extract/file_extraction.h"
#include "platform/busy_scope.h"
#include "platform/error_report.h"
#include "platform/text.h"

#include <optional>

namespace brindlewick {

namespace {

std::u16string progressText(std::size_t file, std::size_t files, std::size_t rows) {
    return u"Extracting: file " + decimalText(file) + u" of " + decimalText(files) + u", " +
           decimalText(rows) + u" rows";
}

} // namespace

void ExtractionRun::PushButton7_Click() {
    const Guard guard(user_, u"Form1.PushButton7_Click");
    if (inputPaths_.empty()) {
        guard([&] { user_.showMessage(u"No files added."); });
        return;
    }
    BusyScope busy(user_, guard);
    guard([&] { table_.clearAll(); });
    guard([&] { table_.setColumns(options_.includeFilename()); });

    const std::size_t files = inputPaths_.size();
    std::size_t file = 0;
    const auto showProgress = [&] {
        guard([&] { user_.showProgress(progressText(file + 1, files, table_.rowCount()), file, files); });
        guard([&] { user_.yield(); });
    };
    std::optional<FileExtraction> extraction;
    guard([&] { extraction.emplace(user_, guard, options_, tags_, table_, showProgress); });
    for (; extraction && file < files; ++file) {
        std::u16string path;
        const bool isListed = guard([&] {
            if (file >= inputPaths_.size()) // the list has become shorter while the window was alive
                throw Failure(FailureNumber::subscriptOutOfRange);
            path = inputPaths_[file];
        });
        showProgress();
        if (isListed)
            extraction->extractFile(path);
    }
    bytesRead_ = extraction ? extraction->bytesRead() : 0;

    busy.end([&] { return decimalText(table_.rowCount()) + u" rows found"; });
    guard([&] { user_.showMessage(u"Done."); });
}

} // namespace brindlewick
