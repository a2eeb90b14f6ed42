#include "app/settings_text.h"

#include "platform/text.h"
#include "platform/text_encoding.h"

#include <algorithm>

namespace brindlewick {

namespace {

constexpr std::string_view section = "[Brindlewick]";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The range of a key's line without its line end, or the place for a new line of the section.
struct Place {
    bool found = false;
    bool hasSection = false;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view value;
};

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Place findPlace(std::string_view file, std::string_view key) {
    Place place;
    bool inSection = false;
    std::size_t at = file.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    while (at < file.size()) {
        const std::size_t end = std::min(file.find_first_of("\r\n", at), file.size());
        const std::string_view line = trimmed(file.substr(at, end - at));
        if (line.starts_with('[')) {
            inSection = line == section;
        } else if (inSection && !line.empty() && line[0] != ';' && line[0] != '#') {
            const std::size_t equals = line.find('=');
            if (equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key)
                return {true, true, at, end, trimmed(line.substr(equals + 1))};
        }
        std::size_t next = end + 1;
        if (end + 1 < file.size() && file[end] == '\r' && file[end + 1] == '\n')
            ++next;
        if (inSection && !line.empty()) {
            place.hasSection = true;
            place.begin = place.end = std::min(next, file.size());
        }
        at = next;
    }
    return place;
}

bool isLoneSurrogate(std::u16string_view text, std::size_t i) {
    if (isHighSurrogate(text[i]))
        return i + 1 == text.size() || !isLowSurrogate(text[i + 1]);
    return isLowSurrogate(text[i]) && (i == 0 || !isHighSurrogate(text[i - 1]));
}

bool needsEscape(std::u16string_view text, std::size_t i) {
    return text[i] < u' ' || (text[i] >= 0x7F && text[i] < 0xA0) || isLoneSurrogate(text, i);
}

bool isLiteral(std::u16string_view value) {
    if (value.empty())
        return true;
    if (value.front() == u'"' || value.front() == u' ' || value.back() == u' ')
        return false;
    for (std::size_t i = 0; i < value.size(); ++i)
        if (needsEscape(value, i))
            return false;
    return true;
}

void appendEscaped(char16_t unit, std::u16string& text) {
    text += u'\\';
    switch (unit) {
    case u'\n':
        text += u'n';
        return;
    case u'\r':
        text += u'r';
        return;
    case u'\t':
        text += u't';
        return;
    case u'\\':
    case u'"':
        text += unit;
        return;
    default:
        text += u'u';
        for (const char16_t digit : hexadecimalDigits(unit))
            text += digit;
    }
}

std::string valueAsBytes(std::u16string_view value) {
    if (isLiteral(value))
        return toUtf8(value);
    std::u16string quoted = u"\"";
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == u'\\' || value[i] == u'"' || needsEscape(value, i))
            appendEscaped(value[i], quoted);
        else
            quoted += value[i];
    }
    return toUtf8(quoted + u'"');
}

/// The text between the quotes with its escapes replaced; none if the text is not in quotes or has another
/// quote or an unknown escape inside.
std::optional<std::u16string> unquoted(std::u16string_view text) {
    if (text.size() < 2 || text.front() != u'"' || text.back() != u'"')
        return std::nullopt;
    text = text.substr(1, text.size() - 2);
    std::u16string value;
    value.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'"')
            return std::nullopt;
        if (text[i] != u'\\') {
            value += text[i];
            continue;
        }
        if (++i == text.size())
            return std::nullopt;
        switch (text[i]) {
        case u'n':
            value += u'\n';
            break;
        case u'r':
            value += u'\r';
            break;
        case u't':
            value += u'\t';
            break;
        case u'\\':
        case u'"':
            value += text[i];
            break;
        case u'u': {
            const std::optional<char16_t> unit = unitFromHexadecimal(text.substr(i + 1, 4));
            if (!unit)
                return std::nullopt;
            value += *unit;
            i += 4;
            break;
        }
        default:
            return std::nullopt;
        }
    }
    return value;
}

} // namespace

std::optional<std::u16string> settingInText(std::string_view file, std::u16string_view key) {
    const Place place = findPlace(file, toUtf8(key));
    if (!place.found)
        return std::nullopt;
    std::u16string text = fromUtf8(place.value);
    std::optional<std::u16string> inner = unquoted(text);
    return inner ? std::move(inner) : std::optional(std::move(text));
}

std::string textWithSetting(std::string_view file, std::u16string_view key, std::u16string_view value) {
    const std::string keyBytes = toUtf8(key);
    const std::string line = keyBytes + '=' + valueAsBytes(value);
    const Place place = findPlace(file, keyBytes);
    std::string result;
    result.reserve(file.size() + line.size() + section.size() + 3);
    const auto endLine = [&] {
        if (!result.empty() && result.back() != '\n' && result.back() != '\r' && result != byteOrderMark)
            result += '\n';
    };
    if (place.found) {
        result.append(file.substr(0, place.begin)).append(line).append(file.substr(place.end));
        return result;
    }
    result = file.substr(0, place.hasSection ? place.begin : file.size());
    endLine();
    if (!place.hasSection)
        result.append(section) += '\n';
    result.append(line) += '\n';
    if (place.hasSection)
        result.append(file.substr(place.begin));
    return result;
}

} // namespace brindlewick
