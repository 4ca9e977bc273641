# shellcheck shell=bash disable=SC2034,SC2154
# What ./run, ./test, ./bench and ./check share. They set `root`, the folder of the repository, and
# read this file.

# The Debian packages that the program needs to be built, run and tested.
build_packages=(
    g++ cmake ninja-build pkg-config ccache python3
    qt6-base-dev qt6-svg-dev qt6-multimedia-dev
    libsqlcipher-dev mdbtools-dev
    libhunspell-dev hunspell-en-gb libfreexl-dev
    libgtest-dev
    fonts-dejavu-core
)
# What ./check needs besides.
check_packages=(clang clang-format clang-tidy)

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

# What the platform without a screen says, under no category of Qt's log, of things that only a
# screen has.
screenless_lines='^This plugin does not support (propagateSizeHints\(\)|raise\(\)|grabbing the keyboard)$'

# Runs a program without a screen and without touching what the person has: every folder of the
# person's own lies in a temporary one, which goes with the caller. Its errors come without
# screenless_lines.
in_isolation() {
    if [[ -z ${isolated_home:-} ]]; then
        isolated_home=$(mktemp -d)
        trap 'rm -rf "$isolated_home"' EXIT
        mkdir -m 700 "$isolated_home/run"
    fi
    env -u DISPLAY -u WAYLAND_DISPLAY -u DBUS_SESSION_BUS_ADDRESS \
        QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 HOME="$isolated_home" \
        XDG_CONFIG_HOME="$isolated_home/config" XDG_DATA_HOME="$isolated_home/data" \
        XDG_CACHE_HOME="$isolated_home/cache" XDG_STATE_HOME="$isolated_home/state" \
        XDG_RUNTIME_DIR="$isolated_home/run" "$@" \
        2> >(grep --line-buffered -vE "$screenless_lines" >&2)
}
