#include "lists/folder_rules.h"

#include "platform/native_path.h"
#include "platform/text_encoding.h"

#include <algorithm>

namespace brindlewick {

bool IsBadName(std::u16string_view name) noexcept {
    return std::any_of(name.begin(), name.end(), [](char16_t unit) {
        const auto code = static_cast<unsigned char>(windows1252Byte(unit));
        return code == '?' || (code >= 127 && code <= 159) || code < 32;
    });
}

bool isAcceptedFolderName(std::u16string_view name) noexcept {
    return name.size() < folderPathLimit && !IsBadName(name) && name != u"." && name != u"..";
}

bool attributesAllowEntering(unsigned attributes, bool isRoot) noexcept {
    return isRoot || (attributes != attribute::protectedFolder && attributes != attribute::linkedFolder);
}

bool isRootFolder(std::u16string_view folder) {
    const std::filesystem::path path = nativePath(folder);
    return path.has_root_directory() && !path.has_relative_path();
}

bool isTemporaryCopy(std::u16string_view fileName) noexcept {
    return fileName.starts_with(u'~');
}

bool isAcceptedFile(const FileStatus& status) noexcept {
    return status.exists && (status.attributes & attribute::folder) == 0 &&
           status.attributes != (attribute::file | attribute::hidden);
}

} // namespace brindlewick
