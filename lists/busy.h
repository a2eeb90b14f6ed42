// Whether an operation is under way: the hourglass is the program's one sign of it.
#pragma once

#include "platform/user_interface.h"

namespace brindlewick {

inline bool isBusy(const UserInterface& user) {
    return user.pointer() == PointerShape::hourglass;
}

} // namespace brindlewick
