// Takes a folder as if it were dropped on the input file list and prints how long the scan took.
//
//     scan_folder FOLDER

#include "unattended.h"

#include "lists/input_file_handlers.h"
#include "lists/text_list.h"
#include "platform/native_path.h"

#include <chrono>
#include <cstdio>

int main(int count, char** words) {
    using namespace brindlewick;
    if (count != 2) {
        std::fputs("usage: scan_folder FOLDER\n", stderr);
        return 2;
    }
    UnattendedUser user;
    ForgetfulSettings settings;
    TextList files;
    InputFileHandlers handlers(user, settings, files);
    const auto start = std::chrono::steady_clock::now();
    handlers.ListView1_OLEDragDrop({textFromPathBytes(words[1])});
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%zu files, %.6f seconds\n", files.size(), seconds);
    return 0;
}
