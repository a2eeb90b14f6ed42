#include "platform/native_path.h"

#include "platform/text.h"
#include "platform/text_encoding.h"

#include <type_traits>

namespace brindlewick {

namespace {

constexpr char16_t firstEscape = 0xDC80; // for the byte 80
constexpr char16_t lastEscape = 0xDCFF;

/// The length of the valid UTF-8 character at the front, 0 when there is none.
std::size_t validLength(std::string_view bytes) {
    std::u16string decoded;
    for (std::size_t length = 1; length <= 4 && length <= bytes.size(); ++length) {
        decoded.clear();
        appendFromUtf8(bytes.substr(0, length), decoded);
        const bool isOne = decoded.size() == 1 || (decoded.size() == 2 && isHighSurrogate(decoded[0]));
        const bool isReplacement = decoded[0] == u'\uFFFD' && bytes.substr(0, length) != "\xEF\xBF\xBD";
        if (isOne && !isReplacement)
            return length;
    }
    return 0;
}

// Paths are bytes on POSIX and UTF-16 on Windows.
[[maybe_unused]] std::u16string textOfNative(const std::string& bytes) {
    return textFromPathBytes(bytes);
}
[[maybe_unused]] std::u16string textOfNative(const std::wstring& wide) {
    return {wide.begin(), wide.end()};
}

} // namespace

std::filesystem::path nativePath(std::u16string_view path) {
    using Native = std::filesystem::path::string_type;
    if constexpr (std::is_same_v<Native, std::string>)
        return pathBytes(path);
    else
        return Native(path.begin(), path.end());
}

std::u16string pathText(const std::filesystem::path& path) {
    return textOfNative(path.native());
}

std::u16string textFromPathBytes(std::string_view bytes) {
    std::u16string text;
    appendFromUtf8(bytes, text);
    if (text.find(u'\uFFFD') == std::u16string::npos)
        return text;
    text.clear();
    while (!bytes.empty()) {
        if (const std::size_t length = validLength(bytes); length > 0) {
            appendFromUtf8(bytes.substr(0, length), text);
            bytes.remove_prefix(length);
        } else {
            text.push_back(static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(bytes[0])));
            bytes.remove_prefix(1);
        }
    }
    return text;
}

std::string pathBytes(std::u16string_view path) {
    std::string bytes;
    std::size_t runStart = 0;
    for (std::size_t at = 0; at < path.size(); ++at) {
        const bool isEscape = path[at] >= firstEscape && path[at] <= lastEscape &&
                              (at == runStart || !isHighSurrogate(path[at - 1]));
        if (!isEscape)
            continue;
        bytes += toUtf8(path.substr(runStart, at - runStart));
        bytes.push_back(static_cast<char>(path[at] & 0xFF));
        runStart = at + 1;
    }
    bytes += toUtf8(path.substr(runStart));
    return bytes;
}

std::u16string withSeparator(std::u16string_view folder) {
    std::u16string path(folder);
    if (!path.ends_with(pathSeparator))
        path += pathSeparator;
    return path;
}

std::u16string joinedPath(std::u16string_view folder, std::u16string_view name) {
    return withSeparator(folder).append(name);
}

std::u16string_view fileNamePart(std::u16string_view path) noexcept {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

} // namespace brindlewick
