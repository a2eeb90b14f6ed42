// Feeds the lenient JSON reader and both ways of writing lines.
#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/line_reader.h"
#include "fuzz/fuzz_driver.h"
#include "platform/text_encoding.h"

#include <memory>
#include <optional>
#include <variant>

namespace brindlewick::fuzz {

namespace {

std::string_view blank(Random& random) {
    return random.oneOf({"", "", "", " ", "\r\n", "\t", "/* a */", "// b\n", "(", ")", "/", "*"});
}

std::string_view text(Random& random) {
    return random.oneOf({"\"name\"", "\"\"", "'it\"s'", "\"\\u00e9\\n\\/\\q\"", "\"\\ud83d\\ude00\"",
                         "\"\\u1\"", "\"a,b:{c}[d]\"", "\"\xE9\xFF\"", "\"C:\\\\x\"", "\"unending"});
}

std::string_view plainValue(Random& random) {
    return random.oneOf({"1",
                         "-0.0",
                         "1.50",
                         "1.5e3",
                         "2e-3",
                         "1e28",
                         "-1e-28",
                         "79228162514264337593543950335",
                         "79228162514264337593543950336",
                         "0.00000000000000000000000000005",
                         "1e999999999",
                         "--",
                         "true",
                         "false",
                         "null",
                         "tru",
                         "fals",
                         "nul",
                         "",
                         "undefined"});
}

/// A value, with the brackets that are still to be closed kept in a list: no recursion here either.
std::string document(Random& random) {
    std::string bytes;
    std::string closing;
    for (std::size_t steps = 1 + random.below(40); steps > 0; --steps) {
        bytes += blank(random);
        if (closing.ends_with('}')) {
            bytes += random.below(4) > 0 ? text(random) : random.oneOf({"key", "a b", "a'b", "", "\"k\""});
            bytes += blank(random);
            bytes += random.below(16) > 0 ? ":" : "";
        }
        switch (random.below(6)) {
        case 0:
            bytes += '{';
            closing += '}';
            break;
        case 1:
            bytes += '[';
            closing += ']';
            break;
        case 2:
            bytes += text(random);
            break;
        default:
            bytes += plainValue(random);
        }
        while (!closing.empty() && random.below(3) == 0) {
            bytes += closing.back();
            closing.pop_back();
        }
        bytes += random.oneOf({",", ",", ",", " ", ""});
    }
    if (random.below(4) > 0)
        bytes.append(closing.rbegin(), closing.rend());
    return bytes + "\n";
}

void checkFragments(std::u16string_view text) {
    // A unit grows most as the end of a number like 1e28, or as a bad boolean between two colons.
    const std::size_t mostWritten = 20 * text.size() + 100;
    JsonParser parser;
    LineReader reader;
    std::int32_t position = 1;
    std::size_t at = 0;
    std::size_t written = 0;
    for (;;) {
        const std::int32_t start = position;
        const std::optional<JsonValue> fragment = parser.parse(text, position);
        const FragmentReading reading = reader.next(text, at);
        check(reading == (fragment ? FragmentReading::line : FragmentReading::end),
              "both readers end together");
        check(static_cast<std::size_t>(position) == at + 1, "both readers stop at the same place");
        if (text.size() < 1000) // a line of the errors may quote the whole rest
            (void)parser.parserErrors();
        if (!fragment)
            break;
        check(position > start, "every fragment moves on");
        check(static_cast<std::size_t>(position) <= text.size() + 2, "no fragment reads past the text");
        const std::u16string line = serialize(*fragment);
        check(line == reader.line(), "both ways write the same line");
        check(line.find_first_of(u"\r\n\t") == std::u16string::npos, "a fragment is one line");
        written += line.size();
        check(written <= mostWritten, "the lines grow no faster than the text");
    }
}

/// What follows keeps the text's end away, so that members are read by whole blocks.
const std::u16string farEnd = u"\n" + std::u16string(600, u' ') + u"[\"the end\"]\n";

/// Text that comes bit by bit, at every place in turn, gives the lines of the whole text.
void checkCutOff(std::u16string_view text) {
    LineReader whole;
    LineReader cut;
    std::size_t wholeAt = 0;
    std::size_t cutAt = 0;
    for (std::size_t known = 0;;) {
        const FragmentReading reading = cut.next(text.substr(0, known), cutAt, known >= text.size());
        if (reading == FragmentReading::needsText) {
            ++known;
            continue;
        }
        check(reading == whole.next(text, wholeAt), "text that comes bit by bit gives as many lines");
        check(cutAt == wholeAt, "text that comes bit by bit is read to the same places");
        if (reading == FragmentReading::end)
            return;
        check(cut.line() == whole.line(), "text that comes bit by bit gives the same lines");
    }
}

/// A fragment whose line may not be made ends where it would end otherwise.
void checkTooLong(std::u16string_view text) {
    constexpr std::size_t longestLine = 1000;
    std::u16string document = u"{\"first\":1}[";
    document.append(text)
        .append(u",\"")
        .append(text.size() * 37 % 4000, u'\u00E9')
        .append(u"\\n\"],")
        .append(text);
    document.append(u",\"k\":2}").append(farEnd);
    LineReader reader(longestLine);
    std::size_t at = 0;
    std::int32_t plainPosition = 1;
    while (const std::optional<JsonValue> fragment = JsonParser().parse(document, plainPosition)) {
        const bool isTooLong = serialize(*fragment).size() > longestLine;
        check(reader.next(document, at) == (isTooLong ? FragmentReading::tooLong : FragmentReading::line),
              "a line is refused for its length alone");
        check(at + 1 == static_cast<std::size_t>(plainPosition), "a refused line ends where it would");
    }
}

/// A document of plain JSON, as its input chooses. Within an array an object has one member at the most: a
/// second one is read as what follows the array, and the line of that is no JSON any more.
std::u16string plainDocument(Choices& choices) {
    static constexpr std::u16string_view keys[] = {u"\"name", u"\"a", u"\"x_y", u"\"k-1", u"\"\u00E9"};
    static constexpr std::u16string_view leaves[] = {
        u"\"\"", u"\"a b\"", u"\"k\\u00E9\\n\"", u"0", u"-12.50", u"true", u"false", u"null", u"{}", u"[]"};
    std::u16string text = u"{";
    std::u16string closing = u"}";
    bool isFirst = true;
    std::size_t member = 0;
    for (; !choices.isSpent() && closing.size() < 100; isFirst = false) {
        const bool isInArray = closing.find(u']') != closing.npos;
        const std::size_t choice = choices.below(std::size(leaves) + 5);
        const bool isFull = isInArray && closing.back() == u'}' && !isFirst;
        if (choice >= std::size(leaves) + 2 || isFull) {
            if (closing.size() == 1)
                continue;
            text += closing.back();
            closing.pop_back();
            continue;
        }
        text += isFirst ? u"" : u",";
        if (closing.back() == u'}') { // no key twice in one object
            const std::string number = std::to_string(member++);
            text.append(keys[choice % std::size(keys)]).append(number.begin(), number.end()).append(u"\":");
        }
        if (choice < std::size(leaves)) {
            text += leaves[choice];
            continue;
        }
        const bool isObject = choice == std::size(leaves);
        text += isObject ? u'{' : u'[';
        closing += isObject ? u'}' : u']';
        isFirst = true;
    }
    text.append(closing.rbegin(), closing.rend());
    return text + u"\n";
}

/// A line of plain JSON is one fragment when it is read again: itself.
void checkLinesReadAgain(std::u16string_view text) {
    std::int32_t position = 1;
    while (const std::optional<JsonValue> fragment = JsonParser().parse(text, position)) {
        const std::u16string line = serialize(*fragment) + u"\n";
        std::int32_t again = 1;
        const std::optional<JsonValue> same = JsonParser().parse(line, again);
        check(same && serialize(*same) + u"\n" == line, "a plain line reads back as itself");
        check(!JsonParser().parse(line, again), "a plain line is one fragment");
    }
}

/// Any text survives being written as a string and read again.
void checkStringThereAndBack(std::u16string_view text) {
    std::u16string document = u"[\"";
    document.append(encodeString(text)).append(u"\"]\n");
    std::int32_t position = 1;
    const std::optional<JsonValue> fragment = JsonParser().parse(document, position);
    check(fragment.has_value(), "a written string is read again");
    const auto* array = std::get_if<std::shared_ptr<JsonArray>>(&*fragment);
    check(array != nullptr && (*array)->elements().size() == 1, "a written string is one element");
    const auto* element = std::get_if<std::u16string>(&(*array)->elements()[0]);
    check(element != nullptr && *element == text, "a string reads back as it was");
}

} // namespace

std::string makeInput(Random& random) {
    std::string bytes;
    switch (random.below(64)) {
    case 0:
        bytes = hostile({"[", "{", "{a:", "[{", "[[],", "{a:t", "{a:1 b:", "(/*", "\"\\", "]", "}", ",", "\"",
                         "'", "//", "\n", "nul", "9e", "\\u"},
                        random);
        break;
    case 2:
        bytes = repeated("{\"a\":[1],", random.below(20000));
        break;
    case 1:
        for (std::size_t length = random.below(200); length > 0; --length)
            bytes += static_cast<char>(random.below(256));
        break;
    default:
        bytes = document(random);
    }
    bend(bytes, 6, random);
    return bytes;
}

void runOn(std::string_view input) {
    std::u16string singleByte;
    appendFromWindows1252(input, singleByte);
    checkFragments(singleByte);
    checkFragments(singleByte + farEnd);
    if (singleByte.size() < 300) { // the whole is read again for every unit
        checkTooLong(singleByte);
        checkCutOff(singleByte + farEnd);
    }
    checkStringThereAndBack(singleByte);

    std::u16string wide; // every code unit, lone surrogates too
    for (std::size_t at = 0; at + 1 < input.size(); at += 2)
        wide.push_back(static_cast<char16_t>(static_cast<unsigned char>(input[at]) |
                                             (static_cast<unsigned char>(input[at + 1]) << 8)));
    checkStringThereAndBack(wide);

    Choices choices(input.substr(0, 2000));
    checkLinesReadAgain(plainDocument(choices));
}

} // namespace brindlewick::fuzz
