#include "app/row_delegate.h"

#include "app/mixed_colour.h"
#include "app/qt_text.h"
#include "platform/letter_case.h"
#include "platform/native_path.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr float markShare = 0.4F;

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

void RowDelegate::setMarkedText(std::u16string_view text) {
    marked_ = foldedCase(text);
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (index.data(isPathRole).toBool())
        cell.text = shortenedPath(cell.text, cell.fontMetrics, roomForText(cell));
    view_.style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, &view_);
    if (!marked_.empty())
        paintMarks(*painter, cell);
}

/// Paints the cell again, with another background, where it shows the marked text.
void RowDelegate::paintMarks(QPainter& painter, QStyleOptionViewItem cell) const {
    const std::u16string folded = foldedCase(fromQString(cell.text));
    std::size_t at = folded.find(marked_);
    if (at == std::u16string::npos)
        return;
    QTextLayout layout(cell.text, cell.font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QRect room = textRect(cell);
    const bool isShortened = line.naturalTextWidth() > room.width();
    const qreal end = isShortened ? room.width() : line.naturalTextWidth();
    const qreal lastStart = isShortened ? end - cell.fontMetrics.horizontalAdvance(QChar(u'\u2026')) : end;
    QRegion marks;
    for (; at != std::u16string::npos; at = folded.find(marked_, at + marked_.size())) {
        const qreal left = std::min(line.cursorToX(static_cast<int>(at)), lastStart);
        const qreal right = std::min(line.cursorToX(static_cast<int>(at + marked_.size())), end);
        marks += QRectF(room.left() + left, room.top() + 1, right - left, room.height() - 2).toAlignedRect();
        if (left == lastStart)
            break;
    }
    painter.save();
    painter.setClipRegion(marks, Qt::IntersectClip);
    const QColor highlight = cell.palette.color(QPalette::Highlight);
    if (cell.state & QStyle::State_Selected) {
        const QColor text = cell.palette.color(QPalette::HighlightedText);
        const QColor contrary = text.lightness() > 127 ? Qt::black : Qt::white;
        cell.state &= ~QStyle::State_Selected;
        cell.palette.setColor(QPalette::Text, text);
        cell.backgroundBrush = mixedColour(contrary, highlight, markShare);
    } else {
        cell.backgroundBrush = mixedColour(highlight, cell.palette.color(QPalette::Base), markShare);
    }
    view_.style()->drawControl(QStyle::CE_ItemViewItem, &cell, &painter, &view_);
    painter.restore();
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
    const QString tip = wrappedTip(whole, cell.fontMetrics, view_.screen()->availableSize().width() * 2 / 3);
    QToolTip::showText(event->globalPos(), tip, view_.viewport(), view_.visualRect(index));
    return true;
}

/// The part of the cell in which its style draws the text.
QRect RowDelegate::textRect(const QStyleOptionViewItem& option) const {
    const QStyle& style = *view_.style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, &view_) + 1;
    return style.subElementRect(QStyle::SE_ItemViewItemText, &option, &view_).adjusted(margin, 0, -margin, 0);
}

/// The width in pixels of the part of the cell's text that can be seen. In a list that is scrolled to the
/// right, the hidden part counts too: whoever scrolls is reading the whole text.
int RowDelegate::roomForText(const QStyleOptionViewItem& option) const {
    const QRect text = textRect(option);
    const bool isScrolled = view_.horizontalScrollBar()->value() > 0;
    const int seen = view_.viewport()->width() - text.left();
    return isScrolled ? text.width() : std::min(text.width(), seen);
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

QString wrappedTip(const QString& text, const QFontMetrics& metrics, int width) {
    // Without a width, a tool tip wraps rich text into narrow lines, and plain text not at all.
    return metrics.horizontalAdvance(text) < width
               ? QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped())
               : QStringLiteral("<table width=%1><tr><td>%2</td></tr></table>")
                     .arg(QString::number(width), Qt::convertFromPlainText(breakable(text)));
}

} // namespace brindlewick
