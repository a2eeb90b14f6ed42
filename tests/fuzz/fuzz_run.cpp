// Feeds whole runs, in every mode, and holds their rows against those of the plain way: parse, serialise,
// look for one tag after another.
//
// Input: a line with the mode's digit and the tags, each behind a tab; then the bytes of the files, with a
// NUL NUL between one and the next.
#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/text_file_reader.h"
#include "extract/extraction_run.h"
#include "extract/fragment_walker.h"
#include "fuzz/fuzz_driver.h"
#include "platform/letter_case.h"
#include "platform/text_encoding.h"
#include "support/counting_user.h"
#include "support/fake_settings.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <vector>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;
using Texts = std::vector<std::u16string>;

constexpr std::string_view fileSeparator = "\0\0"sv;

std::string record(Random& random) {
    std::string bytes;
    for (std::size_t members = 1 + random.below(5); members > 0; --members) {
        bytes +=
            random.oneOf({"\"name\":", "\"Name\": ", "name:", "\"a b\":", "'k':", "\"ta\\u0067\":", "\"\":"});
        bytes += random.oneOf({"1", "-0.5", "\"Ann\"", "\"http://x/name\"", "\"\xC3\xA9\"", "true", "null",
                               "[1,\"name\",{\"x\":2}]", "{\"tag\":\"v\",\"w\":3}",
                               "{\"a\":{\"b\":{\"name\":1}}}", "[]", "{}", "'it''s'", "nul", ""});
        bytes += random.oneOf({",", ",", ", ", "\n", ""});
    }
    return "{" + bytes + random.oneOf({"}", "},", "}\r\n", ""}).data();
}

std::string fileBytes(Random& random) {
    std::string bytes(random.oneOf({"", "\xEF\xBB\xBF", "\xFF\xFE"}));
    bytes += random.oneOf({"", "[", "[\n", "// c\n"});
    // Now and then enough for several batches, windows and pieces.
    const std::size_t records = random.below(24) == 0 ? 3000 : random.below(6);
    const std::string first = record(random);
    for (std::size_t left = records; left > 0; --left)
        bytes += records > 100 && random.below(8) > 0 ? first : record(random);
    bytes += random.oneOf({"]", "]\n", "\n", ""});
    bend(bytes, 4, random);
    return bytes;
}

/// The rows' texts as one run after another step of the rules gives them.
Texts plainRows(const Texts& paths, const Texts& tags, int mode) {
    Texts rows;
    FragmentWalker walker;
    for (const std::u16string& path : paths) {
        if (fileLength(path) == 0)
            continue;
        walker.clearTexts();
        for (const std::u16string& piece : ReadFileToPieces(path)) {
            if (mode == 4)
                walker.clearTexts();
            std::int32_t position = 1;
            while (const std::optional<JsonValue> fragment = JsonParser().parse(piece, position)) {
                const std::u16string line = serialize(*fragment);
                if (mode == 4) {
                    walker.walk(line);
                    continue;
                }
                const std::u16string folded = foldedCase(line);
                for (const std::u16string& tag : tags) {
                    if (folded.find(foldedCase(tag)) == std::u16string::npos)
                        continue;
                    walker.clearTexts();
                    if (mode != 3)
                        walker.walk(line);
                    if (mode == 3)
                        rows.push_back(line);
                    else if (!walker.valueText().empty())
                        rows.push_back((mode == 1 ? walker.keyText() + u":" : u"") + walker.valueText());
                }
            }
        }
        if (mode == 4) {
            rows.push_back(walker.keyText());
            rows.push_back(walker.valueText());
        }
    }
    return rows;
}

} // namespace

std::string makeInput(Random& random) {
    std::string bytes(random.oneOf({"1", "2", "3", "3", "4"}));
    for (std::size_t tags = random.below(8) == 0 ? 40 : 1 + random.below(3); tags > 0; --tags) {
        bytes += '\t';
        bytes += random.oneOf({"name", "NAME", "a", "tag", "\"", "{", "}", ":", "k\":", "zzz", "\\u00E9",
                               "\xE9", "na", "ame\":\"A", "{}"});
    }
    bytes += '\n';
    for (std::size_t files = 1 + random.below(3); files > 0; --files)
        bytes.append(fileBytes(random)).append(files > 1 ? fileSeparator : ""sv);
    return bytes;
}

void runOn(std::string_view input) {
    static const testing::TemporaryFolder folder;
    const std::string_view header = input.substr(0, input.find('\n'));
    std::string_view rest = input.substr(std::min(header.size() + 1, input.size()));
    const int mode = header.empty() ? 1 : 1 + (static_cast<unsigned char>(header[0]) - '1') % 4U % 4;
    Texts tags;
    for (std::size_t tab = header.find('\t'); tab != header.npos; tab = header.find('\t', tab + 1)) {
        tags.emplace_back();
        appendFromWindows1252(header.substr(tab + 1, header.find('\t', tab + 1) - tab - 1), tags.back());
    }
    if (tags.empty())
        tags.push_back(u"name");
    Texts paths;
    for (bool isLast = false; !isLast;) {
        const std::size_t end = rest.find(fileSeparator);
        isLast = end == rest.npos;
        paths.push_back(folder.write("file" + std::to_string(paths.size()), rest.substr(0, end)));
        rest.remove_prefix(isLast ? rest.size() : end + fileSeparator.size());
    }

    testing::CountingUser user;
    testing::FakeSettings settings;
    ExtractionOptions options(settings);
    options.chooseMode(static_cast<ExtractionMode>(mode));
    ResultsTable table;
    ExtractionRun(user, options, paths, tags, table).PushButton7_Click();
    check(user.reports == 0, "nothing is reported");
    const Texts expected = plainRows(paths, tags, mode);
    check(table.rowCount() == expected.size(), "as many rows as the plain way gives");
    for (std::size_t row = 0; row < expected.size(); ++row)
        check(table.cell(row, 0) == expected[row], "the rows of the plain way");
}

} // namespace brindlewick::fuzz
