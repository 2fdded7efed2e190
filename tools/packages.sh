# shellcheck shell=bash
# The Debian packages that this project needs, in one place, and how they come onto a machine. Sourced by ./demo, ./test
# and .ci/run.

# To build and to test.
# shellcheck disable=SC2034    # read by those who source this
QEN_BUILD_PACKAGES=(
    cmake g++ libcli11-dev libfmt-dev libgmock-dev libgtest-dev ninja-build nlohmann-json3-dev pkg-config)

# What only the longer gates need: a second compiler, its tools, sanitizers, and the libraries that are measured against.
# shellcheck disable=SC2034
QEN_GATE_PACKAGES=(
    ccache clang clang-format clang-tidy libbenchmark-dev libclang-rt-dev libfparser-dev libmuparser-dev libsbml5-dev
    libudunits2-dev libyaml-cpp-dev shellcheck valgrind)

step()
{
    printf '==> %s\n' "$*"
}

# Installs those of the named packages that are missing. Ends the script, naming them, where that is not possible.
require_packages()
{
    local package
    local missing=()
    for package in "$@"; do
        if [[ "$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null)" != 'install ok installed' ]]; then
            missing+=("$package")
        fi
    done
    if [[ ${#missing[@]} -eq 0 ]]; then
        return 0
    fi

    local as_root=()
    if [[ $EUID -ne 0 ]]; then
        # With a terminal, sudo may ask for a password; without one it must not wait for it.
        if ! command -v sudo >/dev/null || ! { [[ -t 0 ]] || sudo -n true 2>/dev/null; }; then
            printf 'These packages are missing, and installing them needs root or sudo:\n  %s\n' \
                "${missing[*]}" >&2
            exit 2
        fi
        as_root=(sudo)
    fi
    if ! command -v apt-get >/dev/null; then
        printf 'These packages are missing, and there is no apt-get to install them:\n  %s\n' "${missing[*]}" >&2
        exit 2
    fi

    step "Installing ${#missing[@]} missing packages: ${missing[*]}"
    # The update may fail in part, of one source among several; whether the packages are there is for the install to say.
    "${as_root[@]}" apt-get update -qq || true
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"; then
        printf 'These packages could not be installed:\n  %s\n' "${missing[*]}" >&2
        exit 2
    fi
}

# The number of processors to build with.
jobs_count()
{
    nproc 2>/dev/null || echo 2
}
