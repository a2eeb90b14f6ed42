// Small pictures for buttons, drawn in one colour at any size.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace brindlewick {

enum class CaptionPicture { none, plus, bin };

/// Draws the picture into the middle of `box`, as large as the box's shorter side.
void paintCaptionPicture(QPainter& painter, CaptionPicture picture, const QRectF& box, const QColor& colour);

} // namespace brindlewick
