// Writes a text file in Windows-1252 with CR LF line ends, through a buffer.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace brindlewick {

class TextFileWriter {
public:
    /// Creates the file, or empties an existing one. Fails as files.h says. While the reader of a pipe takes
    /// nothing, `mayWait` is called about every 50 ms; false, or no function, ends the wait with
    /// deviceIoError.
    TextFileWriter(std::u16string_view path, std::function<bool()> mayWait);
    /// Writes what is buffered and closes the file. A failure is lost here, so call close() first.
    ~TextFileWriter();
    TextFileWriter(const TextFileWriter&) = delete;
    TextFileWriter& operator=(const TextFileWriter&) = delete;

    /// Appends text or blanks to the current line. The buffer does not grow with the text. The first failure
    /// (diskFull, deviceIoError) is thrown once; after it, every operation does nothing.
    void write(std::u16string_view text);
    void writeBlanks(std::size_t count);
    void writeLineEnd();
    /// Writes what is buffered and closes the file. Fails as write does.
    void close();

    /// How many characters have been written as "?" because Windows-1252 lacks them. A surrogate pair is one
    /// character.
    [[nodiscard]] std::uint64_t replacedCharacters() const noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace brindlewick
