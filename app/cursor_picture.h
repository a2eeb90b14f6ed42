// Pointer pictures in the CUR file format.
#pragma once

#include <QByteArray>
#include <QCursor>
#include <QImage>
#include <QPoint>

class QWidget;

namespace brindlewick {

struct CursorPicture {
    QImage image;
    QPoint hotSpot; ///< pixels from the picture's top left corner, inside the picture
};

/// The picture in a CUR file's bytes: the first that is 32 pixels wide, else the first. Fails with
/// invalidPicture if the bytes are not a CUR file. The format is Microsoft's ICONDIR of type 2; its entries
/// have the hot spot in place of an icon's planes and bit count.
[[nodiscard]] CursorPicture cursorPictureFromBytes(const QByteArray& bytes);

/// The pointer for the widget's screen, where it is as large as the picture is on a screen of one device
/// pixel per unit.
[[nodiscard]] QCursor cursorFor(const QWidget& widget, const CursorPicture& picture);

} // namespace brindlewick
