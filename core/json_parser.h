// The lenient JSON reader: cuts a text, call by call, into small fragments.
#pragma once

#include "core/json_value.h"
#include "platform/failure.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

class cStringBuilder;

/// Reads single-quoted strings, unquoted keys, comments and parentheses (as blanks), and never fails on bad
/// text: problems become lines of parserErrors() and reading goes on from where it stopped.
///
/// A call of `parse` does not read a whole document. An object is read only up to the first "," or "[" at its
/// own level, and the next call goes on from there; so `{"a":1,"b":[2]}` comes as `{"a":1}`, `{}` and `[2]`.
/// Every call is linear in the text it passes over, memory included, for every text.
class JsonParser {
public:
    /// Reads the next fragment at `position` (1-based, in and out; 1 for a new text) and leaves the position
    /// where the fragment stopped. Gives a JsonObject or a JsonArray, or nothing when no text is left: the
    /// last unit of a text is never the start of a fragment. The text must outlive the calls of
    /// parserErrors().
    std::optional<JsonValue> parse(std::u16string_view text, std::int32_t& position);

    /// What was wrong in the fragment read last, each problem a line ended by CR LF, or u"Invalid JSON". Put
    /// together on demand from a few bytes a problem, since a line may quote the whole rest of the text.
    /// Fails with outOfMemory when it would be longer than `longestText`.
    std::u16string parserErrors() const;

private:
    /// What a line of parserErrors() is made of.
    struct Problem {
        enum class Kind : std::uint8_t {
            invalidJson,
            missingBrace,
            missingBracket,
            invalidArray,
            invalidBoolean,
            invalidNull,
            invalidKey,
            memberFailed,
            elementFailed,
        };
        Kind kind;
        FailureNumber failure = FailureNumber::invalidProcedureCall; ///< of memberFailed and elementFailed
        std::int32_t position = 0;                                   ///< 1-based
        std::uint32_t key = 0; ///< of invalidKey and memberFailed: index into problemKeys_
    };

    // Each reader starts and ends at at_. Those that can fail give false and say why in failure_: failures
    // are everyday here, so they are not thrown.
    void skipIgnorable();
    std::shared_ptr<JsonObject> parseObject();
    std::shared_ptr<JsonArray> parseArray();
    bool parseValue(JsonValue& value);
    std::u16string parseString();
    bool parseNumber(JsonValue& value);
    bool parseBoolean();
    JsonValue parseNull();
    std::u16string parseKey();

    void appendEscape(cStringBuilder& builder);
    bool fail(FailureNumber failure);
    void note(Problem::Kind kind);
    void noteKey(Problem::Kind kind, std::u16string_view key);
    void appendLine(const Problem& problem, std::u16string& lines) const;

    bool atEnd() const noexcept { return at_ >= text_.size(); }
    /// The unit at at_; 0xFFFF, which no test looks for, beyond the end.
    char16_t unit() const noexcept { return at_ < text_.size() ? text_[at_] : u'\xFFFF'; }
    std::int32_t position() const noexcept { return static_cast<std::int32_t>(at_ + 1); }

    std::u16string_view text_;
    std::size_t at_ = 0; ///< index from 0
    int nesting_ = 0;
    FailureNumber failure_ = FailureNumber::typeMismatch; ///< of the reader that gave false last
    std::vector<Problem> problems_;
    std::vector<std::u16string> problemKeys_;
};

} // namespace brindlewick
