// How many threads can run at a time.
#pragma once

#include <cstddef>

namespace brindlewick {

/// The processors that the process may use, which can be fewer than the machine has; at least one.
[[nodiscard]] std::size_t availableProcessors() noexcept;

} // namespace brindlewick
