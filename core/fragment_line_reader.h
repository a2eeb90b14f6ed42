// The fast way from text to lines: reads a fragment and writes its line in one go, without values in between.
#pragma once

#include "core/key_index.h"
#include "core/line_buffer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Gives, fragment by fragment, the same lines and the same positions as JsonParser::parse followed by
/// serialize, which stay the readable statement of the rules. It keeps no error texts.
class FragmentLineReader {
public:
    /// Reads the next fragment at `position` (1-based, in and out). False when no text is left. Fails with
    /// outOfMemory when the line would be longer than `longestText`; the position is then behind the
    /// fragment. Linear in the text passed over.
    bool next(std::u16string_view text, std::int32_t& position);
    /// The line of the fragment read last; valid until the next call.
    std::u16string_view line() const noexcept { return line_.view(); }

private:
    /// A key as it stands in the line.
    struct Key {
        std::size_t start;
        std::size_t length;
    };

    void skipIgnorable();
    void skipComments();
    void readObject();
    void readArray();
    bool readValue();
    void readString();
    void readEscape();
    bool readNumber();
    bool readWord(std::u16string_view word);
    void readKey();
    void putEncoded(char16_t unit);

    bool atEnd() const noexcept { return at_ >= text_.size(); }
    char16_t unit() const noexcept { return at_ < text_.size() ? text_[at_] : u'\xFFFF'; }

    std::u16string_view text_;
    std::size_t at_ = 0;
    int nesting_ = 0;
    LineBuffer line_;
    std::vector<Key> keys_; ///< of the objects being read, innermost last
};

} // namespace brindlewick
