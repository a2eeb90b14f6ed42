// A text buffer that grows in fixed chunks; its unused tail reads as blanks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

enum class TextComparison : std::int32_t { binary = 0, text = 1 };

/// Counts are signed 32-bit numbers of bytes, two to a UTF-16 code unit; an operation whose count does not
/// fit fails with overflow. An operation that fails changes nothing. Capacity() reports, and Find() searches,
/// the content and a tail of blanks up to a whole number of chunks; the blanks are only computed when needed.
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
    /// Replaces the content. The capacity does not shrink, except that an empty text frees it.
    void TheString(std::u16string_view sThis);
    /// Removes the content and frees the capacity; the chunk size stays.
    void Clear() noexcept;

    /// Adds at the end; grows by as many chunks as needed. Amortised linear in the text.
    void Append(std::u16string_view sThis);
    void AppendByVal(std::u16string sThis) { Append(sThis); }
    /// Append, then CR LF.
    void AppendNL(std::u16string_view sThis);

    /// Puts text before the code unit at `iIndex` (from 0; Length() appends). Fails with subscriptOutOfRange.
    void Insert(std::int32_t iIndex, std::u16string_view sThis);
    void InsertByVal(std::int32_t iIndex, std::u16string sThis) { Insert(iIndex, sThis); }
    /// Removes `lLen` code units from `iIndex` on. Fails with subscriptOutOfRange. The capacity stays.
    void Remove(std::int32_t iIndex, std::int32_t lLen);

    /// With a start of 1 or more: the 1-based position of the text's first occurrence in the buffer, blank
    /// tail included, if that is before the last used code unit; otherwise 0. With a start below 1 the
    /// arguments are exchanged, which callers may rely on: the buffer's text is the start position, and the
    /// decimal number of `compare` is searched for in `sToFind`. Fails with typeMismatch if the buffer's text
    /// is not a number, with invalidProcedureCall for a number below 1.
    std::int32_t Find(std::u16string_view sToFind, std::int32_t lStartIndex = 1,
                      TextComparison compare = TextComparison::text) const;

    /// Reduces the unused tail to at most one chunk.
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
