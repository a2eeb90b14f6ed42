#include "platform/processors.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include <windows.h>

namespace brindlewick {

std::size_t availableProcessors() noexcept {
    DWORD_PTR ofProcess = 0;
    DWORD_PTR ofSystem = 0;
    if (::GetProcessAffinityMask(::GetCurrentProcess(), &ofProcess, &ofSystem) == 0)
        return 1;
    return static_cast<std::size_t>(std::max(std::popcount(std::uint64_t{ofProcess}), 1));
}

} // namespace brindlewick
