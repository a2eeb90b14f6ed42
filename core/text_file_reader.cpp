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
constexpr std::size_t maxSeparatorLook = 32;               // bytes after a comma
constexpr std::size_t utf8StretchLength = pieceLength / 2; // bytes; small enough to stay in the cache

/// How many of the bytes can be decoded without the next ones: all but an incomplete character at the end.
std::size_t completeUtf8Length(std::string_view bytes) {
    const std::size_t maxBack = std::min<std::size_t>(bytes.size(), 3);
    for (std::size_t back = 1; back <= maxBack; ++back) {
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

/// A "," that most likely separates members or elements. In running text a blank and a letter follow one.
bool isSeparator(std::string_view bytes, std::size_t comma) {
    const std::string_view next = bytes.substr(comma + 1, maxSeparatorLook);
    const std::size_t first = next.find_first_not_of(' ');
    return first == 0 || (first != std::string_view::npos &&
                          std::string_view("\"{[\r\n").find(next[first]) != std::string_view::npos);
}

/// The first separator from `from` on and before `to`, else `to`. `bytes` has maxSeparatorLook more after it,
/// or all.
std::size_t findSeparator(std::string_view bytes, std::size_t from, std::size_t to) {
    for (std::size_t comma = bytes.find(',', from); comma < to; comma = bytes.find(',', comma + 1))
        if (isSeparator(bytes, comma))
            return comma;
    return to;
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
    auto file = std::make_shared<TextFile>(path);
    start(file, 0);
    // A file without a length, such as a pipe, is not read: reading could wait for ever.
    const bool hasBytes = file->bytes.length() > 0;
    fillBuffer(bufferLength);
    file->mark = DetectByteOrderMark(buffered().substr(0, 4));
    if (file->mark.isUtf8)
        file->textStart = utf8Mark.size();
    else if (file->mark.isUnicode && buffered().starts_with(utf16LittleEndianMark))
        file->textStart = utf16LittleEndianMark.size();
    begin_ = static_cast<std::size_t>(file->textStart);
    return hasBytes;
}

void TextFileReader::start(std::shared_ptr<const TextFile> file, std::uint64_t offset) {
    file_ = std::move(file);
    bufferOffset_ = offset;
    begin_ = end_ = 0;
    atEnd_ = false;
    // After a start within a file of several pieces there may be none left.
    gaveAPiece_ = !file_->mark.isUtf8 && offset > file_->textStart;
    isPieceComplete_ = true;
    breakFrom_ = never;
    isAtBreak_ = false;
}

bool TextFileReader::skipToSeparator(std::uint64_t to) {
    for (;;) {
        fillBuffer(maxSeparatorLook + 1);
        const std::string_view bytes = buffered();
        const std::size_t end = bytes.size() - (atEnd_ ? 0 : maxSeparatorLook);
        const std::size_t separator = findSeparator(bytes, 0, end);
        begin_ += separator;
        if (offset() >= to || (atEnd_ && separator == end))
            return false;
        if (separator != end)
            return true;
    }
}

bool TextFileReader::nextPiece() {
    if (gaveAPiece_) {
        if (file_->mark.isUtf8)
            return false;
        fillBuffer(file_->bytesPerUnit());
        if (buffered().size() < file_->bytesPerUnit())
            return false;
    }
    gaveAPiece_ = true;
    isPieceComplete_ = false;
    return true;
}

bool TextFileReader::readMore(UnitBuffer& text) {
    if (isPieceComplete_)
        return false;
    if (file_->mark.isUtf8)
        ReadUtf8Stream(text);
    else
        ReadWithTextStream(text);
    return true;
}

void TextFileReader::ReadUtf8Stream(UnitBuffer& text) {
    fillBuffer(utf8StretchLength + maxSeparatorLook);
    std::string_view bytes = buffered().substr(0, utf8StretchLength);
    const bool isLast = atEnd_ && bytes.size() == buffered().size();
    if (!isLast)
        bytes = bytes.substr(0, completeUtf8Length(bytes));
    isAtBreak_ = false;
    if (offset() + bytes.size() > breakFrom_) {
        const std::size_t from = breakFrom_ > offset() ? static_cast<std::size_t>(breakFrom_ - offset()) : 0;
        if (const std::size_t separator = findSeparator(buffered(), from, bytes.size());
            separator < bytes.size()) {
            bytes = bytes.substr(0, separator);
            breakFrom_ = never;
            isAtBreak_ = true;
        }
    }
    text.makeRoom(bytes.size()); // no character has more code units than bytes
    text.advance(decodeUtf8(bytes, text.end()));
    begin_ += bytes.size();
    isPieceComplete_ = isLast && !isAtBreak_;
}

void TextFileReader::ReadWithTextStream(UnitBuffer& text) {
    fillBuffer(pieceLength * file_->bytesPerUnit());
    const std::string_view bytes = buffered().substr(0, pieceLength * file_->bytesPerUnit());
    const std::size_t units = bytes.size() / file_->bytesPerUnit();
    text.makeRoom(units);
    if (file_->mark.isUnicode)
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
    bufferOffset_ += begin_;
    end_ -= begin_;
    begin_ = 0;
    // At most as many bytes as the file had when it was opened, so that all its readers see the same text.
    const std::uint64_t left = file_->bytes.length() - std::min(file_->bytes.length(), bufferOffset_ + end_);
    const auto room = static_cast<std::size_t>(std::min<std::uint64_t>(bufferLength - end_, left));
    const std::size_t count = file_->bytes.readAt(bufferOffset_ + end_, {bytes_.get() + end_, room});
    end_ += count;
    atEnd_ = count < room || room == left;
}

std::vector<std::u16string> ReadFileToPieces(std::u16string_view path) {
    TextFileReader reader;
    reader.open(path);
    std::vector<std::u16string> pieces;
    for (UnitBuffer text(UnitBuffer::unlimited); reader.nextPiece(); text.cutTo(0)) {
        while (reader.readMore(text)) {
        }
        pieces.emplace_back(text.view());
    }
    return pieces;
}

} // namespace brindlewick
