# What every target of the program has in common: the language level, the warnings, the sanitizers,
# and the rule that a folder sees only the folders it links.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(brindlewick_options INTERFACE)
target_compile_options(brindlewick_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in every optimised std::string concatenation (GCC bug 105651).
  target_compile_options(brindlewick_options INTERFACE -Wno-restrict)
endif()
if(WIN32)
  # windows.h with its wide calls, without its rarer parts and without macros named min and max.
  target_compile_definitions(brindlewick_options INTERFACE UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
endif()
if(BRINDLEWICK_WARNINGS_AS_ERRORS)
  target_compile_options(brindlewick_options INTERFACE -Werror)
endif()
if(BRINDLEWICK_SANITIZE)
  set(sanitizers -fsanitize=${BRINDLEWICK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(brindlewick_options INTERFACE ${sanitizers})
  target_link_options(brindlewick_options INTERFACE ${sanitizers})
endif()
include(BrindlewickHardening)

# Code that calls the operating system is in x_posix.cpp and x_windows.cpp, which implement the same header.
# The tests of that code are named in the same way. This is the word in the name.
if(WIN32)
  set(BRINDLEWICK_SYSTEM windows)
else()
  set(BRINDLEWICK_SYSTEM posix)
endif()

# brindlewick_folder_library(NAME SOURCES file... [LINKS target...])
#
# Makes one folder of the program a static library. Its headers are included as "NAME/header.h",
# through a link of its own in the build folder, so that a header of a folder that is not linked
# cannot be found: a forbidden include does not build.
function(brindlewick_folder_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  set(include_root "${CMAKE_BINARY_DIR}/include/${name}")
  file(MAKE_DIRECTORY "${include_root}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${include_root}/${name}" SYMBOLIC)
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC "${include_root}")
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE brindlewick_options)
endfunction()

# brindlewick_test_program(NAME SOURCES file... LINKS target...)
#
# The test program NAME_tests, which is one CTest entry, NAME.
function(brindlewick_test_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_executable(${name}_tests ${arg_SOURCES})
  target_include_directories(${name}_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name}_tests PRIVATE ${arg_LINKS} brindlewick_options)
  add_test(NAME ${name} COMMAND ${name}_tests)
  set_tests_properties(${name} PROPERTIES TIMEOUT 900)
endfunction()
