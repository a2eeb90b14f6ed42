// Parses a JSON file with simdjson and writes it back, for comparison.
#include <cstdio>
#include <simdjson.h>
#include <string>

int main(int count, char** words) {
    if (count != 2)
        return 2;
    simdjson::padded_string file;
    if (simdjson::padded_string::load(words[1]).get(file) != simdjson::SUCCESS)
        return 1;
    const bool hasMark = std::string_view(file).substr(0, 3) == "\xEF\xBB\xBF";
    simdjson::dom::parser parser;
    simdjson::dom::element document;
    const std::size_t skipped = hasMark ? 3 : 0;
    // What follows the text is the file's own padding: nothing need be copied.
    if (parser.parse(file.data() + skipped, file.size() - skipped, false).get(document) != simdjson::SUCCESS)
        return 1;
    const std::string text = simdjson::minify(document);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
