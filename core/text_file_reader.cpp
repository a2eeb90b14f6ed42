#include "core/text_file_reader.h"

#include "platform/failure.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF"sv;
constexpr std::string_view utf16LittleEndianMark = "\xFF\xFE"sv;
constexpr std::size_t bufferLength = pieceLength * 2; // bytes: the units of a UTF-16 piece

/// How many of the bytes can be decoded before the next ones are known: all but a character cut short at the
/// end.
std::size_t completeUtf8Length(std::string_view bytes) {
    const std::size_t farthest = std::min<std::size_t>(bytes.size(), 3);
    for (std::size_t back = 1; back <= farthest; ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if (byte >= 0xC0) {
            const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return length > back ? bytes.size() - back : bytes.size();
        }
        if (byte < 0x80)
            break;
    }
    return bytes.size();
}

void appendFromUtf16(std::string_view bytes, std::u16string& text) {
    const std::size_t start = text.size();
    text.resize(start + bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        text[start + at / 2] = static_cast<char16_t>(low | (high << 8));
    }
}

} // namespace

ByteOrderMark DetectByteOrderMark(std::string_view firstBytes) noexcept {
    // The UTF-32 marks come first: one of them begins with a UTF-16 mark.
    if (firstBytes.starts_with("\xFF\xFE\0\0"sv) || firstBytes.starts_with("\0\0\xFE\xFF"sv))
        return {.isUtf8 = false, .isUnicode = true};
    if (firstBytes.starts_with(utf8Mark))
        return {.isUtf8 = true, .isUnicode = false};
    if (firstBytes.starts_with(utf16LittleEndianMark) || firstBytes.starts_with("\xFE\xFF"sv))
        return {.isUtf8 = false, .isUnicode = true};
    return {};
}

TextFileReader::TextFileReader(std::u16string_view path) : file_(path) {
    fillBuffer();
    mark_ = DetectByteOrderMark(std::string_view(buffer_).substr(0, 4));
    if (mark_.isUtf8)
        buffer_.erase(0, utf8Mark.size());
    else if (mark_.isUnicode && buffer_.starts_with(utf16LittleEndianMark))
        buffer_.erase(0, utf16LittleEndianMark.size());
}

bool TextFileReader::next(std::u16string& piece) {
    piece.clear();
    if (mark_.isUtf8) {
        if (gaveAPiece_)
            return false;
        ReadUtf8Stream(piece);
    } else {
        ReadWithTextStream(piece);
        if (gaveAPiece_ && piece.empty())
            return false;
    }
    gaveAPiece_ = true;
    return true;
}

void TextFileReader::ReadUtf8Stream(std::u16string& text) {
    // No character has more code units than bytes, so the text never has to move while it grows.
    text.reserve(
        static_cast<std::size_t>(std::min<std::uint64_t>(file_.length(), longestText + bufferLength)));
    for (;;) {
        fillBuffer();
        const std::size_t complete = atEnd_ ? buffer_.size() : completeUtf8Length(buffer_);
        appendFromUtf8(std::string_view(buffer_).substr(0, complete), text);
        buffer_.erase(0, complete);
        if (text.size() > longestText)
            throw Failure(FailureNumber::outOfMemory);
        if (atEnd_)
            return;
    }
}

void TextFileReader::ReadWithTextStream(std::u16string& piece) {
    fillBuffer();
    const std::size_t bytesPerUnit = mark_.isUnicode ? 2 : 1;
    const std::size_t length = std::min(buffer_.size(), pieceLength * bytesPerUnit);
    const std::string_view bytes = std::string_view(buffer_).substr(0, length);
    if (mark_.isUnicode)
        appendFromUtf16(bytes, piece);
    else
        appendFromSingleByte(bytes, piece);
    buffer_.erase(0, length);
}

void TextFileReader::fillBuffer() {
    const std::size_t kept = buffer_.size();
    if (atEnd_ || kept >= bufferLength)
        return;
    buffer_.resize(bufferLength);
    const std::size_t count = file_.read({buffer_.data() + kept, bufferLength - kept});
    buffer_.resize(kept + count);
    atEnd_ = kept + count < bufferLength;
}

std::vector<std::u16string> ReadFileToPieces(std::u16string_view path) {
    TextFileReader reader(path);
    std::vector<std::u16string> pieces;
    for (std::u16string piece; reader.next(piece);)
        pieces.push_back(std::move(piece));
    return pieces;
}

} // namespace brindlewick
