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
    if (row % rowsBetweenReports != 0)
        return;
    std::u16string text(doing_);
    text.append(u" row ").append(groupedText(row)).append(u" of ").append(groupedText(rowCount));
    if (!path_.empty())
        text.append(u": ").append(path_);
    user_.showProgress(text, row, rowCount);
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

std::u16string exportSummary(const ExportOutcome& outcome, std::u16string_view done,
                             std::u16string_view path) {
    const auto& [tableRows, takenRows, untickedRows, replacedCharacters] = outcome;
    const auto withPath = [path](std::u16string text, std::u16string_view file) {
        return path.empty() ? text : text.append(file).append(path);
    };
    if (untickedRows == tableRows)
        return withPath(std::u16string(u"No rows ")
                            .append(done)
                            .append(tableRows == 0 ? u" because there are none" : u" because none is ticked"),
                        u"; file without rows: ");
    std::u16string rows = countText(takenRows, u"row", u"rows");
    if (takenRows + untickedRows < tableRows)
        rows = groupedText(takenRows) + u" of " + countText(tableRows, u"row", u"rows");
    return withPath(
        joinedClauses({
            rows.append(u" ").append(done),
            unlessNone(untickedRows, u"row left out because it is not ticked",
                       u"rows left out because they are not ticked"),
            unlessNone(replacedCharacters, u"character written as \"?\"", u"characters written as \"?\""),
        }),
        u"; file: ");
}

} // namespace brindlewick
