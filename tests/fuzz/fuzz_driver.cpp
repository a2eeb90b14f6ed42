// The loop of a fuzz driver: fuzz_NAME [SECONDS [SEED [FOLDER]]]. The files of the folder come first; then
// the same seed always gives the same inputs.
#include "fuzz/fuzz_driver.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

std::string_view inputAtHand;

/// As a C string literal, so that it can be pasted into a test.
void printInput(std::string_view input) {
    constexpr std::size_t shown = 2000;
    std::fprintf(stderr, "%zu bytes of input: \"", input.size());
    for (const char byte : input.substr(0, shown)) {
        const auto value = static_cast<unsigned char>(byte);
        if (value >= 32 && value < 127 && byte != '"' && byte != '\\')
            std::fputc(byte, stderr);
        else
            std::fprintf(stderr, "\\%03o", unsigned{value});
    }
    std::fprintf(stderr, input.size() > shown ? "\" and more\n" : "\"\n");
}

/// The processor's time, not the clock's: other programs do not count. A hundred times what any input needs,
/// also under the sanitizers, and far below what 200,000 bytes take once the time grows with their square.
constexpr double secondsForAnyInput = 1;
constexpr double secondsPerByte = 20e-6;

void runChecked(std::string_view input) {
    inputAtHand = input;
    const std::clock_t start = std::clock();
    try {
        runOn(input);
    } catch (const std::exception& failure) {
        check(false, failure.what());
    }
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    check(seconds < secondsForAnyInput + secondsPerByte * static_cast<double>(input.size()),
          "the time is in proportion to the length");
}

} // namespace

void bend(std::string& bytes, std::size_t changes, Random& random) {
    static constexpr std::string_view favourites =
        "{}[]:,\"'\\/* \r\n\t()tfnu+-0.eE9\x00\x7F\xEF\xBB\xBF\xFF\xFE"sv;
    for (std::size_t left = random.below(changes + 1); left > 0 && !bytes.empty(); --left) {
        const std::size_t at = random.below(bytes.size());
        const char favourite = favourites[random.below(favourites.size())];
        switch (random.below(5)) {
        case 0:
            bytes.erase(at, 1 + random.below(8));
            break;
        case 1:
            bytes.insert(at, 1, favourite);
            break;
        case 2:
            bytes[at] = favourite;
            break;
        case 3:
            bytes[at] = static_cast<char>(random.below(256));
            break;
        default:
            bytes.insert(at, bytes.substr(random.below(bytes.size()), 1 + random.below(16)));
        }
    }
}

std::string repeated(std::string_view pattern, std::size_t length) {
    std::string bytes;
    bytes.reserve(length + pattern.size());
    while (bytes.size() < length)
        bytes.append(pattern);
    bytes.resize(length);
    return bytes;
}

std::string hostile(std::initializer_list<std::string_view> tokens, Random& random) {
    std::string pattern;
    for (std::size_t left = 1 + random.below(4); left > 0; --left)
        pattern += random.oneOf(tokens);
    return repeated(pattern, pattern.empty() ? 0 : 1 + random.below(200000));
}

void check(bool holds, const char* message) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", message);
    printInput(inputAtHand);
    std::abort();
}

} // namespace brindlewick::fuzz

#ifdef BRINDLEWICK_LIBFUZZER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    brindlewick::fuzz::runChecked({reinterpret_cast<const char*>(data), size});
    return 0;
}

#else

int main(int count, char** words) {
    using namespace brindlewick::fuzz;
    const double seconds = count > 1 ? std::atof(words[1]) : 3;
    const std::uint64_t seed = count > 2 ? std::strtoull(words[2], nullptr, 10) : 1;
    std::size_t cases = 0;
    if (count > 3) {
        for (const auto& file : std::filesystem::directory_iterator(words[3])) {
            std::ifstream bytes(file.path(), std::ios::binary);
            runChecked(std::string(std::istreambuf_iterator<char>(bytes), {}));
            ++cases;
        }
    }
    const auto start = std::chrono::steady_clock::now();
    Random random(seed);
    std::size_t rounds = 0;
    std::size_t bytes = 0;
    do {
        const std::string input = makeInput(random);
        runChecked(input);
        bytes += input.size();
        ++rounds;
    } while (std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() < seconds);
    std::printf("%zu cases; %zu inputs, %zu bytes, seed %llu\n", cases, rounds, bytes,
                static_cast<unsigned long long>(seed));
    return 0;
}

#endif
