// Every offset and length from the file is checked before it is used.
#include "app/cursor_picture.h"

#include "app/small_file.h"
#include "platform/failure.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QWidget>
#include <cstdint>

namespace brindlewick {

namespace {

constexpr qsizetype directorySize = 6;
constexpr qsizetype entrySize = 16;
constexpr int maxSide = 256; // pixels

std::uint32_t littleEndian(const QByteArray& bytes, qsizetype at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

void appendLittleEndian(QByteArray& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>(value >> (8 * i) & 0xFF));
}

void require(bool condition) {
    if (!condition)
        throw Failure(FailureNumber::invalidPicture);
}

/// The offset of the chosen picture's directory entry.
qsizetype chosenEntry(const QByteArray& bytes) {
    require(bytes.size() >= directorySize + entrySize);
    require(littleEndian(bytes, 0, 2) == 0 && littleEndian(bytes, 2, 2) == 2);
    const auto count = static_cast<qsizetype>(littleEndian(bytes, 4, 2));
    require(count > 0 && bytes.size() >= directorySize + count * entrySize);
    for (qsizetype i = 0; i < count; ++i)
        if (bytes[directorySize + i * entrySize] == 32)
            return directorySize + i * entrySize;
    return directorySize;
}

/// The picture as an icon file with one entry, which Qt's plug-in can read. Planes and bit count are copied
/// from the bitmap's header, offsets 12 and 14.
QByteArray asIconFile(const QByteArray& bytes, qsizetype entry, const QByteArray& picture) {
    require(picture.size() >= 40);
    QByteArray icon;
    appendLittleEndian(icon, 0, 2);
    appendLittleEndian(icon, 1, 2);
    appendLittleEndian(icon, 1, 2);
    icon.append(bytes.mid(entry, 4)).append(picture.mid(12, 4));
    appendLittleEndian(icon, static_cast<std::uint32_t>(picture.size()), 4);
    appendLittleEndian(icon, static_cast<std::uint32_t>(directorySize + entrySize), 4);
    return icon.append(picture);
}

} // namespace

CursorPicture cursorPictureFromBytes(const QByteArray& bytes) {
    const qsizetype entry = chosenEntry(bytes);
    const auto length = static_cast<qsizetype>(littleEndian(bytes, entry + 8, 4));
    const auto offset = static_cast<qsizetype>(littleEndian(bytes, entry + 12, 4));
    require(length > 0 && offset >= directorySize + entrySize && offset <= bytes.size() &&
            length <= bytes.size() - offset);
    const QByteArray picture = bytes.mid(offset, length);

    CursorPicture cursor;
    cursor.image = picture.startsWith("\x89PNG")
                       ? pictureFromBytes(picture, maxSide, "PNG")
                       : pictureFromBytes(asIconFile(bytes, entry, picture), maxSide, "ICO");
    cursor.hotSpot = QPoint(static_cast<int>(littleEndian(bytes, entry + 4, 2)),
                            static_cast<int>(littleEndian(bytes, entry + 6, 2)));
    require(cursor.image.rect().contains(cursor.hotSpot));
    return cursor;
}

QCursor cursorFor(const QWidget& widget, const CursorPicture& picture) {
    // The X server's pointers are in device pixels; Qt scales those of the other systems itself.
    const bool isScaled = QGuiApplication::platformName() != QStringLiteral("xcb");
    const qreal factor = isScaled ? 1 : widget.devicePixelRatioF();
    const QImage image =
        picture.image.scaled(picture.image.size() * factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QPoint hotSpot = (QPointF(picture.hotSpot) * factor).toPoint();
    return QCursor(QPixmap::fromImage(image), hotSpot.x(), hotSpot.y());
}

} // namespace brindlewick
