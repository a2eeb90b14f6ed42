// The two choices that steer a run: the extraction mode and whether rows carry the file's name.
#pragma once

#include "platform/settings_store.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

/// `none` is possible after a stored value that names no mode; a run then behaves as valueWithoutTag.
enum class ExtractionMode : std::int32_t {
    none = 0,
    valueAndTag = 1,
    valueWithoutTag = 2,
    entireLine = 3,
    all = 4,
};

class ExtractionOptions {
public:
    explicit ExtractionOptions(SettingsStore& settings) noexcept : settings_(settings) {}

    ExtractionMode mode() const noexcept { return mode_; }
    bool includeFilename() const noexcept { return includeFilename_; }

    /// Takes the mode over and stores its number under "Option" at once. The mode holds even when storing
    /// fails.
    void chooseMode(ExtractionMode mode);
    /// Takes the flag over and stores "0" or "1" under "Check1" at once. The flag holds even when storing
    /// fails.
    void setIncludeFilename(bool include);

    /// No mode is selected; what is stored stays, so that a later version's mode survives this one.
    void selectNone() noexcept { mode_ = ExtractionMode::none; }

private:
    SettingsStore& settings_;
    ExtractionMode mode_ = ExtractionMode::valueAndTag;
    bool includeFilename_ = false;
};

/// The mode that a stored "Option" names: blanks are passed over and leading digits count, so u"2abc" is mode
/// 2; text without a leading number, and any number but 1 to 4, is none.
ExtractionMode modeFromSetting(std::u16string_view stored);
/// The number of a stored "Check1" or "ShowAgain", strictly: text that is no whole number fails with
/// typeMismatch, one beyond 16 bits with overflow.
std::int32_t flagFromSetting(std::u16string_view stored);

/// What the "?" button says, with the four modes' captions as they stand (index 0 is mode 1).
std::u16string explainModes(const std::array<std::u16string, 4>& captions);

} // namespace brindlewick
