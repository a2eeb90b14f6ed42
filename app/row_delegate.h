// Draws the cells of the lists so that file names can be distinguished.
#pragma once

#include <QFontMetrics>
#include <QStyledItemDelegate>
#include <string>
#include <string_view>

class QAbstractItemView;

namespace brindlewick {

/// A model returns true for this role where a cell contains a path, and the whole text for Qt::ToolTipRole.
inline constexpr int isPathRole = Qt::UserRole;

/// Shortens paths so that the file name shows. A tool tip shows the whole text of a shortened cell.
class RowDelegate : public QStyledItemDelegate {
public:
    explicit RowDelegate(QAbstractItemView& view);
    /// Marks the text where a cell shows it, in any letter case. A mark on a cell's ellipsis means that the
    /// text is in the part that does not show.
    void setMarkedText(std::u16string_view text);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] QRect textRect(const QStyleOptionViewItem& option) const;
    [[nodiscard]] int roomForText(const QStyleOptionViewItem& option) const;
    void paintMarks(QPainter& painter, QStyleOptionViewItem cell) const;

    QAbstractItemView& view_;
    std::u16string marked_; ///< with its case folded
};

/// The path if it is at most `width` pixels wide. Else an ellipsis replaces the middle of its folders; the
/// file name stays whole if it fits.
[[nodiscard]] QString shortenedPath(const QString& path, const QFontMetrics& metrics, int width);

/// A tool tip that shows the text without markup, in lines of at most `width` pixels.
[[nodiscard]] QString wrappedTip(const QString& text, const QFontMetrics& metrics, int width);

} // namespace brindlewick
