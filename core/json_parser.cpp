#include "core/json_parser.h"

#include "platform/text.h"

namespace brindlewick {

namespace {

constexpr std::size_t quotedLength = 20; // code units of the text that most error lines quote

} // namespace

void ValueBuilder::start() {
    problems_.clear();
    problemKeys_.clear();
}

const char16_t* ValueBuilder::takeKeyRun(const char16_t* from, const char16_t* end) {
    const char16_t* const stop = runEnd<KeyStops>(from, end);
    key_.append(from, stop);
    return stop;
}

void ValueBuilder::dropMember(const Object& object, FailureNumber failure) {
    problems_.push_back({.kind = Problem::Kind::inMember, .failure = failure, .key = problemKeys_.size()});
    problemKeys_.push_back(object.key);
}

void ValueBuilder::dropElement(const Array&, FailureNumber failure, const char16_t* at) {
    problems_.push_back({.kind = Problem::Kind::inElement, .failure = failure, .at = at});
}

void ValueBuilder::note(ReadingProblem problem, const char16_t* at) {
    problems_.push_back(
        {.kind = Problem::Kind::inText, .problem = problem, .at = at, .key = problemKeys_.size()});
    if (problem == ReadingProblem::invalidKey)
        problemKeys_.push_back(key_);
}

std::optional<JsonValue> JsonParser::parse(std::u16string_view text, std::int32_t& position) {
    text_ = text;
    std::size_t at = position < 1 ? 0 : static_cast<std::size_t>(position - 1);
    reader_.start(text);
    isFragment_ = reader_.read(at);
    position = static_cast<std::int32_t>(at + 1);
    if (!isFragment_)
        return std::nullopt;
    return builder_.takeValue();
}

std::u16string JsonParser::parserErrors() const {
    if (!isFragment_)
        return u"Invalid JSON";
    std::u16string lines;
    for (const Problem& problem : builder_.problems()) {
        lines += errorLine(problem) + u"\r\n";
        if (lines.size() > maxTextLength)
            throw Failure(FailureNumber::outOfMemory);
    }
    return lines;
}

std::u16string JsonParser::errorLine(const Problem& problem) const {
    const auto line = [](auto... pieces) {
        std::u16string text;
        (text.append(pieces), ...);
        return text;
    };
    if (problem.kind == Problem::Kind::inMember)
        return line(descriptionOf(problem.failure), u": ", builder_.keyOf(problem));
    const auto at = static_cast<std::size_t>(problem.at - text_.data());
    const std::u16string_view rest = text_.substr(at);
    if (problem.kind == Problem::Kind::inElement)
        return line(descriptionOf(problem.failure), u": ", rest.substr(0, quotedLength));
    const std::u16string_view ending = text_.substr(text_.size() - std::min(text_.size(), quotedLength));
    const std::u16string place = decimalText(at + 1);
    switch (problem.problem) {
    case ReadingProblem::missingBrace:
        return line(u"Missing '}': ", ending);
    case ReadingProblem::missingBracket:
        return line(u"Missing ']': ", ending);
    case ReadingProblem::invalidBoolean:
        return line(u"Invalid Boolean at position ", place, u" : ", rest);
    case ReadingProblem::invalidNull:
        return line(u"Invalid null value at position ", place, u" : ", rest);
    case ReadingProblem::invalidKey:
        return line(u"Invalid Key at position ", place, u" : ", builder_.keyOf(problem));
    }
    return {};
}

} // namespace brindlewick
