// Every stage of the road by itself, so that a slow one shows: bytes a second of the file's UTF-8 text, for
// each shape of document.

#include "core/json_parser.h"
#include "core/json_serialiser.h"
#include "core/line_reader.h"
#include "extract/fragment_walker.h"
#include "extract/results_table.h"
#include "extract/tag_matcher.h"
#include "generated_json.h"
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "platform/native_path.h"
#include "platform/text_encoding.h"
#include "unattended.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

using namespace brindlewick;
using bench::generatedJson;
using bench::Shape;

constexpr std::size_t inputLength = 4'000'000; // bytes

const std::string& input(const benchmark::State& state) {
    static const std::string inputs[] = {
        generatedJson(Shape::records, inputLength), generatedJson(Shape::nested, inputLength),
        generatedJson(Shape::pretty, inputLength), generatedJson(Shape::longStrings, inputLength)};
    return inputs[static_cast<std::size_t>(state.range(0))];
}

void tellBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(input(state).size()));
    state.SetLabel(bench::shapeNames[static_cast<std::size_t>(state.range(0))].first);
}

/// Reads all lines of the input.
void readLines(const benchmark::State& state, LineReader& reader) {
    const std::u16string text = fromUtf8(input(state));
    std::size_t at = 0;
    // In one batch, so that the stages after this one can be timed alone.
    while (reader.readBatch(text, at, true, std::size_t{1} << 19) == FragmentReading::line &&
           reader.batch().text.size() < (std::size_t{1} << 19)) {
    }
}

void decode(benchmark::State& state) {
    std::vector<char16_t> target(input(state).size());
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeUtf8(input(state), target.data()));
    tellBytes(state);
}

void cutAndSerialiseFast(benchmark::State& state) {
    const std::u16string text = fromUtf8(input(state));
    LineReader reader;
    for (auto _ : state) {
        std::size_t at = 0;
        while (reader.readBatch(text, at, true, std::size_t{1} << 14) == FragmentReading::line)
            reader.startBatch();
    }
    tellBytes(state);
}

void cutPlainly(benchmark::State& state) {
    const std::u16string text = fromUtf8(input(state));
    for (auto _ : state) {
        std::int32_t position = 1;
        while (JsonParser().parse(text, position)) {
        }
    }
    tellBytes(state);
}

void cutAndSerialisePlainly(benchmark::State& state) {
    const std::u16string text = fromUtf8(input(state));
    for (auto _ : state) {
        std::int32_t position = 1;
        while (const std::optional<JsonValue> fragment = JsonParser().parse(text, position))
            benchmark::DoNotOptimize(serialize(*fragment));
    }
    tellBytes(state);
}

void tellUnits(benchmark::State& state, std::size_t units) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(units));
    state.SetLabel(bench::shapeNames[static_cast<std::size_t>(state.range(0))].first);
}

void match(benchmark::State& state) {
    LineReader reader;
    readLines(state, reader);
    std::vector<std::u16string> tags = {u"street"};
    for (std::int64_t tag = 1; tag < state.range(1); ++tag)
        tags.push_back(u"tag" + textFromPathBytes(std::to_string(tag)));
    const TagMatcher matcher(tags);
    TagMatcher::Scratch scratch;
    for (auto _ : state)
        benchmark::DoNotOptimize(matcher.findCandidates(reader.batch(), scratch).data());
    tellUnits(state, reader.batch().text.size());
}

void walk(benchmark::State& state) {
    LineReader reader;
    readLines(state, reader);
    FragmentWalker walker;
    for (auto _ : state)
        for (std::size_t line = 0; line < reader.batch().size(); ++line) {
            walker.clearTexts();
            walker.walk(reader.batch()[line]);
        }
    tellUnits(state, reader.batch().text.size());
}

void fill(ResultsTable& table, std::int64_t rows) {
    table.setColumns(false);
    table.beginFile(u"/data/file.json");
    for (std::int64_t row = 0; row < rows; ++row)
        table.appendRow(table.store(u"a value of some length"), false);
}

void appendRows(benchmark::State& state) {
    for (auto _ : state) {
        ResultsTable table;
        fill(table, state.range(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void copyRows(benchmark::State& state) {
    ResultsTable table;
    fill(table, state.range(0));
    UnattendedUser user;
    for (auto _ : state)
        benchmark::DoNotOptimize(clipboardText(user, ResultsListview(table)));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void saveRows(benchmark::State& state) {
    ResultsTable table;
    fill(table, state.range(0));
    UnattendedUser user;
    for (auto _ : state)
        SaveListviewProperlySpaced(user, ResultsListview(table), u"/dev/null", nullptr);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(decode)->DenseRange(0, 3);
BENCHMARK(cutAndSerialiseFast)->DenseRange(0, 3);
BENCHMARK(cutPlainly)->DenseRange(0, 3);
BENCHMARK(cutAndSerialisePlainly)->DenseRange(0, 3);
BENCHMARK(match)->ArgsProduct({{0, 1, 2}, {1, 10, 1000}});
BENCHMARK(walk)->DenseRange(0, 2);
BENCHMARK(appendRows)->Arg(100'000);
BENCHMARK(copyRows)->Arg(100'000);
BENCHMARK(saveRows)->Arg(100'000);

} // namespace

BENCHMARK_MAIN();
