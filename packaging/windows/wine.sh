# Sourced by packaging/windows/cross-check and build. Prepares Wine to run many programs without a display.
# shellcheck shell=bash disable=SC2034

# wine64-preloader reserves the addresses that Wine needs. Without it, Wine sometimes fails to start.
wine_packages=(wine64 wine64-preloader)

# start_wine BUILD_FOLDER: sets `wine` to the program, and keeps Wine's own files in the configured build folder.
start_wine() {
    export WINEPREFIX=$PWD/$1/wine
    mkdir -p "$WINEPREFIX"
    export WINEDEBUG=fixme-all # hides what Wine lacks, not why it fails
    export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" # neither .NET nor a browser is asked for
    export LC_ALL=C.UTF-8 # in the plain C locale Wine finds no file whose name is not ASCII
    unset DISPLAY WAYLAND_DISPLAY
    wine=$(sed -n 's/^WINE_PROGRAM:[A-Z]*=//p' "$1/CMakeCache.txt")
    # Keep the server running: a test that starts while the server shuts down fails.
    wineserver=$(dirname "$(readlink -f "$wine")")/wineserver
    "$wineserver" --persistent
    trap '"$wineserver" --kill' EXIT
    # Create Wine's own files now, since tests in parallel would all try to.
    "$wine" wineboot.exe --init >"$1/wineboot.log" 2>&1 || { cat "$1/wineboot.log" >&2; return 1; }
    # The share \\localhost\C$, which Windows has by itself.
    mkdir -p "$WINEPREFIX/dosdevices/unc/localhost"
    ln -sfn "$WINEPREFIX/drive_c" "$WINEPREFIX/dosdevices/unc/localhost/C\$"
}
