// The sinks that write a fragment as its normalised line, or skip one whose line is too long.
#pragma once

#include "core/key_index.h"
#include "core/plain_json.h"
#include "core/unit_block.h"
#include "core/unit_buffer.h"
#include "core/unit_runs.h"
#include "platform/failure.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

struct DecimalNumber;
enum class ReadingProblem : std::uint8_t;

/// The keys of the objects being read, innermost last, as places in the buffer that contains their units.
class OpenKeys {
public:
    /// A place in the buffer, in code units.
    struct Key {
        std::size_t start = 0;
        std::size_t length = 0;
    };
    /// An object that is being read.
    struct Object {
        std::size_t memberStart = 0; ///< in the buffer
        std::size_t firstKey = 0;    ///< number of the object's first key
        Key key;                     ///< of the member being read
        KeyIndex index;
    };

    bool hasMembers(const Object& object) const noexcept { return keys_.size() > object.firstKey; }
    void open(Object& object) const noexcept { object.firstKey = keys_.size(); }
    /// False when the object already has an equal key.
    bool add(Object& object, const UnitBuffer& buffer) {
        if (hasMembers(object) && !isNew(object, buffer))
            return false;
        keys_.push_back(object.key);
        return true;
    }
    /// Where the object's keys begin in a buffer that ends at `end` and contains only keys.
    std::size_t startOf(const Object& object, std::size_t end) const {
        return hasMembers(object) ? keys_[object.firstKey].start : end;
    }
    void close(const Object& object) { keys_.resize(object.firstKey); }
    void clear() noexcept { keys_.clear(); }

private:
    bool isNew(Object& object, const UnitBuffer& buffer) const {
        const auto textOf = [&](Key key) { return buffer.view().substr(key.start, key.length); };
        const auto keyAt = [&](std::size_t number) { return textOf(keys_[object.firstKey + number]); };
        return object.index.add(textOf(object.key), keys_.size() - object.firstKey, keyAt);
    }

    std::vector<Key> keys_;
};

/// A sink of FragmentReader. Appends the fragment's line to a buffer: no blanks between its parts, members in
/// order, keys as they are read, strings in printable ASCII, numbers in positional form. Fails with
/// outOfMemory as soon as the buffer is too long.
class LineWriter {
public:
    /// The buffer may grow to at least `maxLength` code units.
    explicit LineWriter(std::size_t maxLength) : line_(maxLength) {}

    /// What has been written, one line after the other.
    UnitBuffer& buffer() noexcept { return line_; }
    const UnitBuffer& buffer() const noexcept { return line_; }
    void start() noexcept { keys_.clear(); }

    using Object = OpenKeys::Object;
    struct Array {
        std::size_t elementStart = 0;
        bool hasElements = false;
    };

    PlainMember takePlainMember(const char16_t*& at, const char16_t* end) {
        objectStart_ = line_.length();
        return readPlainMember(at, end, line_);
    }
    Object openObject(PlainMember taken) {
        Object object;
        keys_.open(object);
        if (taken == PlainMember::key) {
            object.memberStart = objectStart_ + 1;
            endKey(object, 0);
        } else {
            put(u'{');
        }
        return object;
    }
    void startMember(Object& object) {
        object.memberStart = line_.length();
        line_.makeRoom(2);
        if (keys_.hasMembers(object))
            line_.put(u',');
        line_.put(u'"');
        keyStart_ = line_.length();
    }
    const char16_t* takeKeyRun(const char16_t* from, const char16_t* end) {
        return copyRun<KeyStops>(from, end);
    }
    void restartKey() noexcept { line_.cutTo(keyStart_); }
    void putKey(std::u16string_view units) { put(units); }
    void endKey(Object& object) {
        line_.makeRoom(2);
        line_.put(u'"');
        line_.put(u':');
        endKey(object, keys_.hasMembers(object) ? 1 : 0);
    }
    bool endMember(Object& object) { return keys_.add(object, line_); }
    void dropMember(const Object& object, FailureNumber) noexcept { line_.cutTo(object.memberStart); }
    void closeObject(const Object& object) {
        keys_.close(object);
        put(u'}');
    }

    Array openArray() {
        put(u'[');
        return {};
    }
    void startElement(Array& array) {
        array.elementStart = line_.length();
        if (array.hasElements)
            put(u',');
    }
    void endElement(Array& array) noexcept { array.hasElements = true; }
    void dropElement(const Array& array, FailureNumber, const char16_t*) noexcept {
        line_.cutTo(array.elementStart);
    }
    void closeArray(const Array&) { put(u']'); }

    void startString() { put(u'"'); }
    template <char16_t quote>
    const char16_t* takeStringRun(const char16_t* from, const char16_t* end) {
        return copyRun<StringStops<quote>>(from, end);
    }
    /// One unit of a string, escaped if it has to be.
    void putUnit(char16_t unit);
    void endString() { put(u'"'); }

    bool takePlainNumber(const char16_t*& at, const char16_t* end) {
        const std::size_t length = plainNumberLength(at, end);
        put(std::u16string_view(at, length));
        at += length;
        return length > 0;
    }
    void putNumber(const DecimalNumber& number);
    void putBoolean(bool value) { put(value ? std::u16string_view(u"true") : std::u16string_view(u"false")); }
    void putNull() { put(u"null"); }
    void putEmpty() noexcept {}

    void note(ReadingProblem, const char16_t*) noexcept {}

private:
    void put(char16_t unit) {
        line_.makeRoom(1);
        line_.put(unit);
    }
    void put(std::u16string_view units) {
        line_.makeRoom(units.size());
        line_.put(units);
    }
    /// The key is written, with what follows it: `,"key":`
    void endKey(Object& object, std::size_t commas) const noexcept {
        object.key.start = object.memberStart + commas + 1;
        object.key.length = line_.length() - 2 - object.key.start;
    }

    /// Copies a run of units; returns its end. Most runs end in their first block.
    template <class Stops>
    const char16_t* copyRun(const char16_t* from, const char16_t* end) {
        if (static_cast<std::size_t>(end - from) < blockLength)
            return copyLongRun<Stops>(from, end);
        line_.makeRoom(blockLength);
        const UnitBlock block(from);
        block.storeTo(line_.end());
        const unsigned stops = Stops::in(block).bits();
        const std::size_t plain = stops == 0 ? blockLength : firstOf(stops);
        line_.advance(plain);
        return stops == 0 ? copyLongRun<Stops>(from + blockLength, end) : from + plain;
    }

    template <class Stops>
    [[gnu::noinline]] const char16_t* copyLongRun(const char16_t* from, const char16_t* end) {
        // Makes room for many blocks at a time, so that the inner loop neither checks for room nor stores the
        // buffer's length: that could alias the units, and every block would wait for the one before it.
        constexpr std::size_t blocksAtOnce = 32;
        while (static_cast<std::size_t>(end - from) >= blockLength) {
            const std::size_t blocks =
                std::min(static_cast<std::size_t>(end - from) / blockLength, blocksAtOnce);
            line_.makeRoom(blocks * blockLength);
            char16_t* to = line_.end();
            const char16_t* const limit = from + blocks * blockLength;
            unsigned stops = 0;
            do {
                const UnitBlock block(from);
                block.storeTo(to);
                stops = Stops::in(block).bits();
                const std::size_t plain = stops == 0 ? blockLength : firstOf(stops);
                from += plain;
                to += plain;
            } while (stops == 0 && from < limit);
            line_.advance(static_cast<std::size_t>(to - line_.end()));
            if (stops != 0)
                return from;
        }
        const char16_t* const run = from;
        while (from < end && !Stops::is(*from))
            ++from;
        put(std::u16string_view(run, static_cast<std::size_t>(from - run)));
        return from;
    }

    UnitBuffer line_;
    OpenKeys keys_;
    std::size_t objectStart_ = 0; ///< of the object that was passed to takePlainMember
    std::size_t keyStart_ = 0;    ///< of the key being read
};

/// A sink of FragmentReader that finds a fragment's end and writes nothing. It keeps the keys of open
/// objects, since a duplicate key ends its object.
class FragmentSkipper {
public:
    using Object = OpenKeys::Object;
    struct Array {};

    void start() noexcept {
        units_.cutTo(0);
        keys_.clear();
    }

    PlainMember takePlainMember(const char16_t*&, const char16_t*) noexcept { return PlainMember::none; }
    Object openObject(PlainMember) {
        Object object;
        keys_.open(object);
        return object;
    }
    void startMember(Object& object) noexcept { keyStart_ = object.key.start = units_.length(); }
    const char16_t* takeKeyRun(const char16_t* from, const char16_t* end) {
        const char16_t* const stop = runEnd<KeyStops>(from, end);
        putKey({from, static_cast<std::size_t>(stop - from)});
        return stop;
    }
    void restartKey() noexcept { units_.cutTo(keyStart_); }
    void putKey(std::u16string_view units) {
        units_.makeRoom(units.size());
        units_.put(units);
    }
    void endKey(Object& object) noexcept { object.key.length = units_.length() - object.key.start; }
    bool endMember(Object& object) { return keys_.add(object, units_); }
    void dropMember(const Object& object, FailureNumber) noexcept { units_.cutTo(object.key.start); }
    void closeObject(const Object& object) {
        units_.cutTo(keys_.startOf(object, units_.length()));
        keys_.close(object);
    }

    Array openArray() noexcept { return {}; }
    void startElement(Array) noexcept {}
    void endElement(Array) noexcept {}
    void dropElement(Array, FailureNumber, const char16_t*) noexcept {}
    void closeArray(Array) noexcept {}

    void startString() noexcept {}
    template <char16_t quote>
    const char16_t* takeStringRun(const char16_t* from, const char16_t* end) {
        return runEnd<StringStops<quote>>(from, end);
    }
    void putUnit(char16_t) noexcept {}
    void endString() noexcept {}

    bool takePlainNumber(const char16_t*& at, const char16_t* end) {
        const std::size_t length = plainNumberLength(at, end);
        at += length;
        return length > 0;
    }
    void putNumber(const DecimalNumber&) noexcept {}
    void putBoolean(bool) noexcept {}
    void putNull() noexcept {}
    void putEmpty() noexcept {}

    void note(ReadingProblem, const char16_t*) noexcept {}

private:
    UnitBuffer units_{UnitBuffer::unlimited}; ///< of the open objects' keys
    OpenKeys keys_;
    std::size_t keyStart_ = 0; ///< of the key being read
};

} // namespace brindlewick
