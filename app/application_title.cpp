#include "app/application_title.h"

namespace brindlewick {

std::u16string applicationTitle(std::u16string_view name) {
    constexpr std::size_t longestTitle = 40;
    do {
        const std::size_t blank = name.rfind(u' ');
        if (blank == std::u16string_view::npos)
            break;
        name = name.substr(0, blank);
    } while (name.size() > longestTitle);
    return std::u16string(name);
}

} // namespace brindlewick
