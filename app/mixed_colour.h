// Colours between two colours of a palette.
#pragma once

#include <QColor>

namespace brindlewick {

/// `share` of the first colour, 0 to 1, and the rest of the second.
[[nodiscard]] inline QColor mixedColour(const QColor& first, const QColor& second, float share) {
    const auto mixed = [share](float a, float b) { return a * share + b * (1 - share); };
    return QColor::fromRgbF(mixed(first.redF(), second.redF()), mixed(first.greenF(), second.greenF()),
                            mixed(first.blueF(), second.blueF()));
}

} // namespace brindlewick
