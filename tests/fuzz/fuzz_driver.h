// What a fuzz driver is made of: a subject says how its input is made and what must hold for any input; the
// driver brings the loop, and holds every input to a time in proportion to its length.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

namespace brindlewick::fuzz {

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    /// 0 to `limit` - 1; `limit` is at least 1.
    std::size_t below(std::size_t limit) { return engine_() % limit; }
    std::string_view oneOf(std::initializer_list<std::string_view> texts) {
        return texts.begin()[below(texts.size())];
    }

private:
    std::mt19937_64 engine_;
};

/// Takes bytes out, doubles them, swaps them for others: `changes` times at the most.
void bend(std::string& bytes, std::size_t changes, Random& random);

/// Repeats `pattern` until `length` bytes are reached exactly.
std::string repeated(std::string_view pattern, std::size_t length);

/// A few of the tokens, over and over, up to 200,000 bytes: what takes time in proportion to the square of
/// its length shows itself here.
std::string hostile(std::initializer_list<std::string_view> tokens, Random& random);

/// Makes choices of the bytes of an input, so that any input describes something well formed. Zeros follow
/// the last byte.
class Choices {
public:
    explicit Choices(std::string_view bytes) : bytes_(bytes) {}
    bool isSpent() const { return at_ >= bytes_.size(); }
    /// 0 to `limit` - 1; `limit` is at most 256.
    std::size_t below(std::size_t limit) {
        return isSpent() ? 0 : static_cast<unsigned char>(bytes_[at_++]) % limit;
    }

private:
    std::string_view bytes_;
    std::size_t at_ = 0;
};

/// Ends the program with `message` and the input at hand when `holds` is false.
void check(bool holds, const char* message);

// Each subject defines these two.

/// Input for the subject, by chance.
std::string makeInput(Random& random);
/// Runs the subject on the input and checks what must hold for every input.
void runOn(std::string_view input);

} // namespace brindlewick::fuzz
