# shellcheck shell=bash disable=SC2034,SC2154
# What ./run, ./test, ./bench and ./check share. They set `root`, the folder of the repository, and
# read this file.

# The Debian packages that the program needs to be built, run and tested.
build_packages=(
    g++ cmake ninja-build pkg-config ccache python3
    qt6-base-dev qt6-svg-dev qt6-multimedia-dev
    libsqlcipher-dev libssl-dev mdbtools-dev
    libhunspell-dev hunspell-en-gb libglib2.0-dev
    libfreexl-dev liborcus-dev libgsf-1-dev libxlsxwriter-dev
    libecal2.0-dev libebook1.2-dev evolution-data-server dbus-daemon
    libgtest-dev
    fonts-dejavu-core
)
# What ./check needs besides.
check_packages=(clang clang-format clang-tidy)
# And ./check --documents.
document_packages=(libreoffice-writer-nogui libreoffice-calc-nogui poppler-utils)

is_installed() {
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Installs those of the packages that are missing; without the right to do so, says how and ends.
install_packages() {
    local package missing=() as_root=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    local command="apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
    if ((EUID != 0)); then
        if ! sudo -n true 2>/dev/null; then
            echo "Some packages are missing. Please run this as root, then try again:" >&2
            echo "    $command" >&2
            exit 1
        fi
        as_root=(sudo -n)
    fi
    echo "Installing ${missing[*]}" >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c "$command" >&2
}

# Configures a preset and builds targets of it, all of them where none is named.
build() {
    local preset=$1 target targets=()
    shift
    for target in "$@"; do
        targets+=(--target "$target")
    done
    cmake -S "$root" --preset "$preset" >/dev/null
    (cd "$root" && cmake --build --preset "$preset" -j "$(nproc)" "${targets[@]}")
}

# Runs a program by tools/screenless, in a home folder that goes with the caller.
in_isolation() {
    if [[ -z ${isolated_home:-} ]]; then
        isolated_home=$(mktemp -d)
        trap 'rm -rf "$isolated_home"' EXIT
    fi
    "$root/tools/screenless" "$isolated_home" "$@"
}
