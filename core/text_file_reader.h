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

/// A file open for reading text. Readers on several threads may share it.
struct TextFile {
    explicit TextFile(std::u16string_view path) : bytes(path) {}

    InputFile bytes;
    ByteOrderMark mark;
    std::uint64_t textStart = 0; ///< bytes before the text: a mark that is not part of it

    std::size_t bytesPerUnit() const noexcept { return mark.isUnicode ? 2 : 1; }
};

/// Decodes a file's text, from its beginning or from a byte within, and holds only a small part of it.
///
/// With a UTF-8 mark the whole text (without the mark) is one piece. With a UTF-16 or UTF-32 mark the bytes
/// are read as UTF-16 little-endian, wrong as that is for the other three; a leading FF FE and an odd last
/// byte are dropped. Anything else is single-byte text. The latter two come in pieces of pieceLength code
/// units, cut without regard to what is in them. An empty text is one empty piece.
class TextFileReader {
public:
    TextFileReader();

    /// Opens a file and looks at its mark. False when it has no bytes: one empty piece. Fails as files.h
    /// says.
    bool open(std::u16string_view path);
    /// Goes on in a file that is open, from the byte `offset` on, which is where a character, or a piece in a
    /// file of several, begins.
    void start(std::shared_ptr<const TextFile> file, std::uint64_t offset);
    /// Lets go of the file.
    void close() noexcept { file_.reset(); }
    const std::shared_ptr<const TextFile>& file() const noexcept { return file_; }

    /// Goes on to the next piece; false when there is none left. Fails with deviceIoError when reading does.
    bool nextPiece();
    /// Appends the piece's next stretch to `text`, at most pieceLength code units; false, with nothing
    /// appended, when there is none left. Fails with deviceIoError when reading does.
    bool readMore(UnitBuffer& text);
    /// True when readMore has nothing more to append.
    bool isPieceComplete() const noexcept { return isPieceComplete_; }
    /// Of the next byte to be decoded, from the file's beginning.
    std::uint64_t offset() const noexcept { return bufferOffset_ + begin_; }

    /// In text with a UTF-8 mark: readMore stops, once, before the first separator at or after the byte
    /// `from`. That is a "," which a quote, a bracket, a line end or no blank follows, so that most commas in
    /// running text are none. A comma is a character by itself, so text can be decoded from there as well.
    void breakAtSeparatorFrom(std::uint64_t from) noexcept { breakFrom_ = from; }
    /// True when the next byte to be decoded is the separator that breakAtSeparatorFrom asked for.
    bool isAtBreak() const noexcept { return isAtBreak_; }
    /// Moves to the first separator at or after the offset at hand; false when there is none before `to`.
    bool skipToSeparator(std::uint64_t to);

private:
    static constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();

    void ReadUtf8Stream(UnitBuffer& text);
    void ReadWithTextStream(UnitBuffer& text);
    /// Reads until `wanted` bytes are there, or the file ends.
    void fillBuffer(std::size_t wanted);
    std::string_view buffered() const noexcept { return {bytes_.get() + begin_, end_ - begin_}; }

    std::shared_ptr<const TextFile> file_;
    std::unique_ptr<char[]> bytes_;
    std::uint64_t bufferOffset_ = 0; ///< of the buffer's first byte in the file
    std::size_t begin_ = 0;          ///< of what is read but not yet decoded
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
