// Check boxes, option buttons and menus whose outlines can be seen in dark colours.
#pragma once

#include <QProxyStyle>

namespace brindlewick {

/// Qt's Fusion style, whose outlines are darker than the window: nearly invisible in dark colours. Here they
/// are mixed from the colours of text and background, with a contrast of 3 to 1 or more if text and
/// background are about black and white. The boxes grow with the type, which Fusion's do not.
class IndicatorStyle : public QProxyStyle {
public:
    IndicatorStyle() : QProxyStyle(QStringLiteral("fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
};

/// Makes IndicatorStyle the application's style if that is Fusion; other styles draw outlines of their own.
void outlineIndicators();

} // namespace brindlewick
