// Reads small files as a whole: skins, pointers, pictures. No file makes it read or decode beyond a limit.
#pragma once

#include <QByteArray>
#include <QImage>
#include <cstddef>
#include <string_view>

namespace brindlewick {

/// The file's bytes. Of a file longer than `limit` bytes only the first `limit` + 1, so a size above `limit`
/// shows that it is too long. Fails as InputFile does.
[[nodiscard]] QByteArray readSmallFile(std::u16string_view path, std::size_t limit);

/// The picture in `bytes`, in `format` ("PNG", "ICO") or, if that is nullptr, in any format that Qt can read.
/// Fails with invalidPicture if there is none, or if it is wider or higher than `maxSide` pixels.
[[nodiscard]] QImage pictureFromBytes(const QByteArray& bytes, int maxSide, const char* format = nullptr);

} // namespace brindlewick
