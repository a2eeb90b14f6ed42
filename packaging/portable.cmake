# Run by cpack for the .tar.gz. Adds to the installed files what makes them start from any folder of any desktop with a
# C library that is not older than the packing machine's: Qt, its plug-ins and the libraries that these need, with the
# licence of each. Takes `plugins`, Qt's folder of plug-ins.
set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/lib/brindlewick")
set(licences "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/share/doc/brindlewick/licences")

file(MAKE_DIRECTORY "${folder}/lib" "${licences}/common")

# The window is drawn without OpenGL. But under Wayland Qt draws a frame around it only if OpenGL could be used, so the
# plug-in for that is included; those for X11 are not.
set(wanted platforms/libqxcb.so platforms/libqwayland*.so platforms/libqoffscreen.so
  wayland-shell-integration/libxdg-shell.so wayland-decoration-client/libbradient.so
  wayland-graphics-integration-client/libqt-plugin-wayland-egl.so
  imageformats/libqgif.so imageformats/libqico.so imageformats/libqjpeg.so
  platforminputcontexts/libcomposeplatforminputcontextplugin.so
  platforminputcontexts/libibusplatforminputcontextplugin.so)
list(TRANSFORM wanted PREPEND "${plugins}/")
file(GLOB chosen ${wanted})
foreach(display IN ITEMS xcb wayland)
  if(NOT chosen MATCHES "/libq${display}")
    message(FATAL_ERROR "Qt's plug-in for ${display} is missing. tools/install-missing.sh lists what to install.")
  endif()
endforeach()
foreach(plugin IN LISTS chosen)
  cmake_path(RELATIVE_PATH plugin BASE_DIRECTORY "${plugins}" OUTPUT_VARIABLE place)
  cmake_path(GET place PARENT_PATH kind)
  file(INSTALL "${plugin}" DESTINATION "${folder}/plugins/${kind}")
endforeach()

# Every desktop has these, and the machine's own must be used: they belong to the system or to a server on it, or other
# libraries of the machine use them, which may be newer than those of the packing machine.
set(of_every_desktop
  # The C library, the compiler's, and what package managers and systemd use.
  "^ld-linux" "^lib(c|m|dl|rt|pthread|resolv|stdc\\+\\+|gcc_s|z|zstd)\\.so"
  # X11 and Wayland. Not the libraries for parts of X11's protocol (libxcb-*), which a desktop may lack.
  "^lib(X11|X11-xcb|xcb|Xau|Xdmcp|ICE|SM|wayland-[a-z]+)\\.so"
  # Fonts, which the machine's own settings describe, and the bus.
  "^lib(fontconfig|freetype|png16|dbus-1)\\.so")
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES "${folder}/brindlewick" MODULES ${chosen}
  RESOLVED_DEPENDENCIES_VAR libraries PRE_EXCLUDE_REGEXES ${of_every_desktop})
foreach(library IN LISTS libraries)
  # Under the name by which it is asked for.
  cmake_path(GET library FILENAME name)
  file(REAL_PATH "${library}" library_file)
  file(COPY_FILE "${library_file}" "${folder}/lib/${name}")
endforeach()

# Of the two kinds of search path this is the one that applies to what plug-ins need too.
execute_process(COMMAND patchelf --force-rpath --set-rpath "$ORIGIN/lib" "${folder}/brindlewick"
  COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${folder}/qt.conf" "[Paths]\nPrefix=.\nPlugins=plugins\n")

# Licences, and those that they refer to.
set(carried "")
foreach(file IN LISTS chosen libraries)
  file(REAL_PATH "${file}" file)
  string(REGEX REPLACE "^/usr" "" unmerged "${file}") # the path that older packages list
  execute_process(COMMAND sh -c "dpkg-query -S \"$1\" 2>/dev/null || dpkg-query -S \"$2\"" sh "${file}" "${unmerged}"
    OUTPUT_VARIABLE package COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE ":.*" "" package "${package}")
  list(APPEND carried "${package}")
endforeach()
list(REMOVE_DUPLICATES carried)
list(SORT carried)
foreach(package IN LISTS carried)
  file(REAL_PATH "/usr/share/doc/${package}/copyright" copyright)
  file(COPY_FILE "${copyright}" "${licences}/${package}.txt")
  file(STRINGS "${copyright}" references REGEX "/usr/share/common-licenses/")
  foreach(line IN LISTS references)
    string(REGEX MATCHALL "/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]" paths "${line}")
    foreach(path IN LISTS paths)
      cmake_path(GET path FILENAME name)
      if(EXISTS "${path}")
        file(REAL_PATH "${path}" path)
        file(COPY_FILE "${path}" "${licences}/common/${name}.txt")
      endif()
    endforeach()
  endforeach()
endforeach()
execute_process(
  COMMAND dpkg-query -W -f "\${Package} \${Version}, source: \${source:Package} \${source:Version}\n" ${carried}
  OUTPUT_VARIABLE versions COMMAND_ERROR_IS_FATAL ANY)
file(WRITE "${licences}/README.txt"
"The libraries in lib/brindlewick/lib and the plug-ins in lib/brindlewick/plugins come unchanged from the Debian
packages below. Each licence is in PACKAGE.txt here; the licences that these name by a path are in the folder common.
Debian publishes the sources under the names and versions given. To use a library that you have changed, put it in the
place of the file here.

${versions}")
