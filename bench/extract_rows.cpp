// Runs the real extraction on files without a window and prints the rows, or how fast they came.
//
//     extract_rows --mode N [--include-filename] [--tag TEXT]... [--tags-file FILE]
//                  [--threads N] [--count] -- FILE...

#include "process_memory.h"
#include "unattended.h"

#include "extract/extraction_run.h"
#include "platform/error_report.h"
#include "platform/native_path.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/user_interface.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace brindlewick;

constexpr int wrongArguments = 2;

constexpr const char* usageBeforeModes =
    "usage: extract_rows --mode N [--include-filename] [--tag TEXT]... [--tags-file FILE] "
    "[--threads N] [--count] -- FILE...\n"
    "  --mode N            the extraction mode:\n"
    "                      0 none\n";
constexpr const char* usageAfterModes =
    "  --include-filename  rows carry the file's path\n"
    "  --tag TEXT          a tag to look for\n"
    "  --tags-file FILE    UTF-8, one tag a line (LF or CR LF); the last line's end adds no tag\n"
    "  --threads N         how many worker threads read; 0, the default: one a processor\n"
    "  --count             print figures instead of rows\n";

void printUsage() {
    std::string modes;
    for (const ModeEntry& entry : extractionModes)
        modes += std::string(22, ' ') + std::to_string(static_cast<int>(entry.mode)) + ' ' +
                 toUtf8(entry.caption) + '\n';
    std::fprintf(stderr, "%s%s%s", usageBeforeModes, modes.c_str(), usageAfterModes);
}

/// The mode for a number of one digit; none when the text is not the number of a mode.
std::optional<ExtractionMode> modeFromDigit(std::string_view text) {
    if (text.size() != 1)
        return std::nullopt;
    const auto mode = static_cast<ExtractionMode>(text[0] - '0');
    return mode == ExtractionMode::none || placeOf(mode) ? std::optional(mode) : std::nullopt;
}

struct Arguments {
    std::optional<ExtractionMode> mode;
    bool includeFilename = false;
    bool countOnly = false;
    ReadAhead readAhead;
    std::vector<std::u16string> tags;
    std::vector<std::u16string> files;
};

bool readNumber(std::string_view text, std::size_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool appendTagsFile(const char* path, std::vector<std::u16string>& tags) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open())
        return false;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        tags.push_back(textFromPathBytes(line));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

std::optional<Arguments> readArguments(std::span<char*> words) {
    Arguments arguments;
    std::size_t at = 0;
    const auto value = [&]() -> const char* { return at + 1 < words.size() ? words[++at] : nullptr; };
    for (; at < words.size(); ++at) {
        const std::string_view word = words[at];
        if (word == "--mode") {
            const char* const digit = value();
            arguments.mode = modeFromDigit(digit == nullptr ? "" : digit);
            if (!arguments.mode)
                return std::nullopt;
        } else if (word == "--include-filename") {
            arguments.includeFilename = true;
        } else if (word == "--count") {
            arguments.countOnly = true;
        } else if (word == "--threads") {
            const char* const number = value();
            if (number == nullptr || !readNumber(number, arguments.readAhead.workers))
                return std::nullopt;
        } else if (word == "--tag") {
            const char* const tag = value();
            if (tag == nullptr)
                return std::nullopt;
            arguments.tags.push_back(textFromPathBytes(tag));
        } else if (word == "--tags-file") {
            const char* const path = value();
            if (path == nullptr || !appendTagsFile(path, arguments.tags))
                return std::nullopt;
        } else if (word == "--") {
            for (++at; at < words.size(); ++at)
                arguments.files.push_back(textFromPathBytes(words[at]));
        } else {
            return std::nullopt;
        }
    }
    if (!arguments.mode || arguments.files.empty())
        return std::nullopt;
    return arguments;
}

/// A JSON string in ASCII, one escape for every other code unit.
void appendJsonString(std::u16string_view text, std::string& line) {
    line.push_back('"');
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\') {
            line.push_back('\\');
            line.push_back(static_cast<char>(unit));
        } else if (unit >= 32 && unit < 127) {
            line.push_back(static_cast<char>(unit));
        } else {
            line.append("\\u");
            for (const char16_t digit : hexadecimalDigits(unit, lowerCaseHexadecimal))
                line.push_back(static_cast<char>(digit));
        }
    }
    line.push_back('"');
}

void printRows(const ResultsTable& table) {
    std::string line;
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        line.assign(1, '[');
        for (std::size_t column = 0; column < table.columns().size(); ++column) {
            if (column > 0)
                line.push_back(',');
            appendJsonString(table.cell(row, column), line);
        }
        line.append("]\n");
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
}

} // namespace

int main(int count, char** words) {
    const std::optional<Arguments> arguments =
        readArguments(std::span(words, static_cast<std::size_t>(count)).subspan(1));
    if (!arguments) {
        printUsage();
        return wrongArguments;
    }
    UnattendedUser user;
    ForgetfulSettings settings;
    ExtractionOptions options(settings);
    options.chooseMode(*arguments->mode);
    options.setIncludeFilename(arguments->includeFilename);
    ResultsTable table;
    ExtractionRun run(user, options, arguments->files, arguments->tags, table, arguments->readAhead);

    const auto start = std::chrono::steady_clock::now();
    run.PushButton7_Click();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    if (!arguments->countOnly) {
        printRows(table);
        return 0;
    }
    std::printf("%zu rows, %.6f seconds, %llu bytes peak resident\n", table.rowCount(), seconds,
                static_cast<unsigned long long>(peakResidentBytes()));
    return 0;
}
