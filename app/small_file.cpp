#include "app/small_file.h"

#include "platform/failure.h"
#include "platform/files.h"

#include <QBuffer>
#include <QImageReader>
#include <array>
#include <span>

namespace brindlewick {

QByteArray readSmallFile(std::u16string_view path, std::size_t limit) {
    const InputFile file(path);
    QByteArray bytes;
    std::array<char, 16384> chunk;
    while (static_cast<std::size_t>(bytes.size()) <= limit) {
        const std::size_t room = limit + 1 - static_cast<std::size_t>(bytes.size());
        const std::size_t count = file.readAt(static_cast<std::uint64_t>(bytes.size()),
                                              std::span(chunk).first(std::min(room, chunk.size())));
        if (count == 0)
            break;
        bytes.append(chunk.data(), static_cast<qsizetype>(count));
    }
    return bytes;
}

QImage pictureFromBytes(const QByteArray& bytes, int maxSide, const char* format) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format ? QByteArray(format) : QByteArray());
    reader.setDecideFormatFromContent(format == nullptr);
    const QSize size = reader.size();
    if (size.width() > maxSide || size.height() > maxSide)
        throw Failure(FailureNumber::invalidPicture);
    const QImage picture = reader.read();
    if (picture.isNull() || picture.width() > maxSide || picture.height() > maxSide)
        throw Failure(FailureNumber::invalidPicture);
    return picture;
}

} // namespace brindlewick
