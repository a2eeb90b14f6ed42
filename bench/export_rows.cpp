// Fills the results table with rows and prints how long it takes to save and to copy them.
//
//     export_rows ROWS FOLDER      leaves aligned.txt, comma.txt and tabs.txt (the same cells, bare) there

#include "unattended.h"

#include "extract/results_table.h"
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "platform/native_path.h"
#include "process_memory.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using namespace brindlewick;

void fill(ResultsTable& table, std::size_t rows) {
    table.setColumns(true);
    for (std::size_t row = 0; row < rows; ++row) {
        if (row % 1000 == 0)
            table.beginFile(
                textFromPathBytes("/data/exports/2021/file" + std::to_string(row / 1000) + ".json"));
        table.appendRow(table.store(textFromPathBytes("value " + std::to_string(row * 7919 % 1000003))),
                        true);
    }
}

void writeBare(const ResultsTable& table, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    for (std::size_t row = 0; row < table.rowCount(); ++row)
        file << toUtf8(table.cell(row, 0)) << '\t' << toUtf8(table.cell(row, 1)) << '\n';
}

template <class Step>
void time(const char* name, const Step& step) {
    const std::uint64_t before = peakResidentBytes();
    const auto start = std::chrono::steady_clock::now();
    step();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%s %.6f seconds, %llu bytes more at the peak\n", name, seconds,
                static_cast<unsigned long long>(peakResidentBytes() - before));
}

} // namespace

int main(int count, char** words) {
    if (count != 3) {
        std::fputs("usage: export_rows ROWS FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const std::string folder = words[2];
    UnattendedUser user;
    ResultsTable table;
    fill(table, std::strtoull(words[1], nullptr, 10));
    const ResultsListview view(table);
    time("aligned", [&] {
        SaveListviewProperlySpaced(user, view, textFromPathBytes(folder + "/aligned.txt"), nullptr);
    });
    time("comma", [&] {
        SaveListviewAsCommaDelimToFile(user, view, textFromPathBytes(folder + "/comma.txt"), nullptr);
    });
    time("clipboard", [&] { CopyListviewToClipboard(user, view); });
    writeBare(table, folder + "/tabs.txt");
    return EXIT_SUCCESS;
}
