// The grammar: reads one fragment of lenient JSON text and passes its parts to a sink.
//
// Accepts single-quoted strings, unquoted keys, comments, and parentheses (as blanks), and never fails on bad
// text. A call does not read a whole document: an object is read only up to the first "," or "[" at its own
// level, where the next call continues. So `{"a":1,"b":[2]}` is read as `{"a":1}`, `{}` and `[2]`. An array
// is read to its end.
#pragma once

#include "core/json_value.h"
#include "core/leaf_reader.h"
#include "core/plain_json.h"
#include "platform/failure.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace brindlewick {

/// Calls the sink for a fragment's parts in the order of the text. The operations of a sink `s`:
///
///     s.start()                       for a new text; after a failure, objects may still be open
///     s.takePlainMember(at, end)      may read an object's beginning itself (see readPlainMember)
///     s.openObject(taken) -> object   the handle of an object, kept until closeObject
///     s.startMember(object)           then the key's units:
///         s.takeKeyRun(from, end)     reads a run without KeyStops; returns its end
///         s.putKey(units)  s.restartKey()
///     s.endKey(object)                then one value
///     s.endMember(object) -> bool     false for a key that the object already has
///     s.dropMember(object, failure)   instead of endMember, and after endMember has returned false
///     s.closeObject(object)
///     s.openArray() -> array          the handle of an array, kept until closeArray
///     s.startElement(array)           then one value
///     s.endElement(array)  or  s.dropElement(array, failure, at)
///     s.closeArray(array)
///
/// Values: objects, arrays, and
///
///     s.startString()  s.takeStringRun<quote>(from, end)  s.putUnit(unit)  s.endString()
///     s.takePlainNumber(at, end)      may read a number itself (see plainNumberLength)
///     s.putNumber(number)  s.putBoolean(value)  s.putNull()  s.putEmpty()
///
/// s.note(problem, at) is called for problems. `at` is where the reader is, `failure` a FailureNumber.
template <class Sink>
class FragmentReader : private LeafReader<Sink> {
public:
    explicit FragmentReader(Sink& sink) noexcept : LeafReader<Sink>(sink) {}

    /// Sets the text to read. It must not move or change until the last `read`. Call this after a failure,
    /// too.
    void start(std::u16string_view text) {
        begin_ = text.data();
        end_ = begin_ + text.size();
        nesting_ = 1;
        sink_.start();
    }

    /// Reads the fragment at `at` (code units from 0, in and out) and sets `at` to its end; for an object,
    /// that is the "," or "[" that ended it. False when no text is left: the last unit of a text is never the
    /// start of a fragment. Linear in the text that is read; recursion is limited by maxNesting. Fails as
    /// the sink does.
    bool read(std::size_t& at) {
        if (at > static_cast<std::size_t>(end_ - begin_))
            return false;
        moveTo(at);
        const bool isFragment = readNext();
        at = place();
        return isFragment;
    }
    /// The same in three steps, for fragments in succession: `at` is at most the text's length.
    void moveTo(std::size_t at) noexcept { at_ = begin_ + at; }
    bool readNext() {
        skipIgnorable();
        const bool isFragment = end_ - at_ > 1;
        if (isFragment && *at_ == u'[')
            readArray();
        else if (isFragment)
            readObject();
        return isFragment;
    }
    std::size_t place() const noexcept { return static_cast<std::size_t>(at_ - begin_); }

private:
    using Leaves = LeafReader<Sink>;
    using Leaves::at_, Leaves::end_, Leaves::sink_;
    using Leaves::atEnd, Leaves::unit, Leaves::skipIgnorable;

    void readObject() {
        if (const PlainMember taken = sink_.takePlainMember(at_, end_); taken != PlainMember::wholeObject)
            readMembers(taken);
    }

    /// Reads up to "}", which is consumed, or to "," or "[", which is left for the next fragment.
    [[gnu::noinline]] void readMembers(PlainMember taken) {
        auto object = sink_.openObject(taken);
        bool isKeyRead = taken == PlainMember::key;
        if (!isKeyRead)
            ++at_; // any unit: "{", or the "," at which the previous fragment stopped
        for (;; isKeyRead = false) {
            if (!isKeyRead) {
                skipIgnorable();
                const char16_t c = unit();
                at_ += c == u'}' ? 1 : 0;
                if (c == u'}' || c == u',' || c == u'[')
                    break;
                if (atEnd()) {
                    sink_.note(ReadingProblem::missingBrace, at_);
                    break;
                }
                sink_.startMember(object);
                this->readKey();
                sink_.endKey(object);
            }
            std::optional<FailureNumber> failure = readValue();
            if (!failure && !sink_.endMember(object))
                failure = FailureNumber::duplicateKey;
            if (failure) {
                sink_.dropMember(object, *failure);
                break;
            }
        }
        sink_.closeObject(object);
    }

    /// Reads up to "]", which is consumed, as are the commas of an array. An object inside is read only up to
    /// its own first comma; the rest of its text is then read as further elements.
    [[gnu::noinline]] void readArray() {
        ++at_;
        auto array = sink_.openArray();
        const char16_t* lastStart = nullptr;
        for (;;) {
            skipIgnorable();
            const char16_t c = unit();
            if (c == u']') {
                ++at_;
                break;
            }
            if (c == u',') {
                ++at_;
                skipIgnorable();
            } else if (atEnd()) {
                sink_.note(ReadingProblem::missingBracket, at_);
                break;
            }
            // A bad boolean or null is an element of no length. To read it again would never end.
            const bool isStuck = at_ == lastStart && !atEnd();
            lastStart = at_;
            sink_.startElement(array);
            const std::optional<FailureNumber> failure = isStuck ? FailureNumber::outOfMemory : readValue();
            if (failure) {
                sink_.dropElement(array, *failure, at_);
                break;
            }
            sink_.endElement(array);
        }
        sink_.closeArray(array);
    }

    /// Failures are common here, so they are returned, not thrown.
    std::optional<FailureNumber> readValue() {
        skipIgnorable();
        switch (unit()) {
        case u'{':
        case u'[':
            if (nesting_ == maxNesting)
                return FailureNumber::outOfStackSpace;
            ++nesting_;
            if (*at_ == u'{')
                readObject();
            else
                readArray();
            --nesting_;
            return std::nullopt;
        case u'"':
            this->template readString<u'"'>();
            return std::nullopt;
        case u'\'':
            this->template readString<u'\''>();
            return std::nullopt;
        case u't':
        case u'f':
            this->readBoolean();
            return std::nullopt;
        case u'n':
            this->readNull();
            return std::nullopt;
        default:
            return this->readNumber();
        }
    }

    const char16_t* begin_ = nullptr;
    int nesting_ = 1;
};

} // namespace brindlewick
