# Debian's MinGW-w64 cross compiler with POSIX threads, and Wine to run its programs.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${triple})
# Qt's libraries come from build-qt, its tools (moc, rcc) from this machine.
file(REAL_PATH "${CMAKE_CURRENT_LIST_DIR}/../../build/windows-qt" windows_qt)
file(GLOB host_packages /usr/lib/*/cmake/Qt6)
if(EXISTS "${windows_qt}/lib/cmake/Qt6" AND host_packages)
  list(APPEND CMAKE_FIND_ROOT_PATH "${windows_qt}")
  set(Qt6_DIR "${windows_qt}/lib/cmake/Qt6" CACHE PATH "Qt's package for Windows")
  set(QT_HOST_PATH /usr)
  list(GET host_packages 0 QT_HOST_PATH_CMAKE_DIR)
  cmake_path(GET QT_HOST_PATH_CMAKE_DIR PARENT_PATH QT_HOST_PATH_CMAKE_DIR)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Link statically, so that the program needs no DLL.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# wine64 is not on the path; the command "wine" also needs a 32-bit Wine.
find_program(WINE_PROGRAM wine64 PATHS /usr/lib/wine)
if(WINE_PROGRAM)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${WINE_PROGRAM}")
endif()
