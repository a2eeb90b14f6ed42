#include "platform/text.h"

namespace brindlewick {

std::u16string groupedText(std::uint64_t number) {
    constexpr std::size_t groupLength = 3;
    std::u16string text = decimalText(number);
    for (std::size_t at = text.size(); at > groupLength;)
        text.insert(at -= groupLength, 1, u',');
    return text;
}

std::u16string countText(std::uint64_t count, std::u16string_view one, std::u16string_view many) {
    return groupedText(count).append(u" ").append(count == 1 ? one : many);
}

std::u16string unlessNone(std::uint64_t count, std::u16string_view one, std::u16string_view many) {
    return count == 0 ? std::u16string() : countText(count, one, many);
}

std::u16string joinedClauses(std::initializer_list<std::u16string> clauses) {
    std::u16string text;
    for (const std::u16string& clause : clauses)
        if (!clause.empty())
            text.append(text.empty() ? u"" : u"; ").append(clause);
    return text;
}

} // namespace brindlewick
