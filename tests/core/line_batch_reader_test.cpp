#include "core/line_batch_reader.h"

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "platform/text_encoding.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <vector>

namespace brindlewick {
namespace {

using testing::TemporaryFolder;

std::vector<std::string> linesThePlainWay(std::u16string_view path) {
    std::vector<std::string> lines;
    for (const std::u16string& piece : ReadFileToPieces(path)) {
        std::int32_t position = 1;
        while (const std::optional<JsonValue> fragment = JsonParser().parse(piece, position))
            lines.push_back(toUtf8(serialize(*fragment)));
    }
    return lines;
}

std::vector<std::string> linesByBatches(std::u16string_view path) {
    std::vector<std::string> lines;
    LineBatchReader reader;
    for (reader.open(path); reader.nextPiece();)
        for (BatchEnd end = BatchEnd::full; end != BatchEnd::pieceEnd;) {
            end = reader.nextBatch();
            const LineBatch batch = reader.batch();
            for (std::size_t line = 0; line < batch.size(); ++line)
                lines.push_back(toUtf8(batch[line]));
        }
    return lines;
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (; times > 0; --times)
        all += text;
    return all;
}

/// Fragments shorter and longer than the window, and texts that end at and around its ends.
TEST(LineBatchReader, GivesTheLinesOfThePlainWay) {
    const TemporaryFolder folder;
    const std::string record = "{\"id\":1,\"name\":\"J\xC3\xBCrgen\",\"list\":[1,2,{\"a\":3}]},\r\n";
    const std::vector<std::string> texts = {
        repeated(record, 5000),
        "[" + repeated("12,", 200000) + "3]" + repeated(record, 500),
        "{\"long\":\"" + std::string(300000, 'x') + "\"}" + repeated(record, 500),
        repeated("{\"a\":\"" + std::string(40000, 'y') + "\"}\n", 20),
        std::string(500000, ' ') + record,
        "/*" + std::string(200000, '*') + "/" + record,
        std::string(100000, '['),
        repeated("{x", 600) + record,
        std::string(32760, ' ') + record + record,
    };
    for (const char* const mark : {"", "\xEF\xBB\xBF"})
        for (const std::string& text : texts) {
            const std::u16string path = folder.write("file.json", mark + text);
            EXPECT_EQ(linesByBatches(path), linesThePlainWay(path)) << text.substr(0, 40);
        }
}

TEST(LineBatchReader, FindsEveryPlaceToCutAt) {
    const TemporaryFolder folder;
    for (std::size_t shift = 0; shift < 40; ++shift) {
        const std::u16string path =
            folder.write("file.json", "\xEF\xBB\xBF" + std::string(shift, ' ') +
                                          repeated("{\"k\":\"\\u00e9v\"},false,", 3000));
        EXPECT_EQ(linesByBatches(path), linesThePlainWay(path)) << shift;
    }
}

} // namespace
} // namespace brindlewick
