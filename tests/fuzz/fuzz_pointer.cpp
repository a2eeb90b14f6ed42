// Feeds the reader of pointer files: a picture of a sane size with its hot spot inside, or a failure.
#include "app/cursor_picture.h"
#include "fuzz/fuzz_driver.h"
#include "platform/failure.h"

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

void appendNumber(std::string& bytes, std::size_t value, int count) {
    for (; count > 0; --count, value >>= 8)
        bytes.push_back(static_cast<char>(value & 0xFF));
}

} // namespace

std::string makeInput(Random& random) {
    const std::size_t side = std::size_t{1} << random.below(7);
    const std::size_t bits = std::size_t{1} << random.below(6);
    std::string picture;
    appendNumber(picture, 40, 4);
    appendNumber(picture, side, 4);
    appendNumber(picture, 2 * side, 4);
    appendNumber(picture, 1, 2);
    appendNumber(picture, bits, 2);
    picture.append(24, '\0');
    if (bits <= 8)
        picture += repeated("\x10\x80\xF0\0"sv, (std::size_t{1} << bits) * 4);
    picture += repeated("\x5A\xA5\xFF"sv, (side * bits + 31) / 32 * 4 * side + (side + 31) / 32 * 4 * side);

    std::string bytes("\0\0\2\0\1\0"sv);
    appendNumber(bytes, side, 1);
    appendNumber(bytes, side, 1);
    bytes.append(2, '\0');
    appendNumber(bytes, random.below(side + 2), 2);
    appendNumber(bytes, random.below(side + 2), 2);
    appendNumber(bytes, picture.size(), 4);
    appendNumber(bytes, 22, 4);
    bytes += picture;
    bend(bytes, random.below(4) == 0 ? 8 : 0, random);
    return bytes;
}

void runOn(std::string_view input) {
    try {
        const CursorPicture cursor =
            cursorPictureFromBytes(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
        check(!cursor.image.isNull() && cursor.image.width() <= 256 && cursor.image.height() <= 256,
              "a picture of a sane size");
        check(cursor.image.rect().contains(cursor.hotSpot), "the hot spot is inside");
    } catch (const Failure& failure) {
        check(failure.number() == FailureNumber::invalidPicture, "anything else is no picture");
    }
}

} // namespace brindlewick::fuzz
