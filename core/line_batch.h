// Many lines in one text, so that they can be searched together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace brindlewick {

/// There is nothing between the lines. Valid until the object that returned it changes.
struct LineBatch {
    std::u16string_view text;
    std::span<const std::uint32_t> ends; ///< of each line, in code units from the start of `text`

    std::size_t size() const noexcept { return ends.size(); }
    std::size_t startOf(std::size_t line) const { return line == 0 ? 0 : ends[line - 1]; }
    std::u16string_view operator[](std::size_t line) const {
        return text.substr(startOf(line), ends[line] - startOf(line));
    }
};

} // namespace brindlewick
