// Draws the cells of the lists so that file names can be distinguished.
#pragma once

#include <QFontMetrics>
#include <QStyledItemDelegate>

class QAbstractItemView;

namespace brindlewick {

/// A model returns true for this role where a cell contains a path, and the whole text for Qt::ToolTipRole.
inline constexpr int isPathRole = Qt::UserRole;

/// Shortens paths so that the file name shows. A tool tip shows the whole text of a shortened cell.
class RowDelegate : public QStyledItemDelegate {
public:
    explicit RowDelegate(QAbstractItemView& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] int roomForText(const QStyleOptionViewItem& option) const;

    QAbstractItemView& view_;
};

/// The path if it is at most `width` pixels wide. Else an ellipsis replaces the middle of its folders; the
/// file name stays whole if it fits.
[[nodiscard]] QString shortenedPath(const QString& path, const QFontMetrics& metrics, int width);

} // namespace brindlewick
