// Picture files for tests.
#pragma once

#include <QBuffer>
#include <QImage>
#include <string>

namespace brindlewick::testing {

inline std::string png(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data().toStdString();
}

} // namespace brindlewick::testing
