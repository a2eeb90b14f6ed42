// The grammar's leaves: strings, numbers, words and keys. See fragment_reader.h for what encloses them.
#pragma once

#include "core/decimal_number.h"
#include "core/plain_json.h"
#include "core/unit_runs.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brindlewick {

/// Problems of a text other than members and elements that fail.
enum class ReadingProblem : std::uint8_t {
    missingBrace,
    missingBracket,
    invalidBoolean,
    invalidNull,
    invalidKey,
};

/// Each function reads from `at_` and moves it. The larger ones are not inlined: otherwise every short value
/// would save registers that only they need, which costs a twelfth of the time on nested documents.
template <class Sink>
class LeafReader {
protected:
    explicit LeafReader(Sink& sink) noexcept : sink_(sink) {}

    bool atEnd() const noexcept { return at_ == end_; }
    /// The current unit; 0xFFFF, which no caller compares with, at the end.
    char16_t unit() const noexcept { return atEnd() ? u'\xFFFF' : *at_; }
    void skipIgnorable() { at_ = pastIgnorable(at_, end_); }

    /// Reads up to the quote that opened the string, or to the end of the text.
    template <char16_t quote>
    [[gnu::noinline]] void readString() {
        ++at_;
        sink_.startString();
        for (;;) {
            at_ = sink_.template takeStringRun<quote>(at_, end_);
            if (atEnd())
                break;
            const char16_t c = *at_++;
            if (c == quote)
                break;
            if (c == u'\\')
                readEscape();
            else
                sink_.putUnit(c);
            // Units beyond ASCII usually come in succession; runs do not include them.
            for (; !atEnd() && *at_ >= 128; ++at_)
                sink_.putUnit(*at_);
        }
        sink_.endString();
    }

    /// Reads what follows a backslash. An unknown escape gives nothing; its letter is then read as an
    /// ordinary unit.
    void readEscape() {
        static constexpr std::u16string_view letters = u"\"\\/'bfnrt";
        static constexpr std::u16string_view meanings = u"\"\\/'\b\f\n\r\t";
        const char16_t letter = unit();
        if (const std::size_t known = letters.find(letter); known != std::u16string_view::npos) {
            sink_.putUnit(meanings[known]);
            ++at_;
        } else if (letter == u'u') {
            ++at_;
            unsigned value = 0;
            bool isDigit = true;
            // Takes four units of any kind, even a closing quote. Only digits before the first other unit
            // count.
            for (int units = 0; units < 4 && !atEnd(); ++units, ++at_) {
                const std::optional<unsigned> digit = hexadecimalValue(*at_);
                isDigit = isDigit && digit;
                value = isDigit ? value * 16 + *digit : value;
            }
            sink_.putUnit(static_cast<char16_t>(value));
        }
    }

    /// Takes all units that may occur in a number, in any order. A run that reaches the end of the text is
    /// empty.
    [[gnu::noinline]] std::optional<FailureNumber> readNumber() {
        if (sink_.takePlainNumber(at_, end_))
            return std::nullopt;
        const char16_t* const start = at_;
        while (!atEnd() && isKind(inNumber, *at_))
            ++at_;
        if (atEnd()) {
            sink_.putEmpty();
            return std::nullopt;
        }
        if (at_ == start)
            return FailureNumber::typeMismatch;
        const DecimalReading reading = readDecimal({start, static_cast<std::size_t>(at_ - start)});
        if (!reading.failure)
            sink_.putNumber(reading.number);
        return reading.failure;
    }

    void readBoolean() {
        const bool isTrue = takeWord(u"true");
        if (!isTrue && !takeWord(u"false"))
            sink_.note(ReadingProblem::invalidBoolean, at_);
        sink_.putBoolean(isTrue);
    }

    void readNull() {
        if (takeWord(u"null")) {
            sink_.putNull();
        } else {
            sink_.note(ReadingProblem::invalidNull, at_);
            sink_.putEmpty();
        }
    }

    bool takeWord(std::u16string_view word) {
        const bool isHere = static_cast<std::size_t>(end_ - at_) >= word.size() && startsWithWord(at_, word);
        at_ += isHere ? word.size() : 0;
        return isHere;
    }

    /// Reads up to a ":" outside quotes, which is consumed, or past a closing quote that is not followed by
    /// ":". Blanks and line ends are dropped, also inside quotes; there are no escapes.
    void readKey() {
        // Most keys are in double quotes, contain no unit with a meaning, and are followed directly by the
        // colon.
        if (unit() == u'"') {
            const char16_t* const stop = sink_.takeKeyRun(at_ + 1, end_);
            if (end_ - stop > 1 && stop[0] == u'"' && stop[1] == u':') {
                at_ = stop + 2;
                return;
            }
            sink_.restartKey();
        }
        bool inDouble = false;
        bool inSingle = false;
        while (!atEnd()) {
            const char16_t* const run = at_;
            while (!atEnd() && !isKind(inKey, *at_))
                ++at_;
            sink_.putKey({run, static_cast<std::size_t>(at_ - run)});
            if (atEnd())
                return;
            const char16_t c = *at_++;
            if (c == u':') {
                if (!inDouble && !inSingle)
                    return;
                sink_.putKey({&c, 1});
            } else if (c == u'"' || c == u'\'') {
                bool& inQuotes = c == u'"' ? inDouble : inSingle;
                inQuotes = !inQuotes;
                if (inQuotes)
                    continue;
                skipIgnorable();
                if (unit() != u':') {
                    sink_.note(ReadingProblem::invalidKey, at_);
                    return;
                }
            }
        }
    }

    Sink& sink_;
    const char16_t* at_ = nullptr;
    const char16_t* end_ = nullptr;
};

} // namespace brindlewick
