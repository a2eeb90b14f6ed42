// JSON files that nobody here wrote, from the folder that BRINDLEWICK_FOREIGN_JSON names.

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/line_reader.h"
#include "core/text_file_reader.h"
#include "platform/native_path.h"
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace brindlewick {
namespace {

/// {"key":"value"} without anything that is read in a way of its own: an escape, a quote in a key.
bool isOnePlainMember(std::u16string_view line) {
    return line.starts_with(u"{\"") && line.ends_with(u"\"}") &&
           std::count(line.begin(), line.end(), u'"') == 4 && line.find(u"\":\"") != line.npos &&
           line.find_first_of(u"\\'") == line.npos;
}

/// The reader moves on, both ways give the same lines, and a plain line read again gives itself.
void expectProperties(const std::u16string& piece, const std::string& file) {
    LineReader reader;
    std::int32_t position = 1;
    std::size_t at = 0;
    for (;;) {
        const std::int32_t start = position;
        const std::optional<JsonValue> fragment = JsonParser().parse(piece, position);
        const FragmentReading reading = reader.next(piece, at);
        ASSERT_EQ(reading == FragmentReading::line, fragment.has_value()) << file;
        ASSERT_EQ(at + 1, position) << file;
        if (!fragment)
            return;
        ASSERT_GT(position, start) << file;
        const std::u16string line = serialize(*fragment);
        ASSERT_EQ(toUtf8(reader.line()), toUtf8(line)) << file;
        if (!isOnePlainMember(line))
            continue;
        std::int32_t again = 1;
        const std::optional<JsonValue> readAgain = JsonParser().parse(line + u"\n", again);
        ASSERT_TRUE(readAgain.has_value()) << file << ": " << toUtf8(line);
        ASSERT_EQ(toUtf8(serialize(*readAgain)), toUtf8(line)) << file;
    }
}

TEST(ForeignJson, KeepsTheReadersProperties) {
    const char* const folder = std::getenv("BRINDLEWICK_FOREIGN_JSON");
    if (folder == nullptr || *folder == '\0')
        GTEST_SKIP() << "BRINDLEWICK_FOREIGN_JSON names no folder of JSON files";
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.path().extension() != ".json")
            continue;
        ++files;
        for (const std::u16string& piece : ReadFileToPieces(pathText(entry.path())))
            expectProperties(piece, entry.path().string());
    }
    EXPECT_GT(files, 0U) << folder;
    RecordProperty("files", static_cast<int>(files));
}

} // namespace
} // namespace brindlewick
