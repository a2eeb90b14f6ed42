// The view of the results table: Space ticks the selected rows, Ctrl+C copies them, Return shows a whole
// text.
#pragma once

#include "app/results_model.h"
#include "app/rows_view.h"
#include "output/clipboard_text.h"

#include <QList>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace brindlewick {

class ResultsView : public RowsView {
public:
    /// The view always shows `model`, which must outlive it.
    explicit ResultsView(ResultsModel& model, QWidget* parent = nullptr);

    /// The selected rows, in the table's order.
    [[nodiscard]] std::vector<RowRange> selectedRanges() const;
    /// Sets the function that Ctrl+C calls.
    void setCopyHandler(std::function<void()> handler) { copyHandler_ = std::move(handler); }
    /// Sets the function that Return and a double click call with the row's number.
    void setShowTextHandler(std::function<void(std::size_t)> handler) {
        showTextHandler_ = std::move(handler);
    }
    /// Calls that function for the current row, if there is one.
    void showWholeText();
    /// Sets the column widths, from the first column on.
    void setWidthsInTwips(const QList<int>& twips);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void toggleSelected();
    [[nodiscard]] QRect checkBoxOf(const QModelIndex& index) const;

    ResultsModel& results_;
    std::function<void()> copyHandler_;
    std::function<void(std::size_t)> showTextHandler_;
};

} // namespace brindlewick
