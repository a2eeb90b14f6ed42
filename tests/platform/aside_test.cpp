#include "platform/aside.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace brindlewick {
namespace {

using namespace std::chrono_literals;

/// Waits, as long as a test may take, until it holds.
template <class Condition>
bool comesTrue(Condition holds) {
    for (const auto end = std::chrono::steady_clock::now() + 20s; std::chrono::steady_clock::now() < end;)
        if (holds())
            return true;
        else
            std::this_thread::sleep_for(1ms);
    return false;
}

TEST(Aside, TheCallerLivesWhileTheWorkIsLong) {
    const auto caller = std::this_thread::get_id();
    std::atomic<int> signsOfLife = 0;
    bool wasSeen = false;
    runAside([&] { wasSeen = comesTrue([&] { return signsOfLife >= 3; }); },
             [&] {
                 EXPECT_EQ(std::this_thread::get_id(), caller);
                 ++signsOfLife;
             });
    EXPECT_TRUE(wasSeen);
}

TEST(Aside, ThrowsWhatTheWorkThrew) {
    EXPECT_THROW(runAside([] { throw Failure(FailureNumber::deviceIoError); }, [] {}), Failure);
}

TEST(Aside, EndsNoSoonerThanTheWork) {
    std::atomic<bool> hasThrown = false;
    bool isDone = false;
    const auto work = [&] {
        comesTrue([&] { return hasThrown.load(); });
        std::this_thread::sleep_for(20ms);
        isDone = true;
    };
    EXPECT_THROW(runAside(work,
                          [&] {
                              hasThrown = true;
                              throw Failure(FailureNumber::outOfMemory);
                          }),
                 Failure);
    EXPECT_TRUE(isDone);
}

} // namespace
} // namespace brindlewick
