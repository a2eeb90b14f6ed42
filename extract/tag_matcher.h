// Counts how many of a list of tags a line contains, without regard to letter case, in one pass over the
// line.
#pragma once

#include "core/line_batch.h"
#include "extract/tag_search.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brindlewick {

/// A multi-pattern automaton after Aho and Corasick over folded code units. Building it is linear in the
/// tags' length, counting linear in the line's, however many tags there are and however they nest.
class TagMatcher {
public:
    /// Buffers for matching; each thread has its own.
    class Scratch {
        friend class TagMatcher;
        std::vector<std::uint32_t>
            countedIn_; ///< by state: the number of the last line in which it was counted
        std::uint32_t line_ = 0;
        std::vector<std::uint8_t> marks_; ///< by line of a batch: 0 unless it is a candidate
        std::vector<std::uint32_t> candidates_;
    };

    explicit TagMatcher(std::span<const std::u16string> tags);

    /// The number of tags that the line contains; each of several equal tags counts. Every line contains the
    /// empty tag.
    std::size_t countMatches(std::u16string_view line, Scratch& scratch) const;
    /// The numbers of the batch's lines that may contain a tag, in order: all that do, and possibly others.
    /// Much faster than counting line by line. Valid until the scratch is used again.
    const std::vector<std::uint32_t>& findCandidates(const LineBatch& batch, Scratch& scratch) const;
    /// The number of tags that every candidate contains, if it is the same for all; they need no count then.
    /// Else 0.
    std::size_t matchesOfCandidates() const noexcept {
        return emptyTags_ == 0 && search_ && search_->isExact() ? otherTags_ : 0;
    }

private:
    using State = std::uint32_t;
    static constexpr State root = 0;

    /// A state without its transitions.
    struct Node {
        State failure = root;   ///< the longest proper suffix that is a state too
        State outputs = root;   ///< the nearest state on the failure chain that ends a tag; root for none
        std::uint32_t tags = 0; ///< number of tags that end here
    };

    void addTag(std::u16string_view tag);
    void linkFailures();
    void buildTable();
    State childOf(State state, std::uint32_t unitClass) const;
    State nextSparse(State state, std::uint32_t unitClass) const;
    std::size_t countOutputs(State state, Scratch& scratch) const;
    std::size_t countByTable(std::u16string_view line, Scratch& scratch) const;
    std::size_t countByEdges(std::u16string_view line, Scratch& scratch) const;
    void markByTable(const LineBatch& batch, Scratch& scratch) const;
    bool endsTags(State state) const { return nodes_[state].tags != 0 || nodes_[state].outputs != root; }
    void startLine(Scratch& scratch) const;

    std::vector<std::uint16_t>
        classOfUnit_; ///< by code unit: 0 for one in no tag, equal for units that fold alike
    std::uint32_t classCount_ = 1;
    std::unordered_map<std::uint64_t, State> edges_; ///< by state * 65536 + class
    std::vector<Node> nodes_;
    /// The transitions, state by state: the next state's index in the table times 2, plus 1 if tags end in
    /// that state. Empty if it would be too large.
    std::vector<std::uint32_t> table_;
    std::size_t emptyTags_ = 0;
    std::size_t otherTags_ = 0;
    std::optional<TagSearch> search_; ///< if there is one tag, in any letter case
};

} // namespace brindlewick
