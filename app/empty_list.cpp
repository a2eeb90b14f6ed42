#include "app/empty_list.h"

#include "app/mixed_colour.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr float faintness = 0.65F;
constexpr int longestLine = 44; // characters of average width

QRect wrapped(const QPainter& painter, const QRect& room, const QString& text) {
    return painter.fontMetrics().boundingRect(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
}

} // namespace

void paintStep(QPainter& painter, const QRect& room, const Step& step, const QPalette& palette) {
    // Not QPalette::PlaceholderText: some dark desktop themes do not set it.
    QColor faint = palette.color(QPalette::Text);
    faint.setAlphaF(faintness);
    painter.setPen(faint);
    const int line = painter.fontMetrics().height();
    const int circle = step.number > 0 ? line * 7 / 4 : 0;
    QRect area = room.adjusted(line / 2, line / 4, -line / 2, -line / 4);
    const int width = std::min(area.width(), painter.fontMetrics().averageCharWidth() * longestLine);
    area = QRect(area.center().x() - width / 2, area.top(), width, area.height());

    QString text = step.text;
    int textHeight = wrapped(painter, area, text).height();
    const int detailHeight =
        step.detail.isEmpty() ? 0 : line / 2 + wrapped(painter, area, step.detail).height();
    const bool hasDetail = detailHeight > 0 && circle + line / 2 + textHeight + detailHeight <= area.height();
    const int height = circle + line / 2 + textHeight + (hasDetail ? detailHeight : 0);
    const QRect whole = area;
    if (height <= area.height()) {
        // No narrower than needed for lines of about one length: a last line of one word looks lost.
        const auto narrower = [&] { return area.adjusted(line / 4, 0, -line / 4, 0); };
        while (narrower().width() > 0 && wrapped(painter, narrower(), text).height() == textHeight &&
               wrapped(painter, narrower(), text).width() <= narrower().width())
            area = narrower();
        area.setTop(area.center().y() - height / 2);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(faint, std::max(1.0, line / 14.0)));
        const QRectF ring(area.center().x() - circle / 2.0, area.top(), circle, circle);
        if (step.number > 0) {
            painter.drawEllipse(ring);
            painter.drawText(ring, Qt::AlignCenter, QString::number(step.number));
        }
        area.setTop(area.top() + circle + line / 2);
        if (hasDetail)
            painter.drawText(
                QRect(whole.left(), area.top() + textHeight + line / 2, whole.width(), detailHeight),
                static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap, step.detail);
    } else if (step.number > 0) {
        text = QString::number(step.number) + QStringLiteral(". ") + text;
        textHeight = wrapped(painter, area, text).height();
        if (textHeight < area.height())
            area.setTop(area.center().y() - textHeight / 2);
    }
    painter.drawText(area, static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap, text);
}

void paintFocusFrame(QPainter& painter, const QRect& room, const QPalette& palette) {
    constexpr int thickness = 2; // pixels
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    // Mixed with the text's colour: some skins have a highlight that is hardly seen as a line.
    const QColor colour =
        mixedColour(palette.color(QPalette::Text), palette.color(QPalette::Highlight), 0.5F);
    painter.setPen(QPen(colour, thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(room.adjusted(1, 1, -1, -1));
}

} // namespace brindlewick
