#!/usr/bin/env bash
# Installs the Debian packages of packages.txt that are missing. Sourced by ./run and ./test.

vasclip_setup() {
    local list=$1 missing=() name
    while read -r name; do
        case $name in '' | '#'*) continue ;; esac
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q 'install ok installed' || missing+=("$name")
    done <"$list"
    [ ${#missing[@]} -eq 0 ] && return 0

    local sudo=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them as root, or install sudo, and start again." >&2
            return 1
        }
        sudo=sudo
    fi
    echo "Installing ${#missing[@]} missing packages: ${missing[*]}"
    local options=(-y -q --no-install-recommends -o DPkg::Lock::Timeout=600)
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -q -o DPkg::Lock::Timeout=600 >/dev/null &&
        $sudo env DEBIAN_FRONTEND=noninteractive apt-get install "${options[@]}" "${missing[@]}" >/dev/null || {
        echo "The packages could not be installed; see the messages above." >&2
        return 1
    }
}

# Configures and builds a preset; further arguments are targets.
vasclip_build() {
    local preset=$1
    shift
    export CCACHE_SLOPPINESS=pch_defines,time_macros
    if command -v ccache >/dev/null; then
        export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    fi
    cmake --preset "$preset" >"build-$preset.log" 2>&1 || {
        cat "build-$preset.log"
        rm -f "build-$preset.log"
        return 1
    }
    rm -f "build-$preset.log"
    cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"}
}
