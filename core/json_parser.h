// Reads a text as values, one fragment a call: the grammar of fragment_reader.h with a sink that builds
// values and notes problems.
#pragma once

#include "core/fragment_reader.h"
#include "core/json_value.h"
#include "core/string_builder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// A problem at one place of a text.
struct Problem {
    enum class Kind : std::uint8_t { inText, inMember, inElement };
    Kind kind;
    ReadingProblem problem{};     ///< for inText
    FailureNumber failure{};      ///< for inMember and inElement
    const char16_t* at = nullptr; ///< for inText and inElement
    std::size_t key = 0;          ///< for inMember and an invalid key: see ValueBuilder::keyOf
};

/// A sink of FragmentReader: builds the fragment's value, and notes each problem in a few bytes.
class ValueBuilder {
public:
    struct Object {
        std::shared_ptr<JsonObject> members = std::make_shared<JsonObject>();
        std::u16string key;
    };
    using Array = std::shared_ptr<JsonArray>;

    /// The value that was read last.
    JsonValue takeValue() { return std::move(value_); }
    const std::vector<Problem>& problems() const noexcept { return problems_; }
    std::u16string_view keyOf(const Problem& problem) const { return problemKeys_[problem.key]; }

    void start();
    PlainMember takePlainMember(const char16_t*&, const char16_t*) noexcept { return PlainMember::none; }
    Object openObject(PlainMember) { return {}; }
    void startMember(Object&) { key_.clear(); }
    const char16_t* takeKeyRun(const char16_t* from, const char16_t* end);
    void putKey(std::u16string_view units) { key_ += units; }
    void restartKey() { key_.clear(); }
    void endKey(Object& object) { object.key = std::move(key_); }
    bool endMember(Object& object) { return object.members->add(object.key, std::move(value_)); }
    void dropMember(const Object& object, FailureNumber failure);
    void closeObject(Object& object) { value_ = std::move(object.members); }

    Array openArray() { return std::make_shared<JsonArray>(); }
    void startElement(const Array&) noexcept {}
    void endElement(Array& array) { array->append(std::move(value_)); }
    void dropElement(const Array&, FailureNumber failure, const char16_t* at);
    void closeArray(Array& array) { value_ = std::move(array); }

    void startString() { string_ = {}; }
    template <char16_t quote>
    const char16_t* takeStringRun(const char16_t* from, const char16_t* end) {
        const char16_t* const stop = runEnd<StringStops<quote>>(from, end);
        string_.Append({from, static_cast<std::size_t>(stop - from)});
        return stop;
    }
    void putUnit(char16_t unit) { string_.Append({&unit, 1}); }
    void endString() { value_ = string_.toString(); }

    bool takePlainNumber(const char16_t*&, const char16_t*) noexcept { return false; }
    void putNumber(const DecimalNumber& number) { value_ = number; }
    void putBoolean(bool value) { value_ = value; }
    void putNull() { value_ = JsonNull(); }
    void putEmpty() { value_ = std::monostate(); }

    void note(ReadingProblem problem, const char16_t* at);

private:
    JsonValue value_;
    std::u16string key_; ///< of the member being read
    cStringBuilder string_;
    std::vector<Problem> problems_;
    std::vector<std::u16string> problemKeys_;
};

class JsonParser {
public:
    JsonParser() = default;
    JsonParser(const JsonParser&) = delete;
    JsonParser& operator=(const JsonParser&) = delete;

    /// Reads the next fragment at `position` (1-based, in and out; 1 for a new text) and sets the position to
    /// where the fragment ended. Returns a JsonObject or a JsonArray, or nothing when no text is left: the
    /// last unit of a text is never the start of a fragment. The text must outlive the calls of
    /// parserErrors(). Time and memory are linear in the text that is read.
    std::optional<JsonValue> parse(std::u16string_view text, std::int32_t& position);

    /// The problems of the last fragment, a line each, ended by CR LF; u"Invalid JSON" if there was no
    /// fragment to read. Built on demand, since a line may quote the whole rest of the text. Fails with
    /// outOfMemory when it would be longer than `maxTextLength`.
    [[nodiscard]] std::u16string parserErrors() const;

private:
    std::u16string errorLine(const Problem& problem) const;

    std::u16string_view text_;
    bool isFragment_ = true;
    ValueBuilder builder_;
    FragmentReader<ValueBuilder> reader_{builder_};
};

} // namespace brindlewick
