// Lengths in twips, as the window's design gives them.
#pragma once

#include <QPaintDevice>

namespace brindlewick {

/// The whole pixels of the device that the length has, rounded down. 1440 twips are a logical inch.
[[nodiscard]] inline int pixelsFromTwips(int twips, const QPaintDevice& device) {
    constexpr int twipsPerInch = 1440;
    return twips * device.logicalDpiX() / twipsPerInch;
}

} // namespace brindlewick
