// Searches many lines for a single tag at once.
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

/// Compares two neighbouring code units of the tag with sixteen places of the text at a time, and compares
/// more only where both match.
class TagSearch {
public:
    /// None for a tag whose first units have too many letter cases; `tag` is not empty.
    static std::optional<TagSearch> of(std::u16string_view tag);

    /// Appends the numbers of the lines that may contain the tag, in order: all that do, and few others.
    /// Linear in the lines for every tag.
    void appendCandidates(const LineBatch& batch, std::vector<std::uint32_t>& lines) const;

    /// True if every line that appendCandidates appends contains the tag.
    bool isExact() const noexcept { return isExact_; }

private:
    /// The bytes to which a unit and its other letter cases are narrowed (see UnitBlock), repeated to fill
    /// the array.
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
