#include "platform/aside.h"

#include <chrono>
#include <future>

namespace brindlewick {

void runAside(const std::function<void()>& work, const std::function<void()>& meanwhile) {
    using namespace std::chrono_literals;
    // "Deferred" is what the library falls back on without a thread; the work is then done by get().
    std::future<void> done = std::async(std::launch::async | std::launch::deferred, work);
    while (done.wait_for(20ms) == std::future_status::timeout)
        meanwhile();
    done.get();
}

} // namespace brindlewick
