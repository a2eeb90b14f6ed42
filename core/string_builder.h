// A growable text buffer that grows in fixed chunks and whose spare tail reads as blanks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

enum class TextComparison : std::int32_t { binary = 0, text = 1 };

/// Counts are held in bytes, two to a UTF-16 code unit, in signed 32-bit numbers; a count that would leave
/// them fails with overflow. No failing operation changes anything. The chunk-wise capacity is what
/// Capacity() reports and what Find() sees as blanks; the memory behind the tail is not filled until somebody
/// looks.
class cStringBuilder {
public:
    /// The content's length in code units.
    std::int32_t Length() const noexcept { return used_ / bytesPerUnit; }
    /// The buffer's length in code units, the blank tail included.
    std::int32_t Capacity() const noexcept { return capacity_ / bytesPerUnit; }
    /// The growth step in code units; 8,192 after creation.
    std::int32_t ChunkSize() const noexcept { return chunkSize_ / bytesPerUnit; }
    /// Any number whose double fits; with one below 1, an operation that has to grow fails with outOfMemory.
    void setChunkSize(std::int32_t iChunkSize);

    /// A copy of the content.
    std::u16string toString() const { return content_; }
    /// The content itself, valid until the next change.
    std::u16string_view view() const noexcept { return content_; }
    /// Replaces the content. The capacity never shrinks, except that an empty text gives it up.
    void TheString(std::u16string_view sThis);
    /// Gives up content and capacity; the chunk size stays.
    void Clear() noexcept;

    /// Adds at the end, growing by as many chunks as it takes. Amortised linear in the text.
    void Append(std::u16string_view sThis);
    void AppendByVal(std::u16string sThis) { Append(sThis); }
    /// Append, then CR LF.
    void AppendNL(std::u16string_view sThis);

    /// Puts text before the code unit at `iIndex` (from 0; Length() appends). Fails with subscriptOutOfRange.
    void Insert(std::int32_t iIndex, std::u16string_view sThis);
    void InsertByVal(std::int32_t iIndex, std::u16string sThis) { Insert(iIndex, sThis); }
    /// Takes `lLen` code units from `iIndex` away. Fails with subscriptOutOfRange. The capacity stays.
    void Remove(std::int32_t iIndex, std::int32_t lLen);

    /// From start 1 on: the 1-based position at which the whole buffer, blank tail included, first holds the
    /// text, if that lies before the last used code unit; otherwise 0.
    /// Below 1 the arguments are crossed, and callers may count on it: the buffer's text is taken as the
    /// start position and the decimal number of `compare` is searched for inside `sToFind`. That fails with
    /// typeMismatch unless the buffer holds a number, with invalidProcedureCall for a number below 1.
    std::int32_t Find(std::u16string_view sToFind, std::int32_t lStartIndex = 1,
                      TextComparison compare = TextComparison::text) const;

    /// Trims the spare tail to at most one chunk.
    void HeapMinimize() noexcept;

private:
    static constexpr std::int32_t bytesPerUnit = 2;

    /// The byte count of the content with `sThis` added.
    std::int32_t usedWith(std::u16string_view sThis) const;
    /// The capacity that holds `needed` bytes after growing by whole chunks.
    std::int32_t grownTo(std::int32_t needed) const;

    std::u16string content_;
    std::int32_t chunkSize_ = 16384; ///< bytes
    std::int32_t used_ = 0;          ///< bytes
    std::int32_t capacity_ = 0;      ///< bytes
};

} // namespace brindlewick
