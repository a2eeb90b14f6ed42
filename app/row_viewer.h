// A window with the whole text of a row of the results and the path of its file.
#pragma once

#include "extract/results_table.h"

#include <QWidget>
#include <cstddef>
#include <string_view>

class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

namespace brindlewick {

/// The texts can be selected, not edited. A long text is shown in parts, so that one of any length opens at
/// once.
class RowViewer : public QWidget {
public:
    /// `owner` is the window that this one belongs to. The table must outlive the last call of a function.
    RowViewer(QWidget& owner, const ResultsTable& table);

    /// Shows the row, in the place of another one.
    void showRow(std::size_t row);
    /// To be called before the rows are removed. The part that is shown stays.
    void forgetRow();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showPart(int number);

    const ResultsTable& table_;
    std::u16string_view rowText_; ///< in the table
    QPlainTextEdit* text_;
    QWidget* parts_; ///< what chooses a part; hidden if there is one part
    QSpinBox* part_;
    QLineEdit* path_;
};

} // namespace brindlewick
