// What a writer shows its progress on, if it is given one.
#pragma once

#include <string_view>

namespace brindlewick {

class ProgressIndicator {
public:
    virtual ~ProgressIndicator() = default;

    /// In percent, 0 to 100.
    virtual void setValue(int value) = 0;
    virtual void setCaption(std::u16string_view caption) = 0;
};

} // namespace brindlewick
