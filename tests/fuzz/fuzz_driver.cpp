// fuzz_driver SUBJECT SECONDS SEED FOLDER: checks the subject on each file of the folder, then on inputs made
// from them. The same seed gives the same inputs.
//
// As a libFuzzer target, the driver takes the subject from the environment variable BRINDLEWICK_FUZZ.
#include "fuzz/fuzz_driver.h"

#include "fuzz/input_generator.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <map>

namespace brindlewick::fuzz {

namespace {

using CheckInput = void (*)(std::string_view);

std::map<std::string, CheckInput, std::less<>>& subjects() {
    static std::map<std::string, CheckInput, std::less<>> all;
    return all;
}

/// Ends the program when there is no such subject.
CheckInput subjectOf(const char* name) {
    const auto found = subjects().find(name == nullptr ? "" : name);
    if (found != subjects().end())
        return found->second;
    std::fprintf(stderr, "the subjects are:\n");
    for (const auto& subject : subjects())
        std::fprintf(stderr, "  %s\n", subject.first.c_str());
    std::exit(2);
}

std::string_view inputAtHand;

/// Processor time, so that other programs do not count. A hundred times what any input needs, with the
/// sanitizers too, and far less than 200,000 bytes take when the time grows with the square of the length.
constexpr double secondsForAnyInput = 1;
constexpr double secondsPerByte = 20e-6;

void runChecked(CheckInput checkInput, std::string_view input) {
    inputAtHand = input;
    const std::clock_t start = std::clock();
    try {
        checkInput(input);
    } catch (const std::exception& failure) {
        check(false, failure.what());
    }
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    check(seconds < secondsForAnyInput + secondsPerByte * static_cast<double>(input.size()),
          "the time is in proportion to the length");
}

} // namespace

Subject::Subject(const char* name, void (*checkInput)(std::string_view)) {
    subjects()[name] = checkInput;
}

void check(bool holds, const char* message) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n%zu bytes of input. To keep them as a case:\nprintf '", message,
                 inputAtHand.size());
    for (const char byte : inputAtHand) {
        const bool isPlain = byte >= ' ' && byte <= '~' && byte != '\\' && byte != '\'' && byte != '%';
        std::fprintf(stderr, isPlain ? "%c" : "\\%03o", static_cast<unsigned char>(byte));
    }
    std::fprintf(stderr, "' >tests/fuzz/corpus/SUBJECT/NAME\n");
    std::abort();
}

} // namespace brindlewick::fuzz

#ifdef BRINDLEWICK_LIBFUZZER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindlewick::fuzz;
    static const auto subject = subjectOf(std::getenv("BRINDLEWICK_FUZZ"));
    runChecked(subject, {reinterpret_cast<const char*>(data), size});
    return 0;
}

#else

int main(int count, char** arguments) {
    using namespace brindlewick::fuzz;
    if (count != 5)
        std::fprintf(stderr, "usage: fuzz_driver SUBJECT SECONDS SEED FOLDER\n");
    const auto subject = subjectOf(count == 5 ? arguments[1] : nullptr);
    const double seconds = std::atof(arguments[2]);
    InputGenerator generator(arguments[4], std::strtoull(arguments[3], nullptr, 10));
    for (const std::string& seed : generator.seeds())
        runChecked(subject, seed);
    std::size_t inputs = 0;
    std::size_t bytes = 0;
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    for (; Clock::now() < end; ++inputs) {
        const std::string input = generator.next();
        runChecked(subject, input);
        bytes += input.size();
    }
    std::printf("%zu cases, %zu inputs of %zu bytes\n", generator.seeds().size(), inputs, bytes);
    return 0;
}

#endif
