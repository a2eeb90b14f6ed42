#include "output/export_progress.h"

#include "platform/native_path.h"
#include "platform/text.h"

namespace brindlewick {

namespace {

constexpr std::size_t rowsBetweenReports = 1000;

} // namespace

void ExportProgress::begin() {
    if (indicator_ == nullptr)
        return;
    indicator_->setCaption(caption());
    user_.yield();
}

void ExportProgress::showRow(std::size_t row, std::size_t rowCount) {
    if (row % rowsBetweenReports == 0)
        user_.showProgress(doing_, row, rowCount);
}

void ExportProgress::indicateRow(std::size_t row, std::size_t rowCount) {
    if (indicator_ == nullptr)
        return;
    indicator_->setValue(static_cast<int>(row * 100 / rowCount));
    if (row % rowsBetweenReports == 0)
        indicator_->setCaption(caption() + u" (" + decimalText(row) + u")");
}

void ExportProgress::finish() {
    setFinal(100, u"Done.");
}

void ExportProgress::fail() {
    setFinal(0, u"Progress Bar");
}

std::u16string ExportProgress::caption() const {
    return std::u16string(u"Writing file: ").append(fileNamePart(path_));
}

void ExportProgress::setFinal(int value, std::u16string_view caption) {
    if (indicator_ == nullptr)
        return;
    if (setsFinalValue_)
        indicator_->setValue(value);
    indicator_->setCaption(caption);
}

std::u16string rowsDone(std::size_t rows, std::u16string_view done) {
    return decimalText(rows).append(rows == 1 ? u" row " : u" rows ").append(done);
}

} // namespace brindlewick
