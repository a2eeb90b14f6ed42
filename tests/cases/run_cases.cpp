// Runs the cases of the files that are named on the command line. README.md describes their format.
#include "cases/case_file.h"

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/text_file_reader.h"
#include "extract/extraction_run.h"
#include "lists/folder_rules.h"
#include "lists/list_file.h"
#include "lists/listed_paths.h"
#include "platform/text_encoding.h"
#include "support/fake_settings.h"
#include "support/scripted_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <sstream>

namespace brindlewick::testing {
namespace {

Texts caseFiles;

Texts asUtf8(const std::vector<std::u16string>& texts) {
    Texts all;
    for (const std::u16string& text : texts)
        all.push_back(toUtf8(text));
    return all;
}

/// The lists and options of a run, and what the user saw of it.
struct Run {
    TemporaryFolder folder;
    std::vector<std::u16string> paths;
    std::vector<std::u16string> tags;
    Texts reports; ///< the descriptions of what was reported by the run before

    void add(std::string_view bytes) {
        paths.push_back(folder.write(std::to_string(paths.size()) + ".json", bytes));
    }
    /// The rows; with file names, the file's number replaces its path.
    Texts rows(int mode, bool withFileNames = false) {
        ScriptedUser user;
        FakeSettings settings;
        ExtractionOptions options(settings);
        options.chooseMode(static_cast<ExtractionMode>(mode));
        options.setIncludeFilename(withFileNames);
        ResultsTable table;
        ExtractionRun(user, options, paths, tags, table).PushButton7_Click();

        EXPECT_EQ(table.columns().size(), withFileNames ? 2U : 1U);
        reports.clear();
        std::istringstream transcript(user.takeTranscript());
        for (std::string line; std::getline(transcript, line);)
            if (const auto [report, routine] = cutAt(line, " in Form1.PushButton7_Click");
                line.starts_with("report: "))
                reports.push_back(report.substr(8) + routine);
        Texts rows;
        for (std::size_t row = 0; row < table.rowCount(); ++row) {
            std::string text = toUtf8(table.cell(row, 0));
            if (withFileNames) {
                const auto file = std::find(paths.begin(), paths.end(), table.cell(row, 0));
                text = "file " + std::to_string(file - paths.begin() + 1) + ": " + toUtf8(table.cell(row, 1));
            }
            rows.push_back(text);
        }
        return rows;
    }
};

/// The values that are read, and the program as a whole: mode 3 gives the lines as rows.
void checkFragments(const CaseLine& line) {
    auto [lines, rest] = cutAt(line.outcome, " !");
    Texts problems(cells(lines).size(), "");
    problems.push_back("Invalid JSON");
    while (!rest.empty()) { // "2 |error line|error line| !3 |error line|"
        const auto [number, other] = cutAt(rest, " ");
        const auto [errors, more] = cutAt(other, " !");
        for (const std::string& error : cells(errors))
            problems.at(std::stoul(number) - 1) += error + "\r\n";
        rest = more;
    }
    const std::u16string text = fromUtf8(line.input);
    JsonParser parser;
    std::int32_t position = 1;
    for (std::size_t call = 0; call < problems.size(); ++call) {
        const std::optional<JsonValue> fragment = parser.parse(text, position);
        EXPECT_EQ(fragment ? toUtf8(serialize(*fragment)) : "the end",
                  call + 1 < problems.size() ? cells(lines)[call] : "the end");
        EXPECT_EQ(toUtf8(parser.parserErrors()), problems[call]);
    }
    Run run;
    run.tags = {u""};
    run.add("\xEF\xBB\xBF" + line.input);
    EXPECT_EQ(run.rows(3), cells(lines));
}

void checkWalker(const CaseLine& line) {
    const auto [before, after] = cutAt(line.outcome, ", after an array ");
    Run run;
    run.tags = {u""};
    run.add(line.input);
    EXPECT_EQ(run.rows(1), cells(before));
    run.paths.clear();
    run.add("[]");
    run.add(line.input);
    Texts expected = cells(after.empty() ? before : after);
    expected.insert(expected.begin(), ": "); // the row of "[]"
    EXPECT_EQ(run.rows(1), expected);
}

/// A run's case goes over several lines; this holds it from its "case" line on.
class RunCase {
public:
    void take(const CaseLine& line) {
        const auto [word, rest] = cutAt(line.input, " ");
        if (word == "case") {
            run_ = std::make_unique<Run>();
            reports_.clear();
        } else if (word == "tags") {
            for (const std::string& tag : cells(rest))
                run_->tags.push_back(fromUtf8(tag));
        } else if (word == "file") {
            run_->add(rest);
        } else if (line.input == "missing file") {
            run_->paths.push_back(run_->folder.text("missing.json"));
        } else if (line.input == "folder as file") {
            run_->paths.push_back(run_->folder.text());
        } else if (word == "reports") {
            reports_ = cells(rest);
        } else if (word == "mode") {
            const std::string modes = cutAt(rest, " with file names").first;
            for (const char mode : modes)
                if (mode != ' ') {
                    EXPECT_EQ(run_->rows(mode - '0', modes != rest), cells(line.outcome)) << "mode " << mode;
                    EXPECT_EQ(run_->reports, reports_) << "mode " << mode;
                }
        } else {
            ADD_FAILURE() << "what does \"" << line.input << "\" mean?";
        }
    }

private:
    std::unique_ptr<Run> run_ = std::make_unique<Run>();
    Texts reports_;
};

Texts entriesOfListFile(const std::string& bytes) {
    const TemporaryFolder folder;
    ScriptedUser user;
    TextList list;
    ReadListFile(user, folder.write("list.txt", bytes), list);
    return asUtf8(list.texts());
}

/// The sections in which a case is an input and the texts that it gives.
const std::map<std::string, std::function<Texts(const std::string&)>> plainSections = {
    {"pieces",
     [](const std::string& bytes) {
         const TemporaryFolder folder;
         return asUtf8(ReadFileToPieces(folder.write("file", bytes)));
     }},
    {"list file", entriesOfListFile},
    {"doubled backslashes",
     [](const std::string& path) { return Texts{toUtf8(CollapseDoubledBackslashes(fromUtf8(path)))}; }},
    {"entered folders",
     [](const std::string& names) {
         std::istringstream all(names);
         Texts entered;
         for (std::string name; std::getline(all, name, '\0');)
             if (isAcceptedFolderName(fromUtf8(name)))
                 entered.push_back(name);
         return entered;
     }},
};

TEST(Cases, HaveTheirOutcomes) {
    ASSERT_FALSE(caseFiles.empty()) << "name the case files to run";
    for (const std::string& file : caseFiles) {
        RunCase run;
        for (const CaseLine& line : readCases(file)) {
            SCOPED_TRACE(line.place);
            const auto plain = plainSections.find(line.section);
            if (plain != plainSections.end())
                EXPECT_EQ(plain->second(line.input), cells(line.outcome));
            else if (line.section == "fragments")
                checkFragments(line);
            else if (line.section == "walker")
                checkWalker(line);
            else if (line.section == "run")
                run.take(line);
            else
                ADD_FAILURE() << "no section \"" << line.section << "\"";
        }
    }
}

} // namespace
} // namespace brindlewick::testing

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    brindlewick::testing::caseFiles.assign(argv + 1, argv + argc);
    return RUN_ALL_TESTS();
}
