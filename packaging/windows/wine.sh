# Sourced by packaging/windows/cross-check and build: Wine, ready to run many programs without a display.
# shellcheck shell=bash disable=SC2034

# wine64-preloader: without it Wine now and then finds an address taken that it needs, and does not start.
wine_packages=(wine64 wine64-preloader)

# start_wine BUILD_FOLDER: keeps Wine's own files in the configured build folder and sets `wine` to the program.
start_wine() {
    export WINEPREFIX=$PWD/$1/wine
    mkdir -p "$WINEPREFIX"
    export WINEDEBUG=fixme-all # hides what Wine lacks, not why it fails
    export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" # neither .NET nor a browser is asked for
    export LC_ALL=C.UTF-8 # in the plain C locale Wine finds no file whose name is not ASCII
    unset DISPLAY WAYLAND_DISPLAY
    wine=$(sed -n 's/^WINE_PROGRAM:[A-Z]*=//p' "$1/CMakeCache.txt")
    # A server that stays: one that ends between two tests takes the next one down with it.
    wineserver=$(dirname "$(readlink -f "$wine")")/wineserver
    "$wineserver" --persistent
    trap '"$wineserver" --kill' EXIT
    # Wine's own files are made once, before the tests would each try to.
    "$wine" wineboot.exe --init >"$1/wineboot.log" 2>&1 || { cat "$1/wineboot.log" >&2; return 1; }
}
