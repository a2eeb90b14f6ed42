// Reads a text file in pieces; its first bytes decide the decoding.
#pragma once

#include "core/unit_buffer.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
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

/// Gives a file's text piece by piece, and a piece in stretches, so that no piece need be held as a whole.
///
/// With a UTF-8 mark the whole text (without the mark) is one piece. With a UTF-16 or UTF-32 mark the bytes
/// are taken as UTF-16 little-endian, wrong as that is for the other three; a leading FF FE and an odd last
/// byte are dropped. Anything else is single-byte text. The latter two come in pieces of pieceLength code
/// units, cut without regard to what is in them. An empty text is one empty piece.
class TextFileReader {
public:
    TextFileReader();

    /// Has `pause` called now and then while the bytes of a file are long in coming, and while a very long
    /// file is counted through.
    void setPause(std::function<void()> pause) { pause_ = std::move(pause); }
    /// Opens the file, in place of the one before, and looks at its mark. False when it has no bytes: one
    /// empty piece. Fails as files.h says.
    bool open(std::u16string_view path);
    /// Lets go of the file.
    void close() noexcept { file_.reset(); }

    /// Goes on to the next piece; false when there is none left. Fails with deviceIoError when reading does.
    bool nextPiece();
    /// Appends the piece's next stretch to `text`, at most pieceLength code units; false, with nothing
    /// appended, when there is none left. Fails with deviceIoError when reading does, with outOfMemory when
    /// the piece has become longer than `maxTextLength` since the file was opened.
    bool readMore(UnitBuffer& text);
    /// True when readMore has nothing more to append.
    bool isPieceComplete() const noexcept { return isPieceComplete_; }
    /// Of all files opened.
    std::uint64_t bytesRead() const noexcept { return bytesRead_; }

private:
    bool start(std::u16string_view path);
    void ReadUtf8Stream(UnitBuffer& text);
    void ReadWithTextStream(UnitBuffer& text);
    /// Reads until `wanted` bytes are there, or the file ends.
    void fillBuffer(std::size_t wanted);
    std::string_view buffered() const noexcept { return {bytes_.get() + begin_, end_ - begin_}; }
    std::size_t bytesPerUnit() const noexcept { return mark_.isUnicode ? 2 : 1; }

    std::function<void()> pause_;
    std::optional<InputFile> file_;
    ByteOrderMark mark_;
    std::unique_ptr<char[]> bytes_;
    std::size_t begin_ = 0; ///< of what is read but not yet decoded
    std::size_t end_ = 0;
    bool atEnd_ = false;
    bool gaveAPiece_ = false;
    bool isPieceComplete_ = true;
    std::uint64_t bytesRead_ = 0;
    std::size_t pieceUnits_ = 0; ///< of the piece at hand, so far
};

/// All pieces of a file, at least one.
std::vector<std::u16string> ReadFileToPieces(std::u16string_view path);

} // namespace brindlewick
