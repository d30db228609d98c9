#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Sets up, builds and runs Nubo, or builds it under the sanitizers and runs its tests.
#   ./nubo.sh run    install what is missing, build a release, start the program
#   ./nubo.sh test   install what is missing, check format, build with ASan/UBSan and a release
#                    with warnings as errors, run ctest
#   ./nubo.sh package  build a release and the Debian package build/package/nubo_*.deb
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

BUILD_PACKAGES=(build-essential cmake ninja-build pkg-config qt6-base-dev libqt6opengl6-dev
    libgl-dev qt6-translations-l10n libgsf-1-dev libglib2.0-dev libtag1-dev libqt6sql6-sqlite)
TEST_PACKAGES=(clang-format mdbtools poppler-utils python3 python3-xlrd gnumeric xvfb xauth clang
    libclang-rt-14-dev desktop-file-utils appstream plocate)
PACKAGE_PACKAGES=(dpkg-dev file)

install_missing() {
    local missing=()
    for pkg in "$@"; do
        dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" ||
            missing+=("$pkg")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "nubo.sh: instalando ${missing[*]}"
    local sudo=()
    [ "$(id -u)" -ne 0 ] && sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq "${missing[@]}"
}

check_format() {
    local files
    files=$(git ls-files -- '*.cpp' '*.h' 2>/dev/null || find src tests bench tools -name '*.cpp' -o -name '*.h')
    # shellcheck disable=SC2086
    clang-format --dry-run --Werror $files
    echo "nubo.sh: formato correcto"
}

# A compiler cache, when one is installed, makes rebuilds of other checkouts cheap.
cache_launcher() {
    command -v ccache >/dev/null && echo "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache" || true
}

# The release build; "test" builds it with warnings as errors too, since GCC's optimiser finds
# at -O2 what the Debug build does not.
build_release() {
    local werror=${1:-OFF}
    cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DNUBO_WERROR="$werror" \
        -DNUBO_BUILD_TESTS=OFF -DNUBO_BUILD_BENCH=OFF $(cache_launcher)
    cmake --build build/release
}

case "${1:-}" in
run)
    shift
    install_missing "${BUILD_PACKAGES[@]}"
    build_release
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
        echo "nubo.sh: no hay pantalla gráfica (DISPLAY y WAYLAND_DISPLAY están vacías)." >&2
        echo "nubo.sh: inicie Nubo desde el escritorio, o con: xvfb-run build/release/app/nubo" >&2
        exit 1
    fi
    exec build/release/app/nubo "$@"
    ;;
test)
    install_missing "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    check_format
    cmake -S . -B build/asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DNUBO_SANITIZE=ON -DNUBO_WERROR=ON \
        $(cache_launcher)
    cmake --build build/asan
    build_release ON
    export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
    export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
    export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
    ctest --test-dir build/asan --output-on-failure -j2
    ;;
package)
    install_missing "${BUILD_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}"
    build_release
    cpack -G DEB --config build/release/CPackConfig.cmake -B build/package
    ls -l build/package/nubo_*.deb
    ;;
*)
    echo "uso: ./nubo.sh run | ./nubo.sh test | ./nubo.sh package" >&2
    exit 1
    ;;
esac
