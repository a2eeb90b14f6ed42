# Sourced by ./run and ./test: installs the Debian or Ubuntu packages that are missing, and nothing when all
# are there, so that no network is needed then.

install_missing() {
    local missing=() package
    for package in "$@"; do
        if ! dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii'; then
            missing+=("$package")
        fi
    done
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    if ! command -v apt-get >/dev/null; then
        echo "These packages are missing, and there is no apt-get to install them with: ${missing[*]}" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq || "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# What building the program takes.
build_packages=(g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev)
# What building and running the tests and the benchmarks takes besides.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev)
