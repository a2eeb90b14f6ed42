#include "platform/text_file_writer.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace brindlewick {

namespace {

constexpr std::size_t bufferLength = std::size_t{1} << 18; // bytes

} // namespace

struct TextFileWriter::State {
    std::optional<OutputFile> file;
    std::function<bool()> mayWait;
    std::string buffer;
    bool hasFailed = false;
    std::uint64_t replacedCharacters = 0;

    bool takesText() const { return file.has_value() && !hasFailed; }
    /// Writes the buffer to the file. After a failure, nothing is written any more.
    void flush() {
        if (!takesText())
            return;
        hasFailed = true; // until the write succeeds
        for (std::string_view rest = buffer; !rest.empty();) {
            rest.remove_prefix(file->write(rest));
            if (!rest.empty() && !(mayWait && mayWait()))
                throw Failure(FailureNumber::deviceIoError);
        }
        hasFailed = false;
        buffer.clear();
    }
    void flushIfFull() {
        if (buffer.size() >= bufferLength)
            flush();
    }
};

TextFileWriter::TextFileWriter(std::u16string_view path, std::function<bool()> mayWait)
    : state_(std::make_unique<State>()) {
    state_->file.emplace(path);
    state_->mayWait = std::move(mayWait);
    state_->buffer.reserve(bufferLength * 2);
}

TextFileWriter::~TextFileWriter() {
    try {
        close();
    } catch (...) {
        // Callers that need to know of the failure use close().
    }
}

void TextFileWriter::write(std::u16string_view text) {
    while (!text.empty() && state_->takesText()) {
        const std::u16string_view part = text.substr(0, bufferLength);
        state_->replacedCharacters += appendAsWindows1252(part, state_->buffer);
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
    state_->flush();
    if (state_->takesText()) {
        state_->hasFailed = true; // until closing succeeds
        state_->file->close();
        state_->hasFailed = false;
    }
    state_->file.reset();
}

std::uint64_t TextFileWriter::replacedCharacters() const noexcept {
    return state_->replacedCharacters;
}

} // namespace brindlewick
