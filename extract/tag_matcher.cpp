#include "extract/tag_matcher.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace brindlewick {

namespace {

// Entries of 4 bytes. Beyond this number the tags' edges are used instead of a full table.
constexpr std::size_t maxTableSize = std::size_t{1} << 24;

std::uint64_t edgeKey(std::uint32_t state, std::uint32_t unitClass) {
    return (std::uint64_t{state} << 16) | unitClass;
}

} // namespace

TagMatcher::TagMatcher(std::span<const std::u16string> tags) : classOfUnit_(65536, 0), nodes_(1) {
    for (const std::u16string& tag : tags)
        addTag(tag);
    // A unit has the class of its folded unit, under which the tags are entered.
    const char16_t* const folded = foldCaseTable();
    for (std::size_t unit = 0; unit < classOfUnit_.size(); ++unit)
        classOfUnit_[unit] = classOfUnit_[folded[unit]];
    linkFailures();
    if (nodes_.size() * classCount_ <= maxTableSize)
        buildTable();

    const auto isNotEmpty = [](const std::u16string& tag) { return !tag.empty(); };
    const auto first = std::find_if(tags.begin(), tags.end(), isNotEmpty);
    // A single branch with a single end: all tags that are not empty are the same.
    if (first != tags.end() && nodes_.size() == first->size() + 1 && nodes_.back().tags == otherTags_)
        search_ = TagSearch::of(*first);
}

void TagMatcher::addTag(std::u16string_view tag) {
    if (tag.empty()) {
        ++emptyTags_;
        return;
    }
    ++otherTags_;
    State state = root;
    for (const char16_t unit : tag) {
        std::uint16_t& unitClass = classOfUnit_[foldCase(unit)];
        if (unitClass == 0)
            unitClass = static_cast<std::uint16_t>(classCount_++);
        const auto [edge, isNew] =
            edges_.try_emplace(edgeKey(state, unitClass), static_cast<State>(nodes_.size()));
        if (isNew)
            nodes_.emplace_back();
        state = edge->second;
    }
    ++nodes_[state].tags;
}

/// Visits the states by depth, so that a suffix is linked before the states that fall back on it.
void TagMatcher::linkFailures() {
    struct Edge {
        State parent;
        std::uint32_t unitClass;
    };
    // Children have higher numbers than their parents, so parents come first, and a count by depth orders the
    // states without sorting.
    std::vector<Edge> edgeTo(nodes_.size());
    for (const auto& [key, child] : edges_)
        edgeTo[child] = {static_cast<State>(key >> 16), static_cast<std::uint32_t>(key & 0xFFFF)};
    std::vector<std::uint32_t> depth(nodes_.size(), 0);
    std::vector<std::size_t> startOfDepth(2, 0);
    for (State state = 1; state < nodes_.size(); ++state) {
        depth[state] = depth[edgeTo[state].parent] + 1;
        if (startOfDepth.size() <= depth[state] + 1)
            startOfDepth.resize(depth[state] + 2, 0);
        ++startOfDepth[depth[state] + 1];
    }
    for (std::size_t at = 1; at < startOfDepth.size(); ++at)
        startOfDepth[at] += startOfDepth[at - 1];
    std::vector<State> byDepth(nodes_.size() - 1);
    for (State state = 1; state < nodes_.size(); ++state)
        byDepth[startOfDepth[depth[state]]++] = state;

    for (const State state : byDepth) {
        const auto [parent, unitClass] = edgeTo[state];
        Node& node = nodes_[state];
        node.failure = parent == root ? root : nextSparse(nodes_[parent].failure, unitClass);
        node.outputs = nodes_[node.failure].tags != 0 ? node.failure : nodes_[node.failure].outputs;
    }
}

void TagMatcher::buildTable() {
    table_.assign(nodes_.size() * classCount_, 0);
    // A state's failure state is shallower, but may have a higher number, so rows are filled on demand,
    // deepest dependency first, along the failure chain.
    std::vector<bool> isFilled(nodes_.size(), false);
    std::vector<std::vector<std::pair<std::uint32_t, State>>> children(nodes_.size());
    for (const auto& [key, child] : edges_)
        children[key >> 16].emplace_back(static_cast<std::uint32_t>(key & 0xFFFF), child);
    std::vector<State> chain;
    for (State start = 0; start < nodes_.size(); ++start) {
        for (State state = start; !isFilled[state]; state = nodes_[state].failure) {
            chain.push_back(state);
            isFilled[state] = true;
        }
        for (; !chain.empty(); chain.pop_back()) {
            const State state = chain.back();
            std::uint32_t* const row = table_.data() + std::size_t{state} * classCount_;
            if (state != root) {
                const std::uint32_t* const fallBack =
                    table_.data() + std::size_t{nodes_[state].failure} * classCount_;
                std::copy(fallBack, fallBack + classCount_, row);
            }
            for (const auto& [unitClass, child] : children[state])
                row[unitClass] = child * classCount_ * 2 + (endsTags(child) ? 1 : 0);
        }
    }
}

TagMatcher::State TagMatcher::childOf(State state, std::uint32_t unitClass) const {
    const auto edge = edges_.find(edgeKey(state, unitClass));
    return edge == edges_.end() ? root : edge->second;
}

TagMatcher::State TagMatcher::nextSparse(State state, std::uint32_t unitClass) const {
    for (;;) {
        if (const State child = childOf(state, unitClass); child != root || state == root)
            return child;
        state = nodes_[state].failure;
    }
}

std::size_t TagMatcher::countMatches(std::u16string_view line, Scratch& scratch) const {
    startLine(scratch);
    return emptyTags_ + (table_.empty() ? countByEdges(line, scratch) : countByTable(line, scratch));
}

std::size_t TagMatcher::countByTable(std::u16string_view line, Scratch& scratch) const {
    const std::uint16_t* const classOfUnit = classOfUnit_.data();
    const std::uint32_t* const table = table_.data();
    std::size_t count = 0;
    std::uint32_t entry = 0;
    for (const char16_t unit : line) {
        entry = table[(entry >> 1) + classOfUnit[unit]];
        if ((entry & 1) != 0) {
            count += countOutputs((entry >> 1) / classCount_, scratch);
            if (count == otherTags_)
                break;
        }
    }
    return count;
}

std::size_t TagMatcher::countByEdges(std::u16string_view line, Scratch& scratch) const {
    std::size_t count = 0;
    State state = root;
    for (const char16_t unit : line) {
        state = nextSparse(state, classOfUnit_[unit]);
        if (state != root)
            count += countOutputs(state, scratch);
    }
    return count;
}

const std::vector<std::uint32_t>& TagMatcher::findCandidates(const LineBatch& batch, Scratch& scratch) const {
    std::vector<std::uint32_t>& lines = scratch.candidates_;
    lines.clear();
    if (emptyTags_ > 0 || table_.empty()) {
        lines.resize(batch.size());
        std::iota(lines.begin(), lines.end(), 0U);
    } else if (search_) {
        search_->appendCandidates(batch, lines);
    } else if (otherTags_ > 0) {
        markByTable(batch, scratch);
        for (std::size_t line = 0; line < batch.size(); ++line)
            if (scratch.marks_[line] != 0)
                lines.push_back(static_cast<std::uint32_t>(line));
    }
    return lines;
}

/// Follows the table through four parts of the batch in turn: a step must wait for the one before it in its
/// part, and meanwhile the processor works on the other parts. A match may begin in one line and end in the
/// next, since the marks are only candidates.
void TagMatcher::markByTable(const LineBatch& batch, Scratch& scratch) const {
    struct Part {
        const char16_t* at;
        const char16_t* end;
        std::size_t line;
        std::uint32_t entry;
    };
    const char16_t* const text = batch.text.data();
    const std::uint16_t* const classOfUnit = classOfUnit_.data();
    const std::uint32_t* const table = table_.data();
    scratch.marks_.assign(batch.size(), 0);
    std::uint8_t* const marks = scratch.marks_.data();

    std::array<Part, 4> parts{};
    std::size_t firstLine = 0;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        const std::size_t wantedEnd = batch.text.size() * (part + 1) / parts.size();
        const auto endLine = std::lower_bound(batch.ends.begin(), batch.ends.end(), wantedEnd);
        const std::size_t lines =
            std::min(static_cast<std::size_t>(endLine - batch.ends.begin()) + 1, batch.size());
        const std::size_t end = lines == 0 ? 0 : batch.ends[lines - 1];
        parts[part] = {text + batch.startOf(firstLine), text + end, firstLine, 0};
        firstLine = lines;
    }
    const auto next = [=](Part& part) {
        part.entry = table[(part.entry >> 1) + classOfUnit[*part.at++]];
        return part.entry;
    };
    const auto markLine = [&](Part& part) {
        const auto place = static_cast<std::size_t>(part.at - 1 - text);
        while (batch.ends[part.line] <= place)
            ++part.line;
        marks[part.line] = 1;
        part.at = text + batch.ends[part.line]; // the line is a candidate; skip its rest
        part.entry = 0;
    };
    for (;;) {
        std::ptrdiff_t steps = parts[0].end - parts[0].at;
        for (const Part& part : parts)
            steps = std::min(steps, part.end - part.at);
        if (steps == 0)
            break;
        auto [a, b, c, d] = parts;
        std::uint32_t together = 0;
        for (; steps > 0 && (together & 1) == 0; --steps)
            together = next(a) | next(b) | next(c) | next(d);
        parts = {a, b, c, d};
        for (Part& part : parts)
            if ((part.entry & 1) != 0)
                markLine(part);
    }
    for (Part& part : parts)
        while (part.at < part.end)
            if ((next(part) & 1) != 0)
                markLine(part);
}

/// Counts the tags that end here. Stops at the first state that was already counted in this line, because the
/// states it falls back on were counted with it.
std::size_t TagMatcher::countOutputs(State state, Scratch& scratch) const {
    std::size_t count = 0;
    if (nodes_[state].tags == 0)
        state = nodes_[state].outputs;
    for (; state != root && scratch.countedIn_[state] != scratch.line_; state = nodes_[state].outputs) {
        scratch.countedIn_[state] = scratch.line_;
        count += nodes_[state].tags;
    }
    return count;
}

void TagMatcher::startLine(Scratch& scratch) const {
    if (scratch.countedIn_.size() == nodes_.size() && ++scratch.line_ != 0)
        return;
    scratch.countedIn_.assign(nodes_.size(), 0); // at first, and after 2^32 lines
    scratch.line_ = 1;
}

} // namespace brindlewick
