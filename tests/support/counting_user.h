// A user who counts what is shown and asks for no memory.
#pragma once

#include "../../bench/unattended.h"

namespace brindlewick::testing {

class CountingUser : public UnattendedUser {
public:
    int messages = 0;
    int reports = 0;
    int reportsOfMemory = 0; ///< among them
    PointerShape pointer = PointerShape::standard;

    void showMessage(std::u16string_view) override { ++messages; }
    void showApplicationError(std::u16string_view text) override {
        ++reports;
        reportsOfMemory += text.starts_with(u"Out of memory") ? 1 : 0;
    }
    void setPointer(PointerShape shape) override { pointer = shape; }
};

} // namespace brindlewick::testing
