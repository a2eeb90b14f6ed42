#include "core/text_file_reader.h"

#include "platform/failure.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <cstring>

namespace brindlewick {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF"sv;
constexpr std::string_view utf16LittleEndianMark = "\xFF\xFE"sv;
constexpr std::size_t bufferLength = pieceLength * 2;      // bytes: the units of a UTF-16 piece
constexpr std::size_t utf8StretchLength = pieceLength / 2; // bytes; small enough to stay in the cache

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

void decodeUtf16(std::string_view bytes, char16_t* target) {
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        target[at / 2] = static_cast<char16_t>(low | (high << 8));
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

TextFileReader::TextFileReader() : bytes_(std::make_unique_for_overwrite<char[]>(bufferLength)) {}

bool TextFileReader::open(std::u16string_view path) {
    const bool hasBytes = start(path);
    // No character has more bytes than three a code unit, none fewer than one. What lies between is counted.
    if (!mark_.isUtf8 || file_->length() <= maxTextLength)
        return hasBytes;
    if (file_->length() > 3 * (maxTextLength + 1))
        throw Failure(FailureNumber::outOfMemory);
    nextPiece();
    for (UnitBuffer text(maxTextLength); readMore(text); text.cutTo(0))
        if (pause_)
            pause_();
    return start(path);
}

bool TextFileReader::start(std::u16string_view path) {
    file_.emplace(path);
    begin_ = end_ = 0;
    gaveAPiece_ = false;
    isPieceComplete_ = true;
    // What has no length, a pipe among it, is not read: nobody may ever write to it.
    const bool hasBytes = file_->length() > 0;
    atEnd_ = !hasBytes;
    fillBuffer(bufferLength);
    mark_ = DetectByteOrderMark(buffered().substr(0, 4));
    if (mark_.isUtf8)
        begin_ = utf8Mark.size();
    else if (mark_.isUnicode && buffered().starts_with(utf16LittleEndianMark))
        begin_ = utf16LittleEndianMark.size();
    return hasBytes;
}

bool TextFileReader::nextPiece() {
    if (gaveAPiece_) {
        if (mark_.isUtf8)
            return false;
        fillBuffer(bytesPerUnit());
        if (buffered().size() < bytesPerUnit())
            return false;
    }
    gaveAPiece_ = true;
    isPieceComplete_ = false;
    pieceUnits_ = 0;
    return true;
}

bool TextFileReader::readMore(UnitBuffer& text) {
    if (isPieceComplete_)
        return false;
    if (mark_.isUtf8)
        ReadUtf8Stream(text);
    else
        ReadWithTextStream(text);
    return true;
}

void TextFileReader::ReadUtf8Stream(UnitBuffer& text) {
    fillBuffer(utf8StretchLength);
    std::string_view bytes = buffered().substr(0, utf8StretchLength);
    const bool isLast = atEnd_ && bytes.size() == buffered().size();
    if (!isLast)
        bytes = bytes.substr(0, completeUtf8Length(bytes));
    text.makeRoom(bytes.size()); // no character has more code units than bytes
    const std::size_t units = decodeUtf8(bytes, text.end());
    text.advance(units);
    begin_ += bytes.size();
    pieceUnits_ += units;
    if (pieceUnits_ > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
    isPieceComplete_ = isLast;
}

void TextFileReader::ReadWithTextStream(UnitBuffer& text) {
    fillBuffer(pieceLength * bytesPerUnit());
    const std::string_view bytes = buffered().substr(0, pieceLength * bytesPerUnit());
    const std::size_t units = bytes.size() / bytesPerUnit();
    text.makeRoom(units);
    if (mark_.isUnicode)
        decodeUtf16(bytes, text.end());
    else
        decodeWindows1252(bytes, text.end());
    text.advance(units);
    begin_ += bytes.size();
    isPieceComplete_ = true;
}

void TextFileReader::fillBuffer(std::size_t wanted) {
    if (atEnd_ || end_ - begin_ >= wanted)
        return;
    std::memmove(bytes_.get(), bytes_.get() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    const std::size_t count = file_->read({bytes_.get() + end_, bufferLength - end_}, pause_);
    bytesRead_ += count;
    end_ += count;
    atEnd_ = end_ < bufferLength;
}

std::vector<std::u16string> ReadFileToPieces(std::u16string_view path) {
    TextFileReader reader;
    reader.open(path);
    std::vector<std::u16string> pieces;
    for (UnitBuffer text(maxTextLength); reader.nextPiece(); text.cutTo(0)) {
        while (reader.readMore(text)) {
        }
        pieces.emplace_back(text.view());
    }
    return pieces;
}

} // namespace brindlewick
