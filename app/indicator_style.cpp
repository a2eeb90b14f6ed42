#include "app/indicator_style.h"

#include "app/mixed_colour.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

namespace brindlewick {

namespace {

constexpr float textShare = 0.6F;
constexpr float menuTextShare = 0.4F;

} // namespace

void IndicatorStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const QPalette& palette = option->palette;
    if (element == PE_PanelMenu) {
        painter->setPen(
            mixedColour(palette.color(QPalette::Text), palette.color(QPalette::Base), menuTextShare));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
    if (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton)
        return;
    if (option->state & State_HasFocus && option->state & State_KeyboardFocusChange)
        return; // the outline has the colour of the focus
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(mixedColour(palette.color(QPalette::Text), palette.color(QPalette::Base), textShare));
    painter->setBrush(Qt::NoBrush);
    // Over Fusion's own outlines.
    const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_IndicatorCheckBox) {
        painter->drawRect(box);
    } else {
        const qreal radius = (option->rect.width() + (option->rect.width() + 1) % 2) / 2.0 - 1;
        painter->drawEllipse(QPointF(option->rect.center() + QPoint(1, 1)), radius, radius);
    }
    painter->restore();
}

int IndicatorStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return widget ? std::max(pixels, widget->fontMetrics().ascent() * 9 / 10) : pixels;
    default:
        return pixels;
    }
}

void outlineIndicators() {
    if (QApplication::style()->name() == QStringLiteral("fusion"))
        QApplication::setStyle(new IndicatorStyle);
}

} // namespace brindlewick
