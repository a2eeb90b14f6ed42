// The failure that a step ends with.
#pragma once

#include "platform/failure.h"

#include <optional>

namespace brindlewick::testing {

/// Nothing when the step ends without a failure.
template <class Step>
std::optional<FailureNumber> failureOf(Step&& step) {
    try {
        step();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return std::nullopt;
}

} // namespace brindlewick::testing
