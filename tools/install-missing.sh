# Sourced by ./run, ./test, .ci/run and packaging/pack. Lists the Debian or Ubuntu packages that they need, and installs
# those that are missing. Uses the network only if one is.
# shellcheck shell=bash disable=SC2034

# To build and open the window. libgl1-mesa-dev: Ubuntu's Qt packages do not depend on it.
build_packages=(g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev fonts-liberation)
# To build and run the tests and the benchmarks. desktop-file-utils, appstream and man-db check the menu entry, the
# metainfo and the manual page.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev desktop-file-utils appstream man-db)
# To use the real program from outside: a display, a window manager, mouse and keys, the clipboard, pictures, the
# accessibility bus, a file system of its own.
session_packages=(xvfb openbox xdotool xclip imagemagick dbus-daemon at-spi2-core python3-pyatspi python3-pyfuse3)
# To make the packages. file and dpkg-dev find what the .deb depends on; patchelf and qt6-wayland are
# for the .tar.gz.
packing_packages=(file dpkg-dev patchelf qt6-wayland)
# For continuous integration: another compiler, and a tool that counts instructions.
gate_packages=(clang valgrind python3)

# install_missing PACKAGE...
install_missing() {
    local missing=() package
    for package in "$@"; do
        if [[ "$(dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null || true)" != ii* ]]; then
            missing+=("$package")
        fi
    done
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    echo "==> Installing ${missing[*]}"
    if ! command -v apt-get >/dev/null; then
        echo "There is no apt-get here. Please install what these packages hold by hand," >&2
        echo "then build with: cmake --preset release && cmake --build --preset release" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install them as root: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    # A mirror may be out of date for a moment: fetch the lists and try again.
    if ! fetch_and_install "${missing[@]}"; then
        echo "==> Trying once more"
        sleep 5
        fetch_and_install "${missing[@]}"
    fi
}

fetch_and_install() {
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 "$@" </dev/null >/dev/null
}

# words_after_dashes USAGE WORD...: puts the words after the first "--" into the array `passed_on`. Any word before
# it prints the usage and ends the script, with success for --help.
words_after_dashes() {
    local usage=$1
    shift
    passed_on=()
    case "${1:-}" in
    "") ;;
    --)
        shift
        passed_on=("$@")
        ;;
    -h | --help)
        echo "$usage"
        exit 0
        ;;
    *)
        echo "$usage" >&2
        exit 2
        ;;
    esac
}
