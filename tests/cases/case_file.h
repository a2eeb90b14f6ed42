// Reads case files: raw inputs and the outcome expected of each. README.md describes the format.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
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

/// Writes out groups of bytes, <0D 0A>, and repetitions, <TEXT*COUNT>, which may hold such groups.
inline std::string written(const std::string& text) {
    static const std::regex special(R"(<([0-9A-F]{2}(?: [0-9A-F]{2})*)>|<([\s\S]+?)\*(\d+)>)");
    std::string all;
    auto rest = text.begin();
    for (std::sregex_iterator found(text.begin(), text.end(), special), last; found != last; ++found) {
        const std::smatch& match = *found;
        all.append(rest, match[0].first);
        rest = match[0].second;
        std::istringstream bytes(match[1]);
        for (unsigned byte = 0; bytes >> std::hex >> byte;)
            all += static_cast<char>(byte);
        if (match[2].matched) {
            const std::string repeated = written(match[2]);
            for (int count = std::stoi(match[3]); count > 0; --count)
                all += repeated;
        }
    }
    return all.append(rest, text.end());
}

/// What an outcome expects: the texts between its bars, none for "nothing", or the one text that it is.
inline Texts cells(std::string outcome) {
    if (outcome == "nothing")
        return {};
    if (!outcome.starts_with('|'))
        return {written(outcome)};
    std::replace(outcome.begin(), outcome.end(), '|', '\xFF'); // no byte of UTF-8; <7C> remains a bar
    outcome = written(outcome);
    EXPECT_TRUE(outcome.size() > 1 && outcome.ends_with('\xFF')) << "no bar at the end";
    std::istringstream texts(outcome.substr(1));
    Texts all;
    for (std::string text; std::getline(texts, text, '\xFF');)
        all.push_back(text);
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
