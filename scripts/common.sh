# What the scripts share: strict mode, the root of the repository, and the packages they need.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

missing_packages=()

# need_program PROGRAM PACKAGE
need_program() {
    command -v "$1" >/dev/null || missing_packages+=("$2")
}

# need_header HEADER PACKAGE
need_header() {
    compgen -G "/usr/include/$1" >/dev/null || compgen -G "/usr/include/*/$1" >/dev/null ||
        compgen -G "/usr/local/include/$1" >/dev/null || missing_packages+=("$2")
}

# need_file FILE PACKAGE
need_file() {
    [ -e "$1" ] || missing_packages+=("$2")
}

# PCRE, or its successor on systems that have no PCRE any more: which of them is seen when it is installed.
need_pattern_library() {
    if ! compgen -G "/usr/include/pcre.h" >/dev/null && ! compgen -G "/usr/include/pcre2.h" >/dev/null; then
        missing_packages+=("$pattern_library")
    fi
}
pattern_library=libpcre3-dev

need_build_packages() {
    need_program g++ g++
    need_program cmake cmake
    need_program ninja ninja-build
    need_program pkg-config pkg-config
    need_header expat.h libexpat1-dev
    need_header zlib.h zlib1g-dev
    need_header xercesc/util/XercesVersion.hpp libxerces-c-dev
    need_pattern_library
}

# clang with the run-time libraries of its sanitizers and fuzzers, which clang only recommends.
need_clang() {
    need_program clang++ clang
    compgen -G "/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a" >/dev/null ||
        missing_packages+=(libclang-rt-dev)
}

need_test_packages() {
    need_program python3 python3
    need_program nm binutils
    need_program gdb gdb
    need_program localedef libc-bin
    need_file /usr/share/i18n/charmaps/UTF-8.gz locales # from which the tests make their locales
    need_header gtest/gtest.h libgtest-dev
    need_header gmock/gmock.h libgmock-dev
    need_header nlohmann/json.hpp nlohmann-json3-dev
    need_header pcre2.h libpcre2-dev # the tests of patterns run with both libraries
    need_header pcre.h "$pattern_library"
}

install_missing_packages() {
    if [ ${#missing_packages[@]} -eq 0 ]; then
        return 0
    fi
    echo "Installing: ${missing_packages[*]}"
    if ! command -v apt-get >/dev/null; then
        echo "This system has no apt-get: please install what these packages hold by other means." >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "You are not root, and there is no sudo. Please have these packages installed:" >&2
            echo "    ${missing_packages[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
    if ! apt-cache show "$pattern_library" >/dev/null 2>&1; then
        missing_packages=("${missing_packages[@]/$pattern_library/libpcre2-dev}")
    fi
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
        "${missing_packages[@]}"
}

# configure PRESET [OPTION ...]: with ccache where it is installed.
configure() {
    local preset=$1
    shift
    local launcher=
    if command -v ccache >/dev/null; then
        launcher=ccache
    fi
    cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" "$@"
}
