// The two options of a run: the extraction mode, and whether rows show the file's name.
#pragma once

#include "platform/settings_store.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// `none` results from a stored value that is no mode's number; a run then behaves as with valueWithoutTag.
enum class ExtractionMode : std::int32_t {
    none = 0,
    valueAndTag = 1,
    valueWithoutTag = 2,
    entireLine = 3,
    all = 4,
};

/// A mode, the option button that selects it, what the "?" message says about it, and the rows that it gives.
struct ModeEntry {
    ExtractionMode mode;
    std::u16string_view control; ///< the option button's name
    std::u16string_view caption; ///< the option button's caption
    std::u16string_view explanation;
    std::u16string_view example;
};

/// Every mode but `none`, in ascending order of their numbers. To add one, add its number above, its entry
/// here, its handler in option_handlers, and its rows in file_extraction.
inline constexpr auto extractionModes = std::to_array<ModeEntry>({
    {ExtractionMode::valueAndTag, u"Option1", u"Extract value and tag",
     u"will extract all characters including tag name",
     u"In {\"name\":\"Bo\",\"age\":7}, the tag name gives the row\nname :Bo"},
    {ExtractionMode::valueWithoutTag, u"Option2", u"Extract value without tag",
     u"will extract only value characters without tag name",
     u"In {\"name\":\"Bo\",\"age\":7}, the tag name gives the row\nBo"},
    {ExtractionMode::entireLine, u"Option3", u"Extract entire line containing tag",
     u"will extract only strings containing tag name",
     u"In {\"name\":\"Bo\",\"age\":7}, the tag name gives the row\n{\"name\":\"Bo\"}"},
    {ExtractionMode::all, u"Option4", u"Extract all",
     u"will extract all characters including tags names without filters",
     u"In {\"name\":\"Bo\",\"age\":7}, any tag gives a row of names and one of values\nname age\nBo 7"},
});

/// A value for each entry of `extractionModes`, in that order.
template <class Value>
using PerMode = std::array<Value, extractionModes.size()>;

/// The mode's index in `extractionModes`; none for ExtractionMode::none.
[[nodiscard]] constexpr std::optional<std::size_t> placeOf(ExtractionMode mode) noexcept {
    for (std::size_t place = 0; place < extractionModes.size(); ++place)
        if (extractionModes[place].mode == mode)
            return place;
    return std::nullopt;
}

class ExtractionOptions {
public:
    explicit ExtractionOptions(SettingsStore& settings) noexcept : settings_(settings) {}

    [[nodiscard]] ExtractionMode mode() const noexcept { return mode_; }
    [[nodiscard]] bool includeFilename() const noexcept { return includeFilename_; }

    /// Sets the mode and stores its number under "Option" at once. The mode is set even when storing fails.
    void chooseMode(ExtractionMode mode);
    /// Sets the flag and stores "0" or "1" under "Check1" at once. The flag is set even when storing fails.
    void setIncludeFilename(bool include);

    /// Selects no mode and stores nothing, so that the stored mode of a later version is not lost.
    void selectNone() noexcept { mode_ = ExtractionMode::none; }

private:
    SettingsStore& settings_;
    ExtractionMode mode_ = ExtractionMode::valueAndTag;
    bool includeFilename_ = false;
};

/// The mode for a stored "Option". Skips leading blanks and reads the leading number, so u"2abc" is mode 2.
/// Text without a leading number, and a number that no mode has, give `none`.
[[nodiscard]] ExtractionMode modeFromSetting(std::u16string_view stored);
/// The number of a stored "Check1" or "ShowAgain". Text that is not a whole number fails with typeMismatch,
/// a number that does not fit 16 bits with overflow.
[[nodiscard]] std::int32_t flagFromSetting(std::u16string_view stored);

/// The text of the "?" message. `captions` are those that the option buttons show now.
[[nodiscard]] std::u16string explainModes(const PerMode<std::u16string>& captions);

} // namespace brindlewick
