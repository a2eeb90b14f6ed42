// Lists built from literals.
#pragma once

#include "lists/text_list.h"

#include <string>
#include <vector>

namespace brindlewick::testing {

using Texts = std::vector<std::u16string>;

inline TextList listOf(const Texts& texts) {
    TextList list;
    for (const std::u16string& text : texts)
        list.append(text);
    return list;
}

} // namespace brindlewick::testing
