// Reads case files: raw inputs and the outcome expected of each. README.md describes the format.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlewick::testing {

using Texts = std::vector<std::string>;

/// One line of a case file; a block between <<< and >>> is part of its line.
struct CaseLine {
    std::string place; ///< file and line number, for messages
    std::string section;
    std::string input;   ///< before " => ", or the whole line
    std::string outcome; ///< after it
};

/// The text before and after the first `separator`; nothing after it when there is none.
inline std::pair<std::string, std::string> cutAt(const std::string& text, std::string_view separator) {
    const std::size_t at = text.find(separator);
    if (at == text.npos)
        return {text, {}};
    return {text.substr(0, at), text.substr(at + separator.size())};
}

/// The length of a group of bytes at the front, like <0D 0A>; 0 when there is none.
inline std::size_t lengthOfByteGroup(std::string_view text) {
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); };
    std::size_t at = 0;
    do {
        if (text.size() < at + 4 || text[at] != (at == 0 ? '<' : ' ') || !isDigit(text[at + 1]) ||
            !isDigit(text[at + 2]))
            return 0;
        at += 3;
    } while (text[at] != '>');
    return at + 1;
}

/// Writes out <TEXT*COUNT>, and leaves groups of bytes.
inline std::string withRepeats(std::string_view text) {
    std::string all;
    while (!text.empty()) {
        std::size_t taken = text[0] == '<' ? lengthOfByteGroup(text) : 1;
        std::size_t star = taken > 0 ? text.npos : text.find('*', 2);
        for (; star != text.npos; star = text.find('*', star + 1)) {
            const std::size_t end = text.find_first_not_of("0123456789", star + 1);
            if (end == text.npos || end == star + 1 || text[end] != '>')
                continue;
            for (int count = std::stoi(std::string(text.substr(star + 1))); count > 0; --count)
                all.append(text.substr(1, star - 1));
            text.remove_prefix(end + 1);
            break;
        }
        if (star != text.npos)
            continue;
        taken += taken == 0 ? 1 : 0; // a "<" that is just that
        all.append(text.substr(0, taken));
        text.remove_prefix(taken);
    }
    return all;
}

/// Replaces groups of bytes by the bytes.
inline std::string withBytes(std::string_view text) {
    std::string all;
    while (!text.empty()) {
        const std::size_t length = lengthOfByteGroup(text);
        for (std::size_t at = 1; at < length; at += 3)
            all += static_cast<char>(std::stoi(std::string(text.substr(at, 2)), nullptr, 16));
        if (length == 0)
            all += text[0];
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return all;
}

inline std::string written(std::string_view text) {
    return withBytes(withRepeats(text));
}

/// What an outcome expects: the texts between its bars, none for "nothing", or the one text that it is.
inline Texts cells(std::string_view outcome) {
    if (outcome == "nothing")
        return {};
    if (!outcome.starts_with('|'))
        return {written(outcome)};
    Texts all;
    const std::string text = withRepeats(outcome);
    EXPECT_TRUE(text.size() > 1 && text.ends_with('|')) << "no bar at the end";
    for (std::size_t start = 1, bar; (bar = text.find('|', start)) != text.npos; start = bar + 1)
        all.push_back(withBytes(std::string_view(text).substr(start, bar - start)));
    return all;
}

inline std::vector<CaseLine> readCases(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " cannot be read";
    std::vector<CaseLine> cases;
    std::string section;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        const std::string place = path + ":" + std::to_string(number);
        if (line.empty() || line.starts_with('#'))
            continue;
        if (line.starts_with("== ") && line.ends_with(" ==")) {
            section = line.substr(3, line.size() - 6);
            continue;
        }
        std::string block;
        if (line.ends_with("<<<")) {
            block = line.substr(0, line.size() - 3);
            for (; std::getline(file, line) && !line.starts_with(">>>"); ++number)
                block += line + "\n";
            ++number;
            line.erase(0, 3);
        }
        auto [input, outcome] = cutAt(line, " => ");
        cases.push_back({place, section, written(block + input), outcome});
    }
    EXPECT_FALSE(cases.empty()) << path << " holds no case";
    return cases;
}

} // namespace brindlewick::testing
