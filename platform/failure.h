// Run-time failures: a number for each kind, and the text that the user sees.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace brindlewick {

enum class FailureNumber : std::int32_t {
    invalidProcedureCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    outOfStackSpace = 28,
    fileNotFound = 53,
    deviceIoError = 57,
    diskFull = 61,
    permissionDenied = 70,
    pathNotFound = 76,
    duplicateKey = 457,
    invalidPicture = 481,
};

/// The text that the user sees for a failure, for example u"File not found".
[[nodiscard]] std::u16string_view descriptionOf(FailureNumber number) noexcept;

/// The limit, in UTF-16 code units, of each text that the program builds: a file's text, a line, a row.
/// Building a longer one fails with outOfMemory.
inline constexpr std::size_t maxTextLength = std::size_t{1} << 30;

/// Thrown by every operation that documents a failure.
class Failure : public std::exception {
public:
    explicit Failure(FailureNumber number) noexcept : number_(number) {}

    [[nodiscard]] FailureNumber number() const noexcept { return number_; }
    [[nodiscard]] std::u16string_view description() const noexcept { return descriptionOf(number_); }
    const char* what() const noexcept override { return "brindlewick::Failure"; }

private:
    FailureNumber number_;
};

/// What the exception being handled means to the user: std::bad_alloc and std::length_error are outOfMemory,
/// any other but Failure is invalidProcedureCall. To be called in a catch block.
[[nodiscard]] FailureNumber currentFailure() noexcept;

} // namespace brindlewick
