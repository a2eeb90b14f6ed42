// How much memory the process has used at most.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace brindlewick {

/// Resident bytes; 0 where the operating system does not tell. Linux's own figure for the program alone: the
/// one of getrusage counts what the process was before it became this program.
inline std::uint64_t peakResidentBytes() {
    std::ifstream status("/proc/self/status");
    std::uint64_t kibibytes = 0;
    for (std::string word; status >> word;)
        if (word == "VmHWM:")
            status >> kibibytes;
    return kibibytes * 1024;
}

} // namespace brindlewick
