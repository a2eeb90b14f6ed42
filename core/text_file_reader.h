// Reads a text file in pieces; its first bytes decide the decoding.
#pragma once

#include "core/unit_buffer.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

/// An open text file. Readers on several threads may share it.
struct TextFile {
    explicit TextFile(std::u16string_view path) : bytes(path) {}

    InputFile bytes;
    ByteOrderMark mark;
    std::uint64_t textStart = 0; ///< bytes before the text: a mark that is not part of it

    std::size_t bytesPerUnit() const noexcept { return mark.isUnicode ? 2 : 1; }
};

/// Decodes a file's text, from its beginning or from a byte within, with only a small part of it in memory.
///
/// With a UTF-8 mark the whole text (without the mark) is one piece. With a UTF-16 or UTF-32 mark the bytes
/// are read as UTF-16 little-endian, which is wrong for three of the four marks, and kept; a leading FF FE
/// and an odd last byte are dropped. Any other file is single-byte text. UTF-16 and single-byte text come in
/// pieces of pieceLength code units, regardless of the content. An empty text is one empty piece.
class TextFileReader {
public:
    TextFileReader();

    /// Opens a file and reads its mark. False when the file has no bytes; it is then one empty piece. Fails
    /// as InputFile does.
    bool open(std::u16string_view path);
    /// Continues in an open file from the byte `offset` on: the start of a character, or, in a file of
    /// several pieces, of a piece.
    void start(std::shared_ptr<const TextFile> file, std::uint64_t offset);
    /// Releases the file.
    void close() noexcept { file_.reset(); }
    const std::shared_ptr<const TextFile>& file() const noexcept { return file_; }

    /// Moves to the next piece; false when there is none left. Fails with deviceIoError when reading does.
    bool nextPiece();
    /// Appends the next part of the piece to `text`, at most pieceLength code units; false, with nothing
    /// appended, when there is none left. Fails with deviceIoError when reading does.
    bool readMore(UnitBuffer& text);
    /// True when readMore has nothing more to append.
    bool isPieceComplete() const noexcept { return isPieceComplete_; }
    /// The offset of the next byte to be decoded, from the file's beginning.
    std::uint64_t offset() const noexcept { return bufferOffset_ + begin_; }

    /// In text with a UTF-8 mark: makes readMore stop, once, before the first separator at or after the byte
    /// `from`. A separator is a "," that is followed by no blank, or by blanks and then a double quote, "{",
    /// "[" or a line end; most commas in prose are not separators. In UTF-8 a comma is never part of another
    /// character, so decoding can also start there.
    void breakAtSeparatorFrom(std::uint64_t from) noexcept { breakFrom_ = from; }
    /// True when the next byte to be decoded is that separator.
    bool isAtBreak() const noexcept { return isAtBreak_; }
    /// Moves to the first separator at or after offset(); false when there is none before the byte `to`.
    bool skipToSeparator(std::uint64_t to);

private:
    static constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();

    void ReadUtf8Stream(UnitBuffer& text);
    void ReadWithTextStream(UnitBuffer& text);
    /// Reads until `wanted` bytes are buffered, or the file ends.
    void fillBuffer(std::size_t wanted);
    std::string_view buffered() const noexcept { return {bytes_.get() + begin_, end_ - begin_}; }

    std::shared_ptr<const TextFile> file_;
    std::unique_ptr<char[]> bytes_;
    std::uint64_t bufferOffset_ = 0; ///< of the buffer's first byte in the file
    std::size_t begin_ = 0;          ///< of the bytes that are read but not yet decoded
    std::size_t end_ = 0;
    bool atEnd_ = false;
    bool gaveAPiece_ = false;
    bool isPieceComplete_ = true;
    std::uint64_t breakFrom_ = never;
    bool isAtBreak_ = false;
};

/// All pieces of a file, at least one.
std::vector<std::u16string> ReadFileToPieces(std::u16string_view path);

} // namespace brindlewick
