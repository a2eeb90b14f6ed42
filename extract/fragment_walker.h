// Makes key text and value text from a fragment's line, by splitting it and stripping characters.
#pragma once

#include <string>
#include <string_view>

namespace brindlewick {

// Each of the four functions appends the text to `target` without the listed characters, and then without
// leading and trailing blanks (U+0020).
void appendKeyCleaning(std::u16string_view text, std::u16string& target); ///< without " { [ ]
void appendLevelCleaning(std::u16string_view text,
                         std::u16string& target);                           ///< without " { [ ], with }
void appendValueCleaning(std::u16string_view text, std::u16string& target); ///< without " { }
void appendLooseValueCleaning(std::u16string_view text,
                              std::u16string& target); ///< without " { } ], with [

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

    const std::u16string& keyText() const noexcept { return keyText_; }
    const std::u16string& valueText() const noexcept { return valueText_; }
    bool arraySeen() const noexcept { return arraySeen_; }

private:
    void walkElement(std::u16string_view element);
    void walkObjectElement(std::u16string_view element);
    void walkArrayElement(std::u16string_view element);
    void walkOtherElement(std::u16string_view element);
    void openLevels(std::u16string_view name, std::size_t count);
    void addParts(std::u16string_view element);
    void finishValuePiece();

    std::u16string keyText_;
    std::u16string valueText_;
    std::u16string name_; ///< buffer for the name of a level, reused between calls
    bool arraySeen_ = false;
};

} // namespace brindlewick
