// Text is encoded straight into one buffer, which goes to the file whenever it is full.
#include "platform/text_file_writer.h"

#include "platform/files.h"
#include "platform/text_encoding.h"

#include <algorithm>
#include <optional>
#include <string>

namespace brindlewick {

namespace {

constexpr std::size_t bufferLength = std::size_t{1} << 18; // bytes

} // namespace

struct TextFileWriter::State {
    std::optional<OutputFile> file;
    std::string buffer;
    bool hasFailed = false;

    bool takesText() const { return file.has_value() && !hasFailed; }
    /// Throws the first failure, after which nothing is written any more.
    void flush() {
        if (!takesText())
            return;
        hasFailed = true; // unless the write ends well
        file->write(buffer);
        hasFailed = false;
        buffer.clear();
    }
    void flushIfFull() {
        if (buffer.size() >= bufferLength)
            flush();
    }
};

TextFileWriter::TextFileWriter(std::u16string_view path) : state_(std::make_unique<State>()) {
    state_->file.emplace(path);
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
    state_->flush();
    if (state_->takesText()) {
        state_->hasFailed = true; // unless closing ends well
        state_->file->close();
        state_->hasFailed = false;
    }
    state_->file.reset();
}

} // namespace brindlewick
