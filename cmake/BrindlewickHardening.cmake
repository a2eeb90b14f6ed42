# What makes an error in an optimised program harder to exploit: the flags that Debian builds its own packages with, and
# their counterparts on Windows. Position-independent code is the default of Debian's compilers. Builds without
# optimisation do not get the flags, since the checked library functions need it, and neither do builds with sanitizers,
# which check more.
if(BRINDLEWICK_SANITIZE)
  return()
endif()
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
set(wanted_flags -fstack-protector-strong)
if(WIN32)
  # The compiler for Windows always touches a stack's pages one after the other.
  target_link_options(brindlewick_options INTERFACE
    $<${optimised}:-fstack-protector-strong;-Wl,--dynamicbase,--high-entropy-va,--nxcompat>)
else()
  list(APPEND wanted_flags -fstack-clash-protection -fcf-protection -mbranch-protection=standard)
  target_link_options(brindlewick_options INTERFACE $<${optimised}:-Wl,-z,relro,-z,now>)

  # Some distributions' compilers, and some packagers' flags, define it already.
  set(CMAKE_REQUIRED_FLAGS -O2)
  check_cxx_source_compiles("#ifdef _FORTIFY_SOURCE\n#error\n#endif\nint main() {}" BRINDLEWICK_NOT_FORTIFIED)
  unset(CMAKE_REQUIRED_FLAGS)
  if(BRINDLEWICK_NOT_FORTIFIED)
    target_compile_definitions(brindlewick_options INTERFACE $<${optimised}:_FORTIFY_SOURCE=2>)
  endif()
endif()
# No processor supports all of them.
foreach(flag IN LISTS wanted_flags)
  string(MAKE_C_IDENTIFIER "BRINDLEWICK_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    target_compile_options(brindlewick_options INTERFACE $<${optimised}:${flag}>)
  endif()
endforeach()
