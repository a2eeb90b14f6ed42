#include "extract/run_summary.h"

#include "platform/text.h"

namespace brindlewick {

namespace {

std::u16string reasonForNoRows(const RunOutcome& outcome) {
    if (outcome.filesRead == 0 || outcome.filesEnded < outcome.files || outcome.mode == ExtractionMode::all)
        return {};
    if (outcome.tags == 0)
        return u" because there are no tags";
    if (outcome.tags == 1)
        return u" because the tag does not occur";
    return u" because none of the " + groupedText(outcome.tags) + u" tags occurs";
}

std::u16string readText(const RunOutcome& outcome) {
    if (outcome.filesEnded < outcome.files)
        return groupedText(outcome.filesRead) + u" of " + countText(outcome.files, u"file", u"files") +
               u" read to the end";
    return unlessNone(outcome.filesRead, u"file read", u"files read");
}

} // namespace

std::u16string runProgress(std::size_t file, std::size_t files, std::size_t rows, std::u16string_view path) {
    std::u16string text = u"Extracting file " + groupedText(file) + u" of " + groupedText(files) + u", " +
                          countText(rows, u"row", u"rows") + u" so far: ";
    return text.append(path);
}

std::u16string runSummary(const RunOutcome& outcome) {
    const std::size_t unreadable = outcome.filesEnded - outcome.filesRead - outcome.filesEmpty;
    return joinedClauses({
        outcome.rows > 0 ? countText(outcome.rows, u"row found", u"rows found")
                         : u"No rows found" + reasonForNoRows(outcome),
        readText(outcome),
        unlessNone(outcome.filesEmpty, u"file is empty", u"files are empty"),
        unlessNone(unreadable, u"file could not be read", u"files could not be read"),
        unlessNone(outcome.filesInPieces,
                   u"long file without a UTF-8 mark was read in pieces, which may cut values",
                   u"long files without a UTF-8 mark were read in pieces, which may cut values"),
        outcome.mode == ExtractionMode::none ? u"no mode is chosen, so values were extracted without tags"
                                             : u"",
    });
}

std::u16string rowCountText(std::size_t rows, std::size_t ticked) {
    if (rows == 0)
        return {};
    return countText(rows, u"row", u"rows") + u", " + groupedText(ticked) + u" ticked";
}

} // namespace brindlewick
