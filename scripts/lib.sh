# shellcheck shell=bash
# What the scripts share. To be sourced; expects `set -euo pipefail`.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
}

fail() {
    say "$@"
    exit 1
}

# as_root COMMAND...: runs a command with the rights to install software.
as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

# install_packages GROUP...: installs those packages of the groups (see scripts/packages) that are missing.
# Touches neither the network nor the package database when there are none.
install_packages() {
    local group package wanted=() missing=()
    while read -r group package; do
        if [[ " $* " == *" $group "* ]]; then
            wanted+=("$package")
        fi
    done < <(grep -v '^[[:space:]]*\(#\|$\)' "$root/scripts/packages")

    if ! command -v dpkg-query >/dev/null; then
        say "not a Debian system, taking for granted what Debian calls ${wanted[*]}"
        return
    fi
    for package in "${wanted[@]}"; do
        if [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true) != installed* ]]; then
            missing+=("$package")
        fi
    done
    if [[ ${#missing[@]} -eq 0 ]]; then
        return
    fi
    [[ $EUID -eq 0 ]] || command -v sudo >/dev/null ||
        fail "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
    say "installing ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        -o Dpkg::Use-Pty=0 "${missing[@]}" >/dev/null
}

# build_preset PRESET [TARGET...]: configures the preset and builds the targets, all of them when none is named.
build_preset() {
    local preset=$1 launcher=()
    shift
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    say "configuring build/$preset"
    # A subshell, because presets are looked up in the current directory.
    (cd "$root" && cmake --preset "$preset" "${launcher[@]}" >/dev/null) || fail "could not configure build/$preset"
    say "building build/$preset"
    cmake --build "$root/build/$preset" --parallel "$(nproc)" ${1:+--target "$@"} >&2 ||
        fail "could not build build/$preset"
}
