// What follows from the system's answers, on every system alike.
#include "platform/files.h"

#include "platform/aside.h"

namespace brindlewick {

bool FileExists(std::u16string_view path) noexcept {
    return fileStatus(path).exists;
}

bool FileExistsByOpen(std::u16string_view path) noexcept {
    const FileStatus status = fileStatus(path);
    return status.exists && (status.attributes & attribute::folder) == 0;
}

bool IsFolder(std::u16string_view path) noexcept {
    return (fileStatus(path).attributes & attribute::folder) != 0;
}

std::size_t InputFile::read(std::span<char> bytes, const std::function<void()>& meanwhile) {
    if (!isFar_ || !meanwhile)
        return read(bytes);
    std::size_t count = 0;
    runAside([&] { count = read(bytes); }, meanwhile);
    return count;
}

} // namespace brindlewick
