// Makes inputs from the cases of a subject: spliced with one another and with words, repeated, bent.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace brindlewick::fuzz {

class InputGenerator {
public:
    /// `folder` holds the cases, one a file; the words are in words.dict, two folders above.
    InputGenerator(const std::filesystem::path& folder, std::uint64_t seed)
        : engine_(seed), words_(wordsOf(folder / "../../words.dict")) {
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            std::ifstream stream(file.path(), std::ios::binary);
            seeds_.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
        }
        std::sort(seeds_.begin(), seeds_.end()); // the order in a folder differs between machines
    }

    const std::vector<std::string>& seeds() const noexcept { return seeds_; }

    /// Mostly some hundred bytes, now and then up to 200,000.
    std::string next() {
        std::string bytes = below(8) > 0 ? oneOf(seeds_) : "";
        for (std::size_t changes = below(10); changes > 0; --changes)
            change(bytes);
        return bytes;
    }

private:
    using Texts = std::vector<std::string>;

    static constexpr const char* delimiters = "{}[]:;,=\"'\n\t ";
    static constexpr std::size_t longestInput = 200'000; // bytes
    static constexpr std::size_t longestString = 600;    // characters: more than any reader's block

    /// The words of a libFuzzer dictionary: lines of "WORD", where WORD has \\, \" and \xHH.
    static Texts wordsOf(const std::filesystem::path& dictionary) {
        Texts words;
        std::ifstream lines(dictionary);
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with('"'))
                continue;
            std::string& word = words.emplace_back();
            for (std::size_t at = 1; at + 1 < line.size(); ++at) {
                if (line.compare(at, 2, "\\x") == 0) {
                    word += static_cast<char>(std::stoi(line.substr(at + 2, 2), nullptr, 16));
                    at += 3;
                } else {
                    word += line[at += line[at] == '\\' ? 1 : 0];
                }
            }
        }
        return words;
    }

    /// 0 to `limit` - 1.
    std::size_t below(std::size_t limit) { return engine_() % limit; }
    const std::string& oneOf(const Texts& texts) { return texts[below(texts.size())]; }

    void change(std::string& bytes) {
        const std::size_t at = placeIn(bytes);
        switch (below(8)) {
        case 0:
            bytes.erase(at, 1 + below(below(2) > 0 ? 1 : 64));
            break;
        case 1:
            if (at < bytes.size())
                bytes[at] = static_cast<char>(below(256));
            break;
        case 2:
            bytes.insert(at, pieceOf(oneOf(seeds_)));
            break;
        case 3:
            bytes.insert(at, longText());
            break;
        case 4:
            bytes.insert(at, repeated(below(2) > 0 ? oneOf(words_) : pieceOf(bytes), repetitionFor(bytes)));
            break;
        default: // a word, half of the time in place of another
            if (below(2) > 0)
                bytes.erase(at, std::min(bytes.find_first_of(delimiters, at), bytes.size()) - at);
            bytes.insert(at, oneOf(words_));
        }
    }

    /// Half of the places are next to a delimiter, and some near the beginning, where a file says what it is.
    std::size_t placeIn(const std::string& bytes) {
        const std::size_t at = below((below(8) > 0 ? bytes.size() : bytes.size() / 16) + 1);
        const std::size_t delimiter = bytes.find_first_of(delimiters, at);
        return below(2) > 0 || delimiter == bytes.npos ? at : delimiter + below(2);
    }

    std::string pieceOf(const std::string& bytes) {
        return bytes.substr(placeIn(bytes), 1 + below(std::size_t{1} << below(10)));
    }

    std::string repeated(const std::string& pattern, std::size_t length) {
        std::string bytes;
        while (!pattern.empty() && bytes.size() < length)
            bytes += pattern;
        bytes.resize(std::min(bytes.size(), length));
        return bytes;
    }

    /// Seldom long: what takes time in proportion to the square of its length takes too long then. Half of
    /// the long ones end near the end of a file reader's block.
    std::size_t repetitionFor(const std::string& bytes) {
        if (below(128) > 0 || bytes.size() > longestInput / 4)
            return below(64);
        return below(2) > 0 ? below(longestInput) : (std::size_t{0x8000} << below(3)) + below(32) - 16;
    }

    /// A string of any length up to `longestString`, mostly with a word in it or at its end, as value or key.
    std::string longText() {
        static const Texts quotes{"\"", "\"", "'", ""};
        static const Texts units{
            "a", "a", "a", "0", "\xC3\xA9", "\xE2\x82\xAC", "\xC4\xA2", "\xF0\x9F\x98\x80"};
        const std::string& quote = oneOf(quotes);
        const std::string& unit = oneOf(units);
        std::string text = quote + repeated(unit, below(longestString + 1) * unit.size());
        if (below(4) > 0)
            text += oneOf(words_) + repeated(unit, below(40) * unit.size());
        return text + quote + (below(2) > 0 ? ":" : "");
    }

    std::mt19937_64 engine_;
    Texts seeds_;
    Texts words_;
};

} // namespace brindlewick::fuzz
