#include "platform/processors.h"

#include <algorithm>
#include <thread>

#ifdef __linux__
#include <sched.h>
#endif

namespace brindlewick {

std::size_t availableProcessors() noexcept {
#ifdef __linux__
    cpu_set_t processors;
    if (::sched_getaffinity(0, sizeof processors, &processors) == 0)
        return static_cast<std::size_t>(std::max(CPU_COUNT(&processors), 1));
#endif
    return std::max(std::thread::hardware_concurrency(), 1U);
}

} // namespace brindlewick
