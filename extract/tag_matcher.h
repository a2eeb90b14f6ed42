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
    /// What a thread that matches needs for itself.
    class Scratch {
        friend class TagMatcher;
        std::vector<std::uint32_t>
            countedIn_; ///< by state: the number of the line in which it was counted last
        std::uint32_t line_ = 0;
        std::vector<std::uint8_t> marks_; ///< by line of a batch: not 0 for a candidate
        std::vector<std::uint32_t> candidates_;
    };

    explicit TagMatcher(std::span<const std::u16string> tags);

    /// How many of the tags the line contains; equal tags count each. An empty tag is contained in every
    /// line.
    std::size_t countMatches(std::u16string_view line, Scratch& scratch) const;
    /// The numbers of the batch's lines that may contain a tag, in their order: all that do, and perhaps
    /// others. Much faster than asking line by line. Valid as long as the scratch is not used again.
    const std::vector<std::uint32_t>& findCandidates(const LineBatch& batch, Scratch& scratch) const;
    /// How many tags each of the candidates contains, if that is the same for all: they need not be counted.
    /// Else 0.
    std::size_t matchesOfCandidates() const noexcept {
        return emptyTags_ == 0 && search_ && search_->isExact() ? otherTags_ : 0;
    }

private:
    using State = std::uint32_t;
    static constexpr State root = 0;

    /// What is known of a state besides its transitions.
    struct Node {
        State failure = root;   ///< the longest proper suffix that is a state too
        State outputs = root;   ///< the nearest state on the failure chain that ends a tag; root for none
        std::uint32_t tags = 0; ///< how many tags end here
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
        classOfUnit_; ///< by code unit: 0 for one that no tag holds, equal for units that fold alike
    std::uint32_t classCount_ = 1;
    std::unordered_map<std::uint64_t, State> edges_; ///< by state * 65536 + class
    std::vector<Node> nodes_;
    /// Where each state goes on, state by state, as the next state's place in the table times 2, plus 1 when
    /// tags end in that state. Empty when it would be too large.
    std::vector<std::uint32_t> table_;
    std::size_t emptyTags_ = 0;
    std::size_t otherTags_ = 0;
    std::optional<TagSearch> search_; ///< when there is one tag, written in whatever case
};

} // namespace brindlewick
