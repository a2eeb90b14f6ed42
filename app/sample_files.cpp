#include "app/sample_files.h"

#include "lists/folder_scanner.h"
#include "lists/list_summaries.h"
#include "platform/error_report.h"
#include "platform/files.h"
#include "platform/native_path.h"
#include "platform/text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace brindlewick {

namespace {

constexpr std::u16string_view scramblingKey = u"brambles";
constexpr std::size_t digitsPerUnit = 4;
constexpr char16_t recordSeparator = u'|';

/// Two letters of the key for each code unit, so that both of its bytes change.
char16_t keyAt(std::size_t place) {
    const unsigned letter = scramblingKey[place % scramblingKey.size()];
    const unsigned next = scramblingKey[(place + 1) % scramblingKey.size()];
    return static_cast<char16_t>(letter << 8 | next);
}

std::u16string samplesFolder(std::u16string_view programFolder) {
    return joinedPath(programFolder, u"Samples");
}

} // namespace

std::u16string scrambled(std::u16string_view text) {
    std::u16string record;
    record.reserve(text.size() * digitsPerUnit);
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto unit = static_cast<char16_t>(text[place] ^ keyAt(place));
        for (const char16_t digit : hexadecimalDigits(unit, lowerCaseHexadecimal))
            record += digit;
    }
    return record;
}

std::u16string unscrambled(std::u16string_view text) {
    if (text.size() % digitsPerUnit != 0 || text.find_first_not_of(lowerCaseHexadecimal) != text.npos)
        return {};
    std::u16string record;
    record.reserve(text.size() / digitsPerUnit);
    for (std::size_t place = 0; place < text.size() / digitsPerUnit; ++place) {
        const char16_t unit =
            unitFromHexadecimal(text.substr(place * digitsPerUnit, digitsPerUnit)).value_or(0);
        record += static_cast<char16_t>(unit ^ keyAt(place));
    }
    return record;
}

SampleFiles::SampleFiles(UserInterface& user, SettingsStore& settings, TextList& inputFiles, TextList& tags,
                         std::u16string programFolder, std::function<void()> selectMode2)
    : user_(user), settings_(settings), inputFiles_(inputFiles), tags_(tags),
      programFolder_(std::move(programFolder)), selectMode2_(std::move(selectMode2)) {}

void SampleFiles::RecordSampleFiles() {
    const std::u16string folder = samplesFolder(programFolder_);
    std::u16string record;
    for (const std::u16string& name : GetFilesInFolder(folder, u"*.*"))
        record.append(joinedPath(folder, name)).append(1, recordSeparator);
    if (!record.empty())
        record.pop_back();
    settings_.SaveSetting(u"Snapshot", scrambled(record));
}

void SampleFiles::LoadSampleFiles(TextList& list) {
    const std::u16string record = unscrambled(settings_.GetSetting(u"Snapshot"));
    for (std::size_t start = 0; start <= record.size();) {
        const std::size_t end = std::min(record.find(recordSeparator, start), record.size());
        std::u16string path = record.substr(start, end - start);
        if (FileExists(path) && !ListContainsText(list, path))
            list.append(std::move(path));
        start = end + 1;
    }
    if (user_.askYesNo(
            u"Would you like this software to open the folder where these sample files are stored (so "
            u"that you can view them before working with them)?",
            YesNo::yes))
        user_.openFolder(withSeparator(samplesFolder(programFolder_))); // a failure is not reported
}

// "Load Sample/Example Files"
void SampleFiles::PushButton13_Click() {
    const Guard guard(user_, u"Form1.PushButton13_Click");
    const std::size_t filesBefore = inputFiles_.size();
    const std::size_t tagsBefore = tags_.size();
    guard([&] { selectMode2_(); });
    guard([&] { tags_.append(u"name"); });
    guard([&] { LoadSampleFiles(inputFiles_); });
    guard([&] {
        user_.endProgress(
            joinedClauses({filesAddedText(inputFiles_, filesBefore), tagsAddedText(tags_, tagsBefore)}));
    });
}

} // namespace brindlewick
