// The pictures are drawn on a grid of 16 units.
#include "app/caption_picture.h"

#include <QPainter>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr qreal grid = 16;

void paintPlus(QPainter& painter) {
    painter.drawLine(QLineF(8, 2.5, 8, 13.5));
    painter.drawLine(QLineF(2.5, 8, 13.5, 8));
}

/// A bin with a lid, a handle and two ribs.
void paintBin(QPainter& painter) {
    painter.drawLine(QLineF(2, 4, 14, 4));
    painter.drawPolyline(QPolygonF({{5.5, 4}, {5.5, 1.5}, {10.5, 1.5}, {10.5, 4}}));
    painter.drawPolyline(QPolygonF({{3.5, 4}, {4.5, 14.5}, {11.5, 14.5}, {12.5, 4}}));
    painter.drawLine(QLineF(6.7, 7, 6.9, 11.7));
    painter.drawLine(QLineF(9.3, 7, 9.1, 11.7));
}

} // namespace

void paintCaptionPicture(QPainter& painter, CaptionPicture picture, const QRectF& box, const QColor& colour) {
    const qreal side = std::min(box.width(), box.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center() - QPointF(side, side) / 2);
    painter.scale(side / grid, side / grid);
    const qreal width = picture == CaptionPicture::plus ? 2.2 : 1.4;
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    if (picture == CaptionPicture::plus)
        paintPlus(painter);
    else if (picture == CaptionPicture::bin)
        paintBin(painter);
    painter.restore();
}

} // namespace brindlewick
