// The results table's view: Space ticks the selected rows, Ctrl+C copies them.
#pragma once

#include "app/results_model.h"
#include "app/rows_view.h"
#include "output/clipboard_text.h"

#include <QList>
#include <functional>
#include <utility>
#include <vector>

namespace brindlewick {

class ResultsView : public RowsView {
public:
    /// The model is the view's for good.
    explicit ResultsView(ResultsModel& model, QWidget* parent = nullptr);

    /// The selected rows, in the table's order.
    std::vector<RowRange> selectedRanges() const;
    /// Called when Ctrl+C is pressed on rows.
    void setCopyHandler(std::function<void()> handler) { copyHandler_ = std::move(handler); }
    /// Gives the columns the widths of the table that is shown.
    void setWidthsInTwips(const QList<int>& twips);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void toggleSelected();

    ResultsModel& results_;
    std::function<void()> copyHandler_;
};

} // namespace brindlewick
