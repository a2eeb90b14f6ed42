// Whole runs, in every mode, compared with the rules carried out one by one.
//
// Input: a line with the mode's digit and the tags, each after a tab; then the bytes of the files, with two
// NULs between one and the next.
#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/text_file_reader.h"
#include "extract/extraction_run.h"
#include "fuzz/fuzz_driver.h"
#include "platform/letter_case.h"
#include "platform/text_encoding.h"
#include "support/counting_user.h"
#include "support/fake_settings.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;
using Texts = std::vector<std::u16string>;

template <class Text>
std::vector<Text> split(const Text& text, const Text& separator) {
    std::vector<Text> parts;
    std::size_t start = 0;
    for (std::size_t end = 0; end != text.npos; start = end + separator.size()) {
        end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
    }
    return parts;
}

std::u16string without(std::u16string_view unwanted, std::u16string text) {
    std::erase_if(text, [&](char16_t unit) { return unwanted.find(unit) != unwanted.npos; });
    return text;
}

std::u16string trimmed(std::u16string text) {
    text.erase(0, text.find_first_not_of(u' '));
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

struct Walker {
    std::u16string keys;
    std::u16string values;
    bool arraySeen = false;

    void clear() { keys = values = u""; }
    void walk(const std::u16string& line) {
        for (const std::u16string& element : split<std::u16string>(line, u":")) {
            const Texts parts = split<std::u16string>(without(u"[]", element), u",");
            const std::u16string whole = trimmed(without(u"\"{}", element));
            const std::u16string loose = trimmed(without(u"\"{}]", element));
            const auto braces = static_cast<std::size_t>(std::count(element.begin(), element.end(), u'{'));
            const bool isObject = element.starts_with(u'{');
            const bool isArray = element.starts_with(u'[');
            if (!isObject)
                addLevels(trimmed(without(u"\"{[]", element)), braces);
            else if (parts.size() == 1 && !whole.empty())
                addLevels(whole, 1);
            if (isArray || (parts.size() > 1 && (isObject || arraySeen)))
                for (const std::u16string& part : parts)
                    values += trimmed(without(u"\"{}", part)) + u" ";
            else if (isObject ? whole.empty() : !arraySeen)
                values += loose + u" ";
            arraySeen = arraySeen || isArray;
        }
    }

    /// Is thrown when the level names, which may take the square of a line's length, have become too many.
    struct TooLong {};

private:
    void addLevels(const std::u16string& name, std::size_t count) {
        constexpr std::size_t longest = std::size_t{1} << 21; // code units
        unitsOfLevels_ += name.size() * count;
        if (unitsOfLevels_ > longest)
            throw TooLong();
        for (; count > 0; --count)
            keys += name + u" ";
    }

    std::size_t unitsOfLevels_ = 0;
};

struct Run {
    int mode = 0;
    Texts tags;
    Texts paths;
};

Run runOf(std::string_view input) {
    Run run;
    const std::string_view header = input.substr(0, input.find('\n'));
    const std::vector<std::string_view> words = split(header, "\t"sv);
    run.mode = words[0].empty() ? 1 : static_cast<unsigned char>(words[0][0]) % 8 % 5; // "4" is 4
    for (std::size_t tag = 1; tag < words.size(); ++tag)
        run.tags.push_back(fromUtf8(words[tag]));
    if (run.tags.empty())
        run.tags.push_back(u"name");
    input.remove_prefix(std::min(header.size() + 1, input.size()));
    for (const std::string_view bytes : split(input, "\0\0"sv))
        run.paths.push_back(newFile(std::to_string(run.paths.size()), bytes));
    return run;
}

Texts rowsByTheRules(const Run& run) {
    Texts rows;
    Walker walker;
    const auto addRowsOf = [&](const std::u16string& line) {
        if (run.mode == 4)
            return walker.walk(line);
        const std::u16string folded = foldedCase(line);
        for (const std::u16string& tag : run.tags) {
            if (folded.find(foldedCase(tag)) == folded.npos)
                continue;
            walker.clear();
            if (run.mode == 3)
                walker.values = trimmed(line);
            else
                walker.walk(line);
            if (!walker.values.empty())
                rows.push_back((run.mode == 1 ? walker.keys + u":" : u"") + walker.values);
        }
    };
    for (const std::u16string& path : run.paths) {
        if (fileLength(path) == 0)
            continue;
        for (const std::u16string& piece : ReadFileToPieces(path)) {
            walker.clear(); // so in mode 4 the rows are those of the last piece
            std::int32_t position = 1;
            while (const std::optional<JsonValue> fragment = JsonParser().parse(piece, position))
                addRowsOf(serialize(*fragment));
        }
        if (run.mode == 4)
            rows.insert(rows.end(), {walker.keys, walker.values});
    }
    return rows;
}

Texts rowsOfTheProgram(const Run& run, ReadAhead readAhead) {
    testing::CountingUser user;
    testing::FakeSettings settings;
    ExtractionOptions options(settings);
    options.chooseMode(static_cast<ExtractionMode>(run.mode));
    ResultsTable table;
    ExtractionRun(user, options, run.paths, run.tags, table, readAhead).PushButton7_Click();
    check(user.reports == 0, "nothing is reported");
    Texts rows;
    for (std::size_t row = 0; row < table.rowCount(); ++row)
        rows.emplace_back(table.cell(row, 0));
    return rows;
}

const Subject runs("run", [](std::string_view input) {
    const Run run = runOf(input);
    try {
        const Texts expected = rowsByTheRules(run);
        check(rowsOfTheProgram(run, {}) == expected, "the rows are those of the rules");
        for (const std::size_t workers : {1U, 2U, 3U, 8U}) {
            const std::uint64_t stretch = 24 + input.size() / 500 + input.size() * workers % 1000; // bytes
            check(rowsOfTheProgram(run, {workers, stretch}) == expected,
                  "the rows are the same for any number of workers and any length of stretches");
        }
    } catch (const Walker::TooLong&) {
    }
});

} // namespace

} // namespace brindlewick::fuzz
