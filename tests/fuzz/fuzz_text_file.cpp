// Feeds the text file reader with files of every kind of mark, cut at every place.
#include "core/text_file_reader.h"
#include "fuzz/fuzz_driver.h"
#include "platform/text_encoding.h"
#include "support/temporary_folder.h"

#include <vector>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

/// The file's text in one go; the marks in the order in which one hides another.
std::u16string wholeText(std::string_view bytes, bool& isOnePiece) {
    std::u16string text;
    isOnePiece = bytes.starts_with("\xEF\xBB\xBF"sv);
    if (isOnePiece) {
        appendFromUtf8(bytes.substr(3), text);
    } else if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv) ||
               bytes.starts_with("\0\0\xFE\xFF"sv)) {
        for (std::size_t at = bytes.starts_with("\xFF\xFE"sv) ? 2 : 0; at + 1 < bytes.size(); at += 2)
            text.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                                 (static_cast<unsigned char>(bytes[at + 1]) << 8)));
    } else {
        appendFromWindows1252(bytes, text);
    }
    return text;
}

} // namespace

std::string makeInput(Random& random) {
    std::string bytes(random.oneOf({""sv, "\xEF\xBB\xBF"sv, "\xEF\xBB\xBF"sv, "\xEF\xBB\xBF"sv, "\xFF\xFE"sv,
                                    "\xFE\xFF"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv, "\xEF\xBB"sv}));
    bytes += repeated("a", random.below(4));
    // Long ones end a little behind the places where a piece or the reader's buffer ends.
    static constexpr std::size_t ends[] = {65536, 131072, 131072, 196608};
    const std::size_t length =
        random.below(8) > 0 ? random.below(40) : ends[random.below(4)] + random.below(16);
    bytes +=
        repeated(random.oneOf({"a"sv, "\xC3\xA9"sv, "\xE2\x82\xAC"sv, "\xE2\x82\xAC"sv, "\xF0\x9F\x98\x80"sv,
                               "\xF0\x9F\x98\x80"sv, "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv, "\x80"sv,
                               "\xE2\x82"sv, "\xF0"sv, "\0a"sv, "a\xF0\x9F"sv}),
                 length);
    bend(bytes, 6, random);
    return bytes;
}

void runOn(std::string_view input) {
    static const testing::TemporaryFolder folder;
    const std::vector<std::u16string> pieces = ReadFileToPieces(folder.write("file", input));
    check(!pieces.empty(), "there is at least one piece");

    bool isOnePiece = false;
    const std::u16string expected = wholeText(input, isOnePiece);
    check(!isOnePiece || pieces.size() == 1, "UTF-8 with a mark is one piece");
    std::u16string joined;
    for (const std::u16string& piece : pieces) {
        joined += piece;
        if (!isOnePiece) {
            check(&piece == &pieces.back() || piece.size() == pieceLength, "only the last piece is shorter");
            check(piece.size() <= pieceLength, "no piece is longer");
            check(pieces.size() == 1 || !piece.empty(), "an empty piece stands alone");
        }
    }
    check(joined == expected, "the pieces join to the whole text");
}

} // namespace brindlewick::fuzz
