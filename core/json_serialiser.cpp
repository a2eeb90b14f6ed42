#include "core/json_serialiser.h"

#include "core/string_builder.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace brindlewick {

namespace {

bool isWrittenAsItIs(char16_t unit) {
    return unit > 31 && unit < 127 && unit != u'"' && unit != u'\\' && unit != u'/';
}

void appendEscaped(char16_t unit, cStringBuilder& line) {
    static constexpr std::u16string_view units = u"\"\\/\b\f\n\r\t";
    static constexpr std::u16string_view letters = u"\"\\/bfnrt";
    if (const std::size_t known = units.find(unit); known != std::u16string_view::npos) {
        const char16_t escape[] = {u'\\', letters[known]};
        line.Append({escape, 2});
    } else {
        const std::array<char16_t, 4> digits = hexadecimalDigits(unit);
        line.Append(u"\\u");
        line.Append({digits.data(), digits.size()});
    }
}

void appendEncoded(std::u16string_view text, cStringBuilder& line) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t runStart = at;
        while (at < text.size() && isWrittenAsItIs(text[at]))
            ++at;
        line.Append(text.substr(runStart, at - runStart));
        for (; at < text.size() && !isWrittenAsItIs(text[at]); ++at)
            appendEscaped(text[at], line);
        if (static_cast<std::size_t>(line.Length()) > maxTextLength)
            throw Failure(FailureNumber::outOfMemory);
    }
}

/// Appends a value to a line. The recursion is as deep as the value; the reader limits that.
struct Serialiser {
    cStringBuilder& line;

    void operator()(std::monostate) const {}
    void operator()(JsonNull) const { line.Append(u"null"); }
    void operator()(bool value) const { line.Append(value ? u"true" : u"false"); }
    void operator()(const DecimalNumber& number) const {
        std::u16string digits;
        appendDecimal(number, digits);
        line.Append(digits);
    }
    void operator()(const std::u16string& text) const {
        line.Append(u"\"");
        appendEncoded(text, line);
        line.Append(u"\"");
    }
    void operator()(const std::shared_ptr<JsonObject>& object) const {
        if (object == nullptr)
            return;
        line.Append(u"{");
        bool isFirst = true;
        for (const JsonObject::Member& member : object->members()) {
            line.Append(isFirst ? u"\"" : u",\"");
            isFirst = false;
            line.Append(member.key);
            line.Append(u"\":");
            std::visit(*this, member.value);
        }
        line.Append(u"}");
    }
    void operator()(const std::shared_ptr<JsonArray>& array) const {
        if (array == nullptr)
            return;
        line.Append(u"[");
        bool isFirst = true;
        for (const JsonValue& element : array->elements()) {
            if (!isFirst)
                line.Append(u",");
            isFirst = false;
            std::visit(*this, element);
        }
        line.Append(u"]");
    }
};

const JsonValue* lookUp(const NativeArray& array, std::u16string_view indexText) {
    if (array.dimensions.size() != 1 || indexText.size() != 1 || indexText[0] < u'0' || indexText[0] > u'9')
        return nullptr;
    const std::int64_t offset = std::int64_t{indexText[0] - u'0'} - array.dimensions[0].lower;
    if (offset < 0 || static_cast<std::size_t>(offset) >= array.elements.size())
        return nullptr;
    return &array.elements[static_cast<std::size_t>(offset)];
}

std::u16string withCommasBetween(std::u16string_view units) {
    std::u16string text;
    for (const char16_t unit : units) {
        if (!text.empty())
            text.push_back(u',');
        text.push_back(unit);
    }
    return text;
}

} // namespace

std::u16string serialize(const JsonValue& value) {
    cStringBuilder line;
    std::visit(Serialiser{line}, value);
    if (static_cast<std::size_t>(line.Length()) > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
    return line.toString();
}

std::u16string encodeString(std::u16string_view text) {
    cStringBuilder encoded;
    appendEncoded(text, encoded);
    return encoded.toString();
}

std::u16string serializeNativeArray(const NativeArray& array, std::int32_t dimension,
                                    std::u16string_view indexText, std::u16string& path) {
    cStringBuilder line;
    if (static_cast<std::size_t>(dimension) > array.dimensions.size()) {
        const std::u16string index = withCommasBetween(path + std::u16string(indexText));
        if (const JsonValue* element = lookUp(array, index))
            line.Append(serialize(*element));
        return line.toString();
    }
    path += indexText;
    line.Append(u"[");
    const NativeArray::Bounds bounds = array.dimensions[static_cast<std::size_t>(dimension - 1)];
    for (std::int32_t index = bounds.lower; index <= bounds.upper; ++index) {
        line.Append(serializeNativeArray(array, dimension + 1, decimalText(index), path));
        if (index < bounds.upper)
            line.Append(u",");
    }
    line.Append(u"]");
    if (dimension >= 2) // for the first dimension the length would be negative; the path stays
        path.resize(std::min(path.size(), static_cast<std::size_t>(dimension - 2)));
    return line.toString();
}

} // namespace brindlewick
