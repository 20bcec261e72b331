# Debian packages by purpose, and their installation. Sourced by the entry points in scripts/.

# shellcheck disable=SC2034 # used by name, see install_packages
packages_build="
    cmake g++ ninja-build pkg-config python3
    qtbase5-dev qtbase5-dev-tools qtbase5-private-dev qtmultimedia5-dev qttools5-dev qttools5-dev-tools
    libdbus-1-dev libpocketsphinx-dev libsphinxbase-dev pocketsphinx-en-us libpulse-dev
    espeak-ng sox"

# What the sandbox runs on: buses, sound, SVG icons, and fonts for all languages.
packages_run="
    dbus libqt5multimedia5-plugins libqt5svg5 qtwayland5
    pulseaudio pulseaudio-utils
    fonts-noto-core fonts-noto-cjk"

# The other sound server that the sandbox can have.
packages_pipewire="
    pipewire pipewire-pulse wireplumber"

packages_test="
    binutils iproute2 network-manager procps
    at-spi2-core python3-pyatspi openbox xauth xdotool xvfb
    clang-14 clang-format-16 clang-tidy clazy cmake-format flake8 shellcheck"

# A compiler with a fuzzer.
packages_fuzz="
    clang-14 libclang-rt-14-dev"

# What counts the lines and branches that were run.
packages_coverage="
    gcovr"

# What reads the sources that are to be changed.
packages_mutants="
    python3-clang-14"

# A screen reader, Wayland with frames by the compositor and by Qt, and what watches memory.
packages_weekly="
    orca python3-speechd
    sway weston
    valgrind"

# Windows like the sandbox's, to compare it with, and what sees them appear.
packages_bench="
    lxqt-config pavucontrol-qt python3-xlib xvfb"

# What makes Debian packages, and tries them in a fresh Debian.
packages_package="
    build-essential debhelper dpkg-dev git lintian mmdebstrap"

# The compilers and systems of scripts/portability.
packages_portability="
    clang-14 mmdebstrap"

# Installs what is missing of the packages in the named lists ("build", "run"...). Fails with 3 when
# that is not possible.
install_packages() {
    local wanted="" list package missing=()
    for list in "$@"; do
        list="packages_$list"
        wanted+=" ${!list}"
    done
    for package in $wanted; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    local as_root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages: ${missing[*]}" >&2
            echo "Install them as root, or install sudo: apt-get install ${missing[*]}" >&2
            return 3
        fi
        # Only from the terminal can an ordinary user end what runs as root.
        as_root=(env --default-signal=INT sudo)
    fi
    echo "Installing ${missing[*]}"
    # An installation that was interrupted must be finished first. An old package list names files that
    # are gone; a fresh machine has none at all.
    if ! { "${as_root[@]}" dpkg --configure -a >/dev/null &&
        "${as_root[@]}" apt-get -qq update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null; }; then
        echo "These packages could not be installed: ${missing[*]}" >&2
        return 3
    fi
}
