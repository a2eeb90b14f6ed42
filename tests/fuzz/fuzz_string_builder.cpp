// Feeds the text builder with one operation after another: whatever the size of its chunks, the content is
// that of a plain text.
#include "core/string_builder.h"
#include "fuzz/fuzz_driver.h"
#include "platform/failure.h"

#include <iterator>

namespace brindlewick::fuzz {

std::string makeInput(Random& random) {
    std::string bytes;
    for (std::size_t left = random.below(200); left > 0; --left)
        bytes += static_cast<char>(random.below(256));
    return bytes;
}

void runOn(std::string_view input) {
    static constexpr std::int32_t chunks[] = {1, 2, 7, 64, 8192, 1 << 20};
    for (const std::int32_t chunk : chunks) {
        Choices choices(input);
        cStringBuilder builder;
        builder.setChunkSize(chunk);
        std::u16string expected;
        while (!choices.isSpent()) {
            const std::size_t operation = choices.below(8);
            const std::u16string text(choices.below(40), static_cast<char16_t>(u'a' + choices.below(26)));
            const std::size_t at = choices.below(expected.size() % 200 + 1);
            switch (operation) {
            case 0:
                builder.Insert(static_cast<std::int32_t>(at), text);
                expected.insert(at, text);
                break;
            case 1: {
                const std::size_t count = choices.below((expected.size() - at) % 200 + 1);
                builder.Remove(static_cast<std::int32_t>(at), static_cast<std::int32_t>(count));
                expected.erase(at, count);
                break;
            }
            case 2:
                builder.AppendNL(text);
                expected.append(text).append(u"\r\n");
                break;
            case 3:
                builder.HeapMinimize();
                break;
            case 4:
                if (at % 16 == 0) {
                    builder.TheString(text);
                    expected = text;
                }
                break;
            default:
                builder.Append(text);
                expected.append(text);
            }
            check(builder.toString() == expected, "the content is the text");
            check(builder.Length() == static_cast<std::int32_t>(expected.size()), "the length is the text's");
            check(builder.Capacity() >= builder.Length(), "the content fits");
        }
    }
}

} // namespace brindlewick::fuzz
