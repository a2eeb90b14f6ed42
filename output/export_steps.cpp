// Captions, shares and the status bar's texts of a long export.
#include "output/export_steps.h"

#include "platform/native_path.h"
#include "platform/text.h"

namespace brindlewick {

void ExportSteps::takeProgressBack() {
    if (progress_ == nullptr)
        return;
    if (valueOnFailure_ == ValueOnFailure::zero)
        progress_->setValue(0);
    progress_->setCaption(u"Progress Bar");
}

std::u16string writingCaption(std::u16string_view path) {
    return std::u16string(u"Writing file: ").append(fileNamePart(path));
}

std::u16string writingCaption(std::u16string_view path, std::size_t row) {
    return writingCaption(path) + u" (" + decimalText(row) + u")";
}

int percentDone(std::size_t row, std::size_t rowCount) {
    return static_cast<int>(row * 100 / rowCount);
}

void showRows(UserInterface& user, std::u16string_view doing, std::size_t row, std::size_t rowCount) {
    if (row % rowsBetweenReports == 0)
        user.showProgress(doing, row, rowCount);
}

std::u16string rowsDone(std::size_t rows, std::u16string_view done) {
    return decimalText(rows).append(rows == 1 ? u" row " : u" rows ").append(done);
}

} // namespace brindlewick
