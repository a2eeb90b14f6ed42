// Sixteen code units that are compared together.
//
// With SSE2, which every x86-64 processor has, a comparison takes one or two instructions for all sixteen;
// other processors use loops that the compiler can vectorise.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace brindlewick {

inline constexpr std::size_t blockLength = 16;

/// The units are narrowed to bytes: U+0100 to U+7FFF become FF, those above become 00. So comparisons are
/// exact for values from 1 to 254.
class UnitBlock {
public:
#if defined(__SSE2__)
    /// The result of a comparison; bits() has one bit a unit.
    struct Answer {
        __m128i bytes;
        Answer operator|(Answer other) const { return {_mm_or_si128(bytes, other.bytes)}; }
        Answer operator&(Answer other) const { return {_mm_and_si128(bytes, other.bytes)}; }
        /// Bit 0 for the first unit.
        unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(bytes)); }
    };

    /// Reads blockLength units.
    explicit UnitBlock(const char16_t* units)
        : low_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(units))),
          high_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(units + 8))),
          bytes_(_mm_packus_epi16(low_, high_)) {}

    /// Writes blockLength units.
    void storeTo(char16_t* target) const {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target), low_);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + 8), high_);
    }
    /// Those that narrow to `byte`.
    Answer equal(std::uint8_t byte) const {
        return {_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(static_cast<char>(byte)))};
    }
    /// Those below `limit`, which is at most 127, and all from 128 on.
    Answer belowOrHigh(std::uint8_t limit) const {
        return {_mm_cmpgt_epi8(_mm_set1_epi8(static_cast<char>(limit)), bytes_)};
    }

private:
    __m128i low_;
    __m128i high_;
    __m128i bytes_;
#else
    struct Answer {
        unsigned mask;
        Answer operator|(Answer other) const { return {mask | other.mask}; }
        Answer operator&(Answer other) const { return {mask & other.mask}; }
        unsigned bits() const { return mask; }
    };

    explicit UnitBlock(const char16_t* units) {
        std::memcpy(units_, units, sizeof units_);
        for (std::size_t at = 0; at < blockLength; ++at)
            bytes_[at] = static_cast<std::uint8_t>(units_[at] >= 0x8000 ? 0
                                                   : units_[at] > 0xFF  ? 0xFF
                                                                        : units_[at]);
    }

    void storeTo(char16_t* target) const {
        std::memcpy(target, units_, sizeof units_);
    }
    Answer equal(std::uint8_t byte) const {
        return where([byte](std::uint8_t one) { return one == byte; });
    }
    Answer belowOrHigh(std::uint8_t limit) const {
        return where([limit](std::uint8_t one) { return one < limit || one > 127; });
    }

private:
    template <class Is>
    Answer where(const Is& is) const {
        unsigned mask = 0;
        for (std::size_t at = 0; at < blockLength; ++at)
            mask |= (is(bytes_[at]) ? 1U : 0U) << at;
        return {mask};
    }

    char16_t units_[blockLength];
    std::uint8_t bytes_[blockLength];
#endif
};

/// The index of the first unit whose bit is set; `bits` is not 0.
inline std::size_t firstOf(unsigned bits) {
    return static_cast<std::size_t>(std::countr_zero(bits));
}

} // namespace brindlewick
