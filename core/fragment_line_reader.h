// The fast way from text to lines: reads a fragment and writes its line in one go, without values in between.
#pragma once

#include "core/key_index.h"
#include "core/line_batch.h"
#include "core/unit_buffer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlewick {

/// What became of a fragment.
enum class FragmentReading {
    line,      ///< its line is the batch's last
    end,       ///< there is none: no text is left
    needsText, ///< how it goes on lies behind the text at hand
    tooLong,   ///< its line would be longer than lines may be; it is passed over
};

/// Gives, fragment by fragment, the same lines and the same positions as JsonParser::parse followed by
/// serialize, which stay the readable statement of the rules. It keeps no error texts.
class FragmentLineReader {
public:
    /// Lines longer than `longestLine` code units are not given.
    explicit FragmentLineReader(std::size_t longestLine = longestText);

    /// Has `pause` called now and then while a very long fragment is read.
    void setPause(std::function<void()> pause) { pause_ = std::move(pause); }
    /// Forgets the lines read so far.
    void startBatch() noexcept;
    /// Reads the fragment at `position` (1-based, in and out) and adds its line to the batch. Unless
    /// `isWhole`, more text follows the one at hand: a fragment that comes near its end is put back, to be
    /// read again with more text. A batch longer than 2^20 code units is forgotten first. Linear in the text
    /// passed over.
    FragmentReading next(std::u16string_view text, std::int32_t& position, bool isWhole = true);
    /// The same for one fragment after another, until the batch has `batchLength` code units or one gives no
    /// line; tells what became of the last.
    FragmentReading readBatch(std::u16string_view text, std::int32_t& position, bool isWhole,
                              std::size_t batchLength);

    /// Valid until the next call.
    LineBatch batch() const noexcept { return {lines_.view(), ends_}; }
    /// The line read last.
    std::u16string_view line() const { return lines_.view().substr(lineStart_); }

private:
    /// A key as it stands in the line.
    struct Key {
        std::size_t start;
        std::size_t length;
    };

    /// How far readFirstMember came.
    enum class FirstMember {
        unknown, ///< nowhere
        keyRead, ///< up to the value
        alone,   ///< to the object's end
    };

    FragmentReading readFragment();
    void skipIgnorable();
    void skipIgnorableRun();
    void skipComments();
    void readObject();
    FirstMember readFirstMember();
    void readMembers(std::size_t objectStart, FirstMember firstMember);
    void readArray();
    bool readValue();
    template <char16_t quote>
    void readString();
    void readEscape();
    bool readNumber();
    template <std::size_t size>
    bool readWord(const char16_t (&word)[size]);
    void readKey();
    bool readPlainKey();
    void putEncoded(char16_t unit);
    void countValue();

    static constexpr std::size_t valuesBetweenPauses = std::size_t{1} << 15;

    bool atEnd() const noexcept { return at_ >= text_.size(); }
    bool hasBlock(std::size_t at) const noexcept;
    char16_t unit() const noexcept { return at_ < text_.size() ? text_[at_] : u'\xFFFF'; }

    std::u16string_view text_;
    std::size_t at_ = 0;
    int nesting_ = 1;
    bool isMeasuring_ = false; ///< what is written is dropped as soon as nothing depends on it
    UnitBuffer lines_;         ///< of the batch, one behind the other
    std::size_t longestLine_;
    std::size_t lineStart_ = 0;
    std::vector<std::uint32_t> ends_;
    std::function<void()> pause_;
    std::size_t valuesUntilPause_ = valuesBetweenPauses;
    std::vector<Key> keys_; ///< of the objects being read, innermost last
};

} // namespace brindlewick
