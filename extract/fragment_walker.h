// Turns a fragment's line into key text and value text, by splitting it and stripping characters.
#pragma once

#include <string>
#include <string_view>

namespace brindlewick {

// The four cleanings. Each appends the text to `target` without the listed characters and without the
// blanks (U+0020) that then lead or trail.
void appendKeyCleaning(std::u16string_view text, std::u16string& target); ///< without " { [ ]
void appendLevelCleaning(std::u16string_view text,
                         std::u16string& target); ///< without " { [ ]; a "}" survives
void appendValueCleaning(std::u16string_view text, std::u16string& target); ///< without " { }
void appendLooseValueCleaning(std::u16string_view text,
                              std::u16string& target); ///< without " { } ]; a "[" survives

/// Works on the line's text, not on parsed values: crude, and kept so, because users rely on the texts it
/// gives.
///
/// The state that lasts is `arraySeen`: once any element that begins with "[" was walked, fragments without
/// an array give other text than before, until the walker is made anew.
class FragmentWalker {
public:
    /// Adds what the line holds to the key text and the value text. Fails with outOfMemory as soon as either
    /// would become longer than `maxTextLength`; what was added before stays. Linear in the line and the text
    /// added.
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
    std::u16string name_; ///< room for the name of a level, kept between calls
    bool arraySeen_ = false;
};

} // namespace brindlewick
