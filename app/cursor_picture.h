// Pointer pictures: the CUR file format, picture and hot spot.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>

namespace brindlewick {

struct CursorPicture {
    QImage image;
    QPoint hotSpot; ///< pixels from the picture's top left corner, inside the picture
};

/// The picture of a CUR file's bytes: the one 32 pixels wide where there are several, else the first. Fails
/// with invalidPicture for anything that is no such file. Format: Microsoft's ICONDIR with type 2, whose
/// entries carry the hot spot where icons carry planes and bit count.
CursorPicture cursorPictureFromBytes(const QByteArray& bytes);

} // namespace brindlewick
