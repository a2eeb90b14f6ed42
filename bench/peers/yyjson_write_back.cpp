// Parses a JSON file with yyjson and writes it back, for comparison.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <yyjson.h>

int main(int count, char** words) {
    if (count != 2)
        return 2;
    std::FILE* const file = std::fopen(words[1], "rb");
    if (file == nullptr)
        return 1;
    std::fseek(file, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    const std::size_t skipped = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
    yyjson_doc* const document = yyjson_read(bytes.data() + skipped, bytes.size() - skipped, 0);
    std::size_t length = 0;
    char* const text = document == nullptr ? nullptr : yyjson_write(document, 0, &length);
    const bool isWritten = text != nullptr && std::fwrite(text, 1, length, stdout) == length;
    std::free(text);
    yyjson_doc_free(document);
    return isWritten ? 0 : 1;
}
