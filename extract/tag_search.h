// Looks for a single tag in many lines at once.
#pragma once

#include "core/line_batch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Compares two neighbouring code units of the tag with sixteen places of the text at a time, and looks
/// closer only where both fit.
class TagSearch {
public:
    /// None for a tag whose first units have too many forms; `tag` is not empty.
    static std::optional<TagSearch> of(std::u16string_view tag);

    /// Appends the numbers of the lines in which the tag may occur, in their order: all in which it does, and
    /// few others. Linear in the lines, whatever the tag.
    void appendCandidates(const LineBatch& batch, std::vector<std::uint32_t>& lines) const;

    /// True when the tag does occur in every line that appendCandidates appends.
    bool isExact() const noexcept { return isExact_; }

private:
    /// The bytes that a unit and its other letter cases narrow to (see UnitBlock); repeated when there are
    /// fewer.
    using Forms = std::array<std::uint8_t, 3>;

    TagSearch() = default;
    static std::optional<Forms> formsOf(char16_t folded);
    template <std::size_t formCount>
    void search(const LineBatch& batch, std::vector<std::uint32_t>& lines) const;
    bool mayStandAt(std::u16string_view text, std::size_t at) const;

    std::u16string beginning_; ///< of the folded tag
    std::size_t secondAt_ = 0;
    bool isExact_ = false;
    Forms first_{};
    Forms second_{};
};

} // namespace brindlewick
