# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Set-up shared by the commands in scripts/ and .ci/, which source it. Long outputs go to the file
# "$log" and are shown only when something fails.

export DEBIAN_FRONTEND=noninteractive

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd -P)
log=$root/build/${0##*/}.log

# What Debian 12 and 13 need to build the editor and its tests, and to run both without a display. The
# OpenGL headers are asked for by Qt Charts. The SVG plugin is loaded at run time; without it all icons
# are blank. It has a package of its own since Debian 13.
svg_plugin='qt6-svg-plugins|libqt6svg6'
build_packages=(
    ca-certificates cmake fonts-dejavu-core g++ libqt6opengl6-dev ninja-build qt6-base-dev
    qt6-charts-dev qt6-svg-dev "$svg_plugin" zlib1g-dev
)

fail() { # message
    echo "${0##*/}: $1" >&2
    exit 1
}

# Runs a command with its output in the log; shows the output when it fails.
quietly() { # command...
    mkdir -p -- "${log%/*}"
    "$@" > "$log" 2>&1 < /dev/null && return
    grep --invert-match '^\[[0-9]*/[0-9]*\] ' -- "$log" >&2 || true # all but the steps that went well
    fail "this failed: $*"
}

as_root() { # command...
    if (( EUID == 0 )); then
        "$@"
    else
        sudo --preserve-env=DEBIAN_FRONTEND -- "$@"
    fi
}

# One name in each line. A package that went into another one goes on by its name only: Debian 13 has
# libqt6opengl6-dev in qt6-base-dev.
installed_packages() {
    dpkg-query --show --showformat='${db:Status-Status} ${Package}, ${Provides}\n' |
        sed --quiet 's/^installed //p' | tr ',' '\n' | sed 's/ *(.*//; s/^ *//'
}

is_installed() { # package
    installed_packages | grep --line-regexp --fixed-strings -e "$1" > /dev/null
}

# The first of the alternatives that this release has; the last one where apt knows none of them.
chosen_package() { # package[|package...]
    local alternatives alternative
    IFS='|' read -r -a alternatives <<< "$1"
    for alternative in "${alternatives[@]:0:${#alternatives[@]} - 1}"; do
        if [[ -n $(apt-cache madison "$alternative" 2> /dev/null) ]]; then
            echo "$alternative"
            return
        fi
    done
    echo "${alternatives[-1]}"
}

missing_packages() { # package[|package...]...
    local package
    for package in "$@"; do
        is_installed "$(chosen_package "$package")" || echo "$package"
    done
}

# Installs what is missing. Does nothing on systems other than Debian and its relatives.
install_packages() { # package[|package...]...
    command -v apt-get > /dev/null || return 0
    local missing package chosen=()
    mapfile -t missing < <(missing_packages "$@")
    (( ${#missing[@]} > 0 )) || return 0
    if (( EUID != 0 )) && ! command -v sudo > /dev/null; then
        fail "run as root or install sudo; missing packages: ${missing[*]}"
    fi

    quietly as_root apt-get update
    for package in "${missing[@]}"; do
        chosen+=("$(chosen_package "$package")")
    done
    echo "Installing ${chosen[*]}"
    quietly as_root apt-get install --yes --no-install-recommends "${chosen[@]}"
}

install_build_packages() {
    install_packages "${build_packages[@]}"
}

is_recent_cmake() { # program
    local version
    version=$("$1" --version 2> /dev/null | awk 'NR == 1 { print $3 }')
    [[ -n $version ]] && printf '%s\n' 3.25 "$version" | sort --version-sort --check=quiet
}

# Puts the folder of a CMake that knows our presets first in the PATH: the distribution's own rather
# than a wrapper of another tool chain, and with it the compiler and the Ninja beside it.
prefer_recent_cmake() {
    local candidate
    while read -r candidate; do
        if is_recent_cmake "$candidate"; then
            PATH=${candidate%/*}:$PATH
            return
        fi
    done < <(echo /usr/bin/cmake; type -a -p cmake)
    fail "CMake 3.25 or newer is needed"
}

# Compiler caching needs a home folder that exists.
prefer_usable_cache() {
    if [[ ! -w ${HOME:-/nonexistent} ]]; then
        export CCACHE_DIR=$root/build/ccache
    fi
}

# Configures build/release and builds the given targets there. Warnings stop nobody but .ci/run, which
# sets KORVELA_WARNINGS_AS_ERRORS: a compiler that nobody here has seen may have new ones.
build_release() { # target...
    prefer_recent_cmake
    prefer_usable_cache
    echo "Building in $root/build/release"
    quietly cmake -S "$root" --preset release -DKORVELA_BUILD_TESTS=ON \
        -DKORVELA_WARNINGS_AS_ERRORS="${KORVELA_WARNINGS_AS_ERRORS:-OFF}"
    quietly cmake --build "$root/build/release" --target "$@"
}

# Compiles with clang and its plugin clazy, in build/clazy, what the analysers look at: the programs,
# the tools and the benchmarks.
build_analysed() { # [option of cmake --build...]
    install_build_packages
    install_packages clazy libqcustomplot-dev
    prefer_recent_cmake
    export CCACHE_DISABLE=1 # the cache does not know which checks were asked for
    quietly cmake -S "$root" --preset clazy -DKORVELA_BUILD_TESTS=ON -DKORVELA_BUILD_BENCHMARKS=ON
    quietly cmake --build "$root/build/clazy" --target analysed "$@"
}
