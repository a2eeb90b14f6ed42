// Makes key text and value text from a fragment's line, by splitting it and stripping characters.
#pragma once

#include "core/unit_buffer.h"
#include "platform/failure.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brindlewick {

/// Works on the line's text, not on parsed values. This is crude, and kept because users rely on the texts.
///
/// `arraySeen` persists: after the first element that begins with "[", fragments without an array give a
/// different text, as long as this walker is used.
class FragmentWalker {
public:
    /// Adds the line's keys and values to the two texts. Fails with outOfMemory as soon as one would become
    /// longer than `maxTextLength`; what was added before stays. Linear in the line and the added text.
    void walk(std::u16string_view line);
    /// Empties both texts; arraySeen stays.
    void clearTexts() noexcept;

    /// The caller may empty the texts.
    UnitBuffer& keyText() noexcept { return keyText_; }
    UnitBuffer& valueText() noexcept { return valueText_; }
    bool arraySeen() const noexcept { return arraySeen_; }

private:
    void walkElement(std::u16string_view element);
    void walkObjectElement(std::u16string_view element);
    void walkArrayElement(std::u16string_view element);
    void walkOtherElement(std::u16string_view element);
    void openLevels(std::u16string_view element);
    void repeatKey(std::size_t start, std::size_t count);
    void addParts(std::u16string_view element);
    void addValue(std::u16string_view text, std::uint8_t stripped);

    UnitBuffer keyText_{maxTextLength};
    UnitBuffer valueText_{maxTextLength};
    bool arraySeen_ = false;
};

} // namespace brindlewick
