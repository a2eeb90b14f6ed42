#include "platform/text_file_writer.h"

#include "platform/native_path.h"
#include "platform/system_failure.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

namespace brindlewick {

namespace {

constexpr std::size_t bufferLength = std::size_t{1} << 18; // bytes

std::FILE* create(const std::filesystem::path& path) {
#ifdef _WIN32
    return ::_wfopen(path.c_str(), L"wb");
#else
    return std::fopen(path.c_str(), "wbe");
#endif
}

} // namespace

struct TextFileWriter::State {
    std::FILE* file = nullptr;
    std::string buffer;
    bool hasFailed = false;

    ~State() {
        if (file != nullptr)
            std::fclose(file);
    }
    /// Throws the first failure and forgets what could not be written.
    void flush() {
        if (hasFailed)
            return;
        const std::size_t written = std::fwrite(buffer.data(), 1, buffer.size(), file);
        const int error = errno;
        hasFailed = written != buffer.size();
        buffer.clear();
        if (hasFailed)
            throwSystemFailure(error);
    }
    void flushIfFull() {
        if (buffer.size() >= bufferLength)
            flush();
    }
};

TextFileWriter::TextFileWriter(std::u16string_view path) : state_(std::make_unique<State>()) {
    if (path.find(u'\0') != std::u16string_view::npos)
        throw Failure(FailureNumber::fileNotFound);
    const std::filesystem::path native = nativePath(path);
    state_->file = create(native);
    if (state_->file == nullptr)
        throwSystemFailure(errno, native);
    std::setvbuf(state_->file, nullptr, _IONBF, 0); // the buffer here is the only one
    state_->buffer.reserve(bufferLength * 2);
}

TextFileWriter::~TextFileWriter() {
    try {
        close();
    } catch (const Failure&) {
        // Whoever wants to know has called close().
    }
}

void TextFileWriter::write(std::u16string_view text) {
    while (!text.empty() && !state_->hasFailed) {
        const std::u16string_view part = text.substr(0, bufferLength);
        appendAsSingleByte(part, state_->buffer);
        text.remove_prefix(part.size());
        state_->flushIfFull();
    }
}

void TextFileWriter::writeBlanks(std::size_t count) {
    while (count > 0 && !state_->hasFailed) {
        const std::size_t part = std::min(count, bufferLength);
        state_->buffer.append(part, ' ');
        count -= part;
        state_->flushIfFull();
    }
}

void TextFileWriter::writeLineEnd() {
    if (state_->hasFailed)
        return;
    state_->buffer.append("\r\n");
    state_->flushIfFull();
}

void TextFileWriter::close() {
    if (state_->file == nullptr)
        return;
    const bool hadFailed = state_->hasFailed;
    state_->flush();
    if (std::fclose(std::exchange(state_->file, nullptr)) != 0 && !hadFailed)
        throwSystemFailure(errno);
}

} // namespace brindlewick
