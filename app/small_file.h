// Whole files of a size that the window can hold at once: skins, pointers, pictures.
#pragma once

#include <QByteArray>
#include <QImage>
#include <cstddef>
#include <string_view>

namespace brindlewick {

/// The file's bytes, at most `limit` of them and one more when it is longer, so that the caller can tell.
/// Fails as platform/files.h says.
QByteArray readSmallFile(std::u16string_view path, std::size_t limit);

/// The picture in `bytes`, in any format that Qt's plug-ins read; `format` narrows it to one ("PNG", "ICO").
/// Fails with invalidPicture, for a picture wider or higher than `largestSide` pixels too.
QImage pictureFromBytes(const QByteArray& bytes, int largestSide, const char* format = nullptr);

} // namespace brindlewick
