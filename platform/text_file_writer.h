// A buffered file of lines in the single-byte character set, ended by CR LF.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace brindlewick {

class TextFileWriter {
public:
    /// Creates the file, replacing one of that name. Fails as files.h says.
    explicit TextFileWriter(std::u16string_view path);
    /// Closes the file; a failure to write what is still buffered is lost here, so call close() first.
    ~TextFileWriter();
    TextFileWriter(const TextFileWriter&) = delete;
    TextFileWriter& operator=(const TextFileWriter&) = delete;

    /// Appends text, and blanks, to the line being written. Nothing is kept beyond a fixed buffer. The first
    /// failure to write (diskFull, deviceIoError) is thrown once; from then on every operation does nothing.
    void write(std::u16string_view text);
    void writeBlanks(std::size_t count);
    void writeLineEnd();
    /// Writes what is buffered and closes the file. Reports the first failure unless it was reported before.
    void close();

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace brindlewick
