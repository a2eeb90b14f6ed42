#include "app/row_delegate.h"

#include "app/qt_text.h"
#include "platform/native_path.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace brindlewick {

namespace {

/// The text with invisible places to break lines in words that no tool tip has room for.
QString breakable(const QString& text) {
    constexpr int longestWord = 60; // code units
    QString broken;
    int length = 0;
    for (const QChar unit : text) {
        length = unit.isSpace() ? 0 : length + 1;
        if (length > longestWord && !unit.isLowSurrogate()) {
            broken += QChar(0x200B);
            length = 1;
        }
        broken += unit;
    }
    return broken;
}

} // namespace

RowDelegate::RowDelegate(QAbstractItemView& view) : QStyledItemDelegate(&view), view_(view) {}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (index.data(isPathRole).toBool())
        cell.text = shortenedPath(cell.text, cell.fontMetrics, roomForText(cell));
    view_.style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, &view_);
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    if (!index.isValid())
        return false; // the list's own tool tip is shown
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (cell.fontMetrics.horizontalAdvance(cell.text) <= roomForText(cell))
        return false;
    const QString whole = index.data(Qt::ToolTipRole).toString();
    // Without a width, a tool tip wraps rich text into narrow lines, and plain text not at all.
    const int widest = view_.screen()->availableSize().width() * 2 / 3;
    const QString tip = cell.fontMetrics.horizontalAdvance(whole) < widest
                            ? QStringLiteral("<p style='white-space:pre'>%1</p>").arg(whole.toHtmlEscaped())
                            : QStringLiteral("<table width=%1><tr><td>%2</td></tr></table>")
                                  .arg(QString::number(widest), Qt::convertFromPlainText(breakable(whole)));
    QToolTip::showText(event->globalPos(), tip, view_.viewport(), view_.visualRect(index));
    return true;
}

/// The width in pixels of the part of the cell's text that can be seen. In a list that is scrolled to the
/// right, the hidden part counts too: whoever scrolls is reading the whole text.
int RowDelegate::roomForText(const QStyleOptionViewItem& option) const {
    const QStyle& style = *view_.style();
    const QRect text = style.subElementRect(QStyle::SE_ItemViewItemText, &option, &view_);
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, &view_) + 1;
    const bool isScrolled = view_.horizontalScrollBar()->value() > 0;
    const int right = isScrolled ? text.right() : std::min(text.right(), view_.viewport()->width() - 1);
    return right - text.left() + 1 - 2 * margin;
}

QString shortenedPath(const QString& path, const QFontMetrics& metrics, int width) {
    if (metrics.horizontalAdvance(path) <= width)
        return path;
    const auto nameLength = static_cast<qsizetype>(fileNamePart(fromQString(path)).size());
    const QString end = path.right(nameLength + 1); // with its separator
    const QString folders = path.chopped(end.size());
    const int room = width - metrics.horizontalAdvance(end);
    if (folders.isEmpty() || room < metrics.horizontalAdvance(QChar(u'\u2026')))
        return metrics.elidedText(path.right(nameLength), Qt::ElideMiddle, width);
    return metrics.elidedText(folders, Qt::ElideMiddle, room) + end;
}

} // namespace brindlewick
