// What reads bytes and text: lenient JSON, text files, list files.
#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/line_reader.h"
#include "core/text_file_reader.h"
#include "fuzz/fuzz_driver.h"
#include "lists/list_file.h"
#include "platform/text_encoding.h"
#include "support/counting_user.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <variant>
#include <vector>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

/// True for a value whose line is read as the value itself. An object with two members is not: the second one
/// is a fragment of its own.
bool isPlain(const JsonValue& value) {
    if (const auto* const object = std::get_if<std::shared_ptr<JsonObject>>(&value)) {
        const auto& members = (*object)->members();
        std::set<std::u16string_view> keys;
        for (const JsonObject::Member& member : members)
            check(keys.insert(member.key).second, "an object has no key twice");
        return members.empty() || (members.size() == 1 && isPlain(members[0].value) &&
                                   members[0].key.find_first_of(u"\"'\\") == std::u16string::npos);
    }
    if (const auto* const array = std::get_if<std::shared_ptr<JsonArray>>(&value))
        return std::all_of((*array)->elements().begin(), (*array)->elements().end(), isPlain);
    return !std::holds_alternative<std::monostate>(value);
}

/// The line with blanks and comments before and after its delimiters.
std::u16string spacedOut(std::u16string_view line) {
    static constexpr std::u16string_view ignorable[] = {
        u"", u"", u" ", u"\r\n\t ", u"( )", u"/* ]} */", u"// ,]\n", u"\n                    "};
    std::u16string text;
    bool isInString = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool isEscape = isInString && line[at] == u'\\';
        isInString = isInString != (line[at] == u'"');
        const bool isDelimiter = !isInString && std::u16string_view(u"{}[]:,").find(line[at]) != line.npos;
        const auto blank = [&](std::size_t which) { return isDelimiter ? ignorable[which % 8] : u""; };
        text.append(blank(line.size() + at)).append(line.substr(at, isEscape ? 2 : 1)).append(blank(at * 3));
        at += isEscape ? 1 : 0;
    }
    return text;
}

void checkLine(const JsonValue& fragment, const std::u16string& line) {
    check(line.find_first_of(u"\r\n\t") == line.npos, "a fragment is one line");
    if (!isPlain(fragment))
        return;
    for (const std::u16string& text : {line + u"\n", spacedOut(line) + u"\n"}) {
        std::int32_t position = 1;
        const std::optional<JsonValue> same = JsonParser().parse(text, position);
        check(same && serialize(*same) == line, "a plain line reads back as itself");
        check(!JsonParser().parse(text, position), "a plain line is one fragment");
    }
}

void checkLines(std::u16string_view text) {
    const bool isVeryShort = text.size() < 600; // a fragment is read again for each of its units
    JsonParser parser;
    LineReader reader;
    LineReader waitingReader;
    std::int32_t position = 1;
    std::size_t at = 0;
    std::size_t waitingAt = 0;
    std::size_t known = 0;
    for (;;) {
        const std::size_t start = at;
        const std::optional<JsonValue> fragment = parser.parse(text, position);
        const std::u16string line = fragment ? serialize(*fragment) : u"";
        const FragmentReading outcome = fragment ? FragmentReading::line : FragmentReading::end;
        check(reader.next(text, at) == outcome && static_cast<std::size_t>(position) == at + 1,
              "both readers stop at the same place");
        check(!fragment || line == reader.line(), "both readers give the same line");
        if (isVeryShort) {
            FragmentReading waiting = FragmentReading::needsText;
            for (; waiting == FragmentReading::needsText; ++known)
                waiting = waitingReader.next(text.substr(0, known), waitingAt, known >= text.size());
            --known;
            check(waiting == outcome && waitingAt == at && (!fragment || waitingReader.line() == line),
                  "text that comes bit by bit gives the same lines");
        }
        if (!fragment)
            return;
        check(at > start, "every fragment moves on");
        check(at <= text.size() + 1, "no fragment reads past the text");
        checkLine(*fragment, line);
    }
}

/// Any text survives being written as a string and read again.
void checkString(std::u16string_view text) {
    const std::u16string document = u"[\"" + encodeString(text) + u"\"]\n";
    std::int32_t position = 1;
    const std::optional<JsonValue> fragment = JsonParser().parse(document, position);
    const auto* const array = fragment ? std::get_if<std::shared_ptr<JsonArray>>(&*fragment) : nullptr;
    check(array != nullptr && (*array)->elements().size() == 1, "a written string is one element");
    const auto* const element = std::get_if<std::u16string>(&(*array)->elements()[0]);
    check(element != nullptr && *element == text, "a string reads back as it was");
}

const Subject json("json", [](std::string_view input) {
    const std::u16string text = fromUtf8(input);
    checkLines(text);
    // Members near a text's end are not read by whole blocks.
    checkLines(text + u"\n" + std::u16string(600, u' ') + u"[\"the end\"]\n");
    checkString(text);
    checkString(unitsOf(input));
});

const Subject textFile("text_file", [](std::string_view input) {
    std::u16string text;
    const bool isUtf8 = input.starts_with("\xEF\xBB\xBF"sv);
    const bool isLittleEndian = input.starts_with("\xFF\xFE"sv);
    if (isUtf8)
        text = fromUtf8(input.substr(3));
    else if (isLittleEndian || input.starts_with("\xFE\xFF"sv) || input.starts_with("\0\0\xFE\xFF"sv))
        text = unitsOf(input.substr(isLittleEndian ? 2 : 0));
    else
        appendFromWindows1252(input, text);
    std::vector<std::u16string> expected;
    const std::size_t length = isUtf8 ? text.size() + 1 : 65536;
    for (std::size_t at = 0; at == 0 || at < text.size(); at += length)
        expected.push_back(text.substr(at, length));
    check(ReadFileToPieces(newFile("file", input)) == expected, "the pieces are those of the text");
});

/// A CR, with the LF after it, ends a line, and so does any other LF; the end of the text ends the last one.
const Subject listFile("list_file", [](std::string_view input) {
    std::u16string text;
    appendFromWindows1252(input, text);
    std::vector<std::u16string> expected;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(u"\r\n", at), text.size());
        expected.push_back(text.substr(at, end - at));
        if (end + 1 == text.size() && text[end] == u'\n') // only splits its line
            expected.emplace_back();
        at = end + (text.substr(end, 2) == u"\r\n" ? 2 : 1);
    }
    testing::CountingUser user;
    TextList list;
    ReadListFile(user, newFile("list.txt", input), list);
    check(user.messages + user.reports == 0, "nothing is reported");
    check(list.texts() == expected, "the entries are those of the lines");
});

} // namespace

} // namespace brindlewick::fuzz
