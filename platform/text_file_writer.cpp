// Text is encoded straight into one buffer, which goes to the file whenever it is full.
#include "platform/text_file_writer.h"

#include "platform/native_file.h"
#include "platform/system_failure.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

namespace brindlewick {

namespace {

constexpr std::size_t bufferLength = std::size_t{1} << 18; // bytes

} // namespace

struct TextFileWriter::State {
    std::FILE* file = nullptr;
    std::string buffer;
    bool hasFailed = false;

    ~State() {
        if (file != nullptr)
            std::fclose(file);
    }
    bool takesText() const { return file != nullptr && !hasFailed; }
    /// Throws the first failure and forgets what could not be written.
    void flush() {
        std::size_t written = 0;
        int error = 0;
        while (takesText() && written < buffer.size() && error == 0) {
            errno = 0;
            written += std::fwrite(buffer.data() + written, 1, buffer.size() - written, file);
            if (written == buffer.size())
                break;
            error = errno == EINTR ? 0 : errno == 0 ? EIO : errno;
            std::clearerr(file);
        }
        buffer.clear();
        if (error != 0) {
            hasFailed = true;
            throwSystemFailure(error);
        }
    }
    void flushIfFull() {
        if (buffer.size() >= bufferLength)
            flush();
    }
};

TextFileWriter::TextFileWriter(std::u16string_view path) : state_(std::make_unique<State>()) {
    state_->file = createNativeFile(path);
    std::setvbuf(state_->file, nullptr, _IONBF, 0); // the buffer here is the only one
    state_->buffer.reserve(bufferLength * 2);
}

TextFileWriter::~TextFileWriter() {
    try {
        close();
    } catch (...) {
        // Whoever wants to know has called close().
    }
}

void TextFileWriter::write(std::u16string_view text) {
    while (!text.empty() && state_->takesText()) {
        const std::u16string_view part = text.substr(0, bufferLength);
        appendAsSingleByte(part, state_->buffer);
        text.remove_prefix(part.size());
        state_->flushIfFull();
    }
}

void TextFileWriter::writeBlanks(std::size_t count) {
    while (count > 0 && state_->takesText()) {
        const std::size_t part = std::min(count, bufferLength);
        state_->buffer.append(part, ' ');
        count -= part;
        state_->flushIfFull();
    }
}

void TextFileWriter::writeLineEnd() {
    if (!state_->takesText())
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
