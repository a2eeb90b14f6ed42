// Reads a text file in pieces; its first bytes decide the decoding.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// What a file's first bytes say about its text.
struct ByteOrderMark {
    bool isUtf8 = false;    ///< EF BB BF
    bool isUnicode = false; ///< a UTF-16 or UTF-32 mark of either byte order
};

/// `firstBytes` are the file's first four bytes, or all of them if there are fewer.
ByteOrderMark DetectByteOrderMark(std::string_view firstBytes) noexcept;

/// Every piece of text but a file's last has this many code units, unless the whole file is one piece.
inline constexpr std::size_t pieceLength = 65536;

/// Gives a file's text piece by piece, holding no more than one.
///
/// With a UTF-8 mark the whole text (without the mark) is one piece. With a UTF-16 or UTF-32 mark the bytes
/// are taken as UTF-16 little-endian, wrong as that is for the other three; a leading FF FE and an odd last
/// byte are dropped. Anything else is single-byte text. The latter two come in pieces of pieceLength code
/// units, cut without regard to what is in them. An empty text is one empty piece.
class TextFileReader {
public:
    /// Opens the file and looks at its mark. Fails as files.h says.
    explicit TextFileReader(std::u16string_view path);

    /// Replaces `piece` by the next one; false, with `piece` empty, when there is none left. Fails with
    /// deviceIoError when reading does, with outOfMemory when a piece would be longer than `longestText`.
    bool next(std::u16string& piece);

private:
    void ReadUtf8Stream(std::u16string& text);
    void ReadWithTextStream(std::u16string& piece);
    /// Reads until the buffer is full or the file ends; what was left in it stays in front.
    void fillBuffer();

    InputFile file_;
    ByteOrderMark mark_;
    std::string buffer_;
    bool atEnd_ = false;
    bool gaveAPiece_ = false;
};

/// All pieces of a file, at least one.
std::vector<std::u16string> ReadFileToPieces(std::u16string_view path);

} // namespace brindlewick
