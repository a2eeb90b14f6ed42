#include "core/json_parser.h"

#include "core/string_builder.h"

#include <algorithm>
#include <array>

namespace brindlewick {

namespace {

constexpr std::u16string_view lineEnd = u"\r\n";
constexpr std::size_t quotedLength = 20; // code units of the text that most error lines quote

bool isNumberUnit(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u'-' || unit == u'.' || unit == u'e' ||
           unit == u'E';
}

std::optional<unsigned> hexadecimalDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9')
        return static_cast<unsigned>(unit - u'0');
    if (unit >= u'a' && unit <= u'f')
        return static_cast<unsigned>(unit - u'a' + 10);
    if (unit >= u'A' && unit <= u'F')
        return static_cast<unsigned>(unit - u'A' + 10);
    return std::nullopt;
}

std::u16string decimalText(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace

std::optional<JsonValue> JsonParser::parse(std::u16string_view text, std::int32_t& position) {
    text_ = text;
    at_ = position < 1 ? 0 : static_cast<std::size_t>(position - 1);
    nesting_ = 1;
    problems_.clear();
    problemKeys_.clear();

    std::optional<JsonValue> fragment;
    skipIgnorable();
    // The text's last unit is left unread: most often it is the bracket that closes the document.
    if (at_ + 1 >= text_.size())
        note(Problem::Kind::invalidJson);
    else if (unit() == u'[')
        fragment = parseArray();
    else
        fragment = parseObject();
    position = this->position();
    return fragment;
}

/// Passes over blanks, line ends, parentheses and comments. A lone "/" or "*" outside a comment counts as a
/// blank, and units between a "*" and a later "/" do not keep the two from closing a block comment.
void JsonParser::skipIgnorable() {
    bool slashSeen = false;
    bool inComment = false;
    bool inBlockComment = false;
    for (; at_ < text_.size(); ++at_) {
        switch (text_[at_]) {
        case u'\r':
        case u'\n':
            if (!inBlockComment) {
                slashSeen = false;
                inComment = false;
            }
            break;
        case u'\t':
        case u' ':
        case u'(':
        case u')':
            break;
        case u'/':
            if (inBlockComment) {
                if (slashSeen)
                    slashSeen = inComment = inBlockComment = false;
            } else {
                inComment = slashSeen;
                slashSeen = !slashSeen;
            }
            break;
        case u'*':
            if (slashSeen)
                inComment = inBlockComment = true;
            slashSeen = !slashSeen;
            break;
        default:
            if (!inComment)
                return;
        }
    }
}

/// Reads members up to "}", which is consumed, or up to "," or "[", which are left for the next call.
std::shared_ptr<JsonObject> JsonParser::parseObject() {
    auto object = std::make_shared<JsonObject>();
    skipIgnorable();
    ++at_; // whatever stands there: "{", or the "," at which the fragment before stopped
    for (;;) {
        skipIgnorable();
        switch (unit()) {
        case u'}':
            ++at_;
            return object;
        case u',':
        case u'[':
            return object;
        default:
            break;
        }
        if (atEnd()) {
            note(Problem::Kind::missingBrace);
            return object;
        }
        std::u16string key = parseKey();
        JsonValue value;
        if (!parseValue(value)) {
            noteKey(Problem::Kind::memberFailed, key);
            return object;
        }
        if (!object->add(key, std::move(value))) {
            fail(FailureNumber::duplicateKey);
            noteKey(Problem::Kind::memberFailed, key);
            return object;
        }
    }
}

/// Reads elements up to "]". Unlike an object's, an array's commas are consumed; an object inside is read
/// only up to its own first comma, and the rest of its text is then read as further elements.
std::shared_ptr<JsonArray> JsonParser::parseArray() {
    auto array = std::make_shared<JsonArray>();
    skipIgnorable();
    if (unit() != u'[') {
        note(Problem::Kind::invalidArray);
        return array;
    }
    ++at_;
    std::size_t lastStart = text_.size();
    for (;;) {
        skipIgnorable();
        if (unit() == u']') {
            ++at_;
            return array;
        }
        if (unit() == u',') {
            ++at_;
            skipIgnorable();
        } else if (atEnd()) {
            note(Problem::Kind::missingBracket);
            return array;
        }
        // A bad boolean or null is an element of its own but does not move on: read there once more, the
        // array would never end.
        JsonValue value;
        const bool isStuck = at_ == lastStart && !atEnd();
        lastStart = at_;
        if (isStuck ? !fail(FailureNumber::outOfMemory) : !parseValue(value)) {
            note(Problem::Kind::elementFailed);
            return array;
        }
        array->append(std::move(value));
    }
}

bool JsonParser::parseValue(JsonValue& value) {
    skipIgnorable();
    switch (unit()) {
    case u'{':
    case u'[': {
        if (nesting_ == deepestNesting)
            return fail(FailureNumber::outOfStackSpace);
        ++nesting_;
        if (unit() == u'{')
            value = parseObject();
        else
            value = parseArray();
        --nesting_;
        return true;
    }
    case u'"':
    case u'\'':
        value = parseString();
        return true;
    case u't':
    case u'f':
        value = parseBoolean();
        return true;
    case u'n':
        value = parseNull();
        return true;
    default:
        return parseNumber(value);
    }
}

/// Reads up to the quote that opened the string, or to the end of the text.
std::u16string JsonParser::parseString() {
    cStringBuilder builder;
    skipIgnorable();
    const char16_t quote = unit();
    ++at_;
    while (!atEnd()) {
        const std::size_t runStart = at_;
        while (!atEnd() && text_[at_] != quote && text_[at_] != u'\\')
            ++at_;
        builder.Append(text_.substr(runStart, at_ - runStart));
        if (atEnd())
            break;
        const bool isEscape = text_[at_] == u'\\';
        ++at_;
        if (!isEscape)
            break;
        appendEscape(builder);
    }
    return builder.toString();
}

/// Reads what follows a backslash. An unknown escape appends nothing: its letter is then read as an ordinary
/// unit.
void JsonParser::appendEscape(cStringBuilder& builder) {
    static constexpr std::u16string_view letters = u"\"\\/'bfnrt";
    static constexpr std::u16string_view meanings = u"\"\\/'\b\f\n\r\t";
    const char16_t letter = unit();
    if (const std::size_t known = letters.find(letter); known != std::u16string_view::npos) {
        builder.Append(meanings.substr(known, 1));
        ++at_;
    } else if (letter == u'u') {
        ++at_;
        unsigned value = 0;
        for (const char16_t digitUnit : text_.substr(std::min(at_, text_.size()), 4)) {
            const std::optional<unsigned> digit = hexadecimalDigit(digitUnit);
            if (!digit)
                break;
            value = value * 16 + *digit;
        }
        const auto decoded = static_cast<char16_t>(value);
        builder.Append({&decoded, 1});
        at_ = std::min(at_ + 4, text_.size()); // whatever the four units were, a closing quote among them
    }
}

/// Takes every unit that a number may hold, in any order. A run that the end of the text cuts off is empty.
bool JsonParser::parseNumber(JsonValue& value) {
    skipIgnorable();
    const std::size_t start = at_;
    while (!atEnd() && isNumberUnit(text_[at_]))
        ++at_;
    if (atEnd()) {
        value = std::monostate();
        return true;
    }
    const DecimalReading reading = readDecimal(text_.substr(start, at_ - start));
    if (reading.failure)
        return fail(*reading.failure);
    value = reading.number;
    return true;
}

bool JsonParser::parseBoolean() {
    skipIgnorable();
    for (const auto& [word, meaning] : {std::pair(std::u16string_view(u"true"), true), {u"false", false}}) {
        if (text_.substr(at_, word.size()) == word) {
            at_ += word.size();
            return meaning;
        }
    }
    note(Problem::Kind::invalidBoolean);
    return false;
}

JsonValue JsonParser::parseNull() {
    constexpr std::u16string_view word = u"null";
    skipIgnorable();
    if (text_.substr(at_, word.size()) == word) {
        at_ += word.size();
        return JsonNull();
    }
    note(Problem::Kind::invalidNull);
    return std::monostate();
}

/// Reads up to a ":" outside quotes, or to a closing quote that no ":" follows. Blanks and line ends are
/// dropped, inside quotes too; there are no escapes.
std::u16string JsonParser::parseKey() {
    std::u16string key;
    bool inDouble = false;
    bool inSingle = false;
    skipIgnorable();
    while (!atEnd()) {
        const char16_t c = text_[at_];
        ++at_;
        switch (c) {
        case u'"':
        case u'\'': {
            bool& inQuotes = c == u'"' ? inDouble : inSingle;
            inQuotes = !inQuotes;
            if (!inQuotes) {
                skipIgnorable();
                if (unit() != u':') {
                    noteKey(Problem::Kind::invalidKey, key);
                    return key;
                }
            }
            break;
        }
        case u':':
            if (!inDouble && !inSingle)
                return key;
            key.push_back(c);
            break;
        case u'\r':
        case u'\n':
        case u'\t':
        case u' ':
            break;
        default:
            key.push_back(c);
        }
    }
    return key;
}

/// Always false, so that a reader can end with it.
bool JsonParser::fail(FailureNumber failure) {
    failure_ = failure;
    return false;
}

void JsonParser::note(Problem::Kind kind) {
    problems_.push_back({kind, failure_, position(), 0});
}

void JsonParser::noteKey(Problem::Kind kind, std::u16string_view key) {
    problemKeys_.emplace_back(key);
    problems_.push_back({kind, failure_, position(), static_cast<std::uint32_t>(problemKeys_.size() - 1)});
}

std::u16string JsonParser::parserErrors() const {
    std::u16string lines;
    for (const Problem& problem : problems_) {
        appendLine(problem, lines);
        if (lines.size() > longestText)
            throw Failure(FailureNumber::outOfMemory);
    }
    return lines;
}

void JsonParser::appendLine(const Problem& problem, std::u16string& lines) const {
    const std::u16string_view rest =
        text_.substr(std::min<std::size_t>(static_cast<std::size_t>(problem.position - 1), text_.size()));
    const std::u16string_view ending = text_.substr(text_.size() - std::min(text_.size(), quotedLength));
    const auto line = [&](auto... pieces) { (lines.append(pieces), ...); };
    const std::u16string place = decimalText(problem.position);
    switch (problem.kind) {
    case Problem::Kind::invalidJson:
        line(u"Invalid JSON");
        return; // the one text without a line end
    case Problem::Kind::missingBrace:
        line(u"Missing '}': ", ending);
        break;
    case Problem::Kind::missingBracket:
        line(u"Missing ']': ", ending);
        break;
    case Problem::Kind::invalidArray:
        line(u"Invalid Array at position ", place, u" : ", rest.substr(0, quotedLength));
        break;
    case Problem::Kind::invalidBoolean:
        line(u"Invalid Boolean at position ", place, u" : ", rest);
        break;
    case Problem::Kind::invalidNull:
        line(u"Invalid null value at position ", place, u" : ", rest);
        break;
    case Problem::Kind::invalidKey:
        line(u"Invalid Key at position ", place, u" : ", problemKeys_[problem.key]);
        break;
    case Problem::Kind::memberFailed:
        line(descriptionOf(problem.failure), u": ", problemKeys_[problem.key]);
        break;
    case Problem::Kind::elementFailed:
        line(descriptionOf(problem.failure), u": ", rest.substr(0, quotedLength));
        break;
    }
    lines.append(lineEnd);
}

} // namespace brindlewick
