# Sourced by ./run, ./test and .ci/run: what the program and its tests are built with, and how the Debian or
# Ubuntu packages of it that are missing get installed. When all are there nothing asks the network.
# shellcheck shell=bash disable=SC2034

# What building and opening the window takes. libgl1-mesa-dev: Ubuntu's Qt does not bring it by itself.
build_packages=(g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev fonts-liberation)
# What building and running the tests and the benchmarks takes besides.
# Three judge the menu entry, the metainfo and the manual page; the last makes a file system of a test's own.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev desktop-file-utils appstream man-db python3-pyfuse3)
# What using the real program from outside takes: a display, a window manager, mouse and keys, the clipboard,
# pictures, the accessibility bus.
session_packages=(xvfb openbox xdotool xclip imagemagick dbus-daemon at-spi2-core python3-pyatspi)
# What trying the package on a bare machine takes besides.
package_check_packages=(lintian debootstrap)
# What continuous integration takes besides: another compiler, and to count the engine's instructions.
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
    # A mirror may be out of step for a moment: one more try, with fresh lists.
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

# words_after_dashes USAGE WORD...: puts what follows the first "--" into the array `passed_on`; any word
# before it ends the script with the usage, for --help without a complaint.
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
