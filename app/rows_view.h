// The base of the three lists' views: rows of equal height, a header, and a hint while there are no rows.
#pragma once

#include <QTableView>
#include <cstddef>
#include <optional>

namespace brindlewick {

class RowsView : public QTableView {
public:
    explicit RowsView(QWidget* parent = nullptr);

    /// Sets the tool tip and the text that is shown while the list is empty.
    void setHint(const QString& hint);
    /// The current row if it is selected.
    [[nodiscard]] std::optional<std::size_t> selectedRow() const;
    void setColumnWidthInTwips(int column, int twips);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void fitToFont();

    QString hint_;
};

} // namespace brindlewick
