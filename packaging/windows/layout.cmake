# Install rules for Windows: all files in one folder, which may be anywhere. packaging/windows/build makes the
# installer from the same files.
install(TARGETS brindlewick RUNTIME DESTINATION .)
install(DIRECTORY "${share}/Samples" "${share}/Splash" "${share}/skins" DESTINATION .)
install(FILES "${share}/HAND-M.CUR" "${share}/drag.ico" DESTINATION .)

# Notepad before 2018 shows text without carriage returns as one line.
configure_file(windows/README.txt.in README.txt @ONLY NEWLINE_STYLE WIN32)
configure_file("${PROJECT_SOURCE_DIR}/docs/manual.md" manual.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/README.txt" "${CMAKE_CURRENT_BINARY_DIR}/manual.txt" DESTINATION .)
configure_file("${PROJECT_SOURCE_DIR}/LICENSE" Brindlewick.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/Brindlewick.txt" DESTINATION licences)
# The program includes Qt, so Qt's licence is included too.
cmake_path(SET qt_folder NORMALIZE "${Qt6_DIR}/../../..")
if(EXISTS "${qt_folder}/LICENSES")
  install(FILES "${qt_folder}/LICENSES/LGPL-3.0-only.txt" "${qt_folder}/LICENSES/GPL-3.0-only.txt" DESTINATION licences)
  install(FILES "${qt_folder}/copyright" DESTINATION licences RENAME Qt.txt)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "brindlewick-${PROJECT_VERSION}-windows-x64")
