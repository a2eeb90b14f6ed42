// The base of the three lists' views: rows of equal height, a header, and a step while there are no rows.
#pragma once

#include "app/empty_list.h"

#include <QTableView>
#include <cstddef>
#include <optional>
#include <string_view>

namespace brindlewick {

class RowDelegate;

class RowsView : public QTableView {
public:
    explicit RowsView(QWidget* parent = nullptr);

    /// Sets what is shown while the list is empty.
    void setStep(const Step& step) { step_ = step; }
    void setModel(QAbstractItemModel* model) override;
    /// The current row if it is selected.
    [[nodiscard]] std::optional<std::size_t> selectedRow() const;
    /// Sets the column's width and makes the size hint wide enough for it.
    void setColumnWidthInTwips(int column, int twips);
    [[nodiscard]] QSize sizeHint() const override;
    /// Sets for how many rows there is room at least; at first four.
    void setMinRows(int rows);
    /// Marks the text where the shown cells contain it, in any letter case. The empty text marks nothing.
    void setMarkedText(std::u16string_view text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void fitToFont();
    void showScrollBarsIfNeeded();

    RowDelegate* delegate_;
    Step step_;
    int minRows_ = 4;
    int wantedWidth_ = 0; ///< pixels; of the columns together
};

} // namespace brindlewick
