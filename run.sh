#!/usr/bin/env bash
# The project's commands. Each one installs the Debian packages it needs (when missing),
# configures, builds incrementally and runs.
#
#   ./run.sh gallery [--screenshot DIR]   build and start the gallery (PNG per page without a display)
#   ./run.sh test                          build and run the suite, again under ASan+UBSan, then on Qt 6
#   ./run.sh test --quick                  the suite without the sanitizer build
#   ./run.sh bench                         build and run the benchmarks, one table
#   ./run.sh docs                          the API reference of the public headers (Doxygen)
#   ./run.sh fuzz SECONDS                  build and run the libFuzzer targets (clang)
set -euo pipefail
cd "$(dirname "$0")"
root=$(pwd)

base_packages=(cmake ninja-build ccache g++ pkg-config qtbase5-dev qtbase5-dev-tools libqt5svg5-dev
               libqt5x11extras5-dev qt5-image-formats-plugins libfontconfig-dev libxcb1-dev
               xvfb openbox libxcb-xtest0-dev
               fonts-dejavu-core fonts-noto-core fonts-noto-mono fonts-liberation2 fonts-urw-base35)
qt6_packages=(qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-5compat-dev qt6-image-formats-plugins
              libgl-dev)
bench_packages=(libbenchmark-dev libmuparser-dev libkproperty3-dev)
docs_packages=(doxygen perl)
fuzz_packages=(clang)

ensure_packages() {
    local missing=()
    for p in "$@"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "run.sh: installing ${missing[*]}"
        local sudo=""
        [ "$(id -u)" -ne 0 ] && sudo=sudo
        $sudo apt-get update -qq
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
    fi
}

jobs=$(nproc 2>/dev/null || echo 2)
export CCACHE_DIR=${CCACHE_DIR:-$HOME/.cache/ccache}
# Share the cache between clones of the tree (CI builds in a fresh clone).
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=true

# configure DIR [cmake args...]: configures once; later runs only rebuild.
configure() {
    local dir=$1; shift
    if [ ! -f "$dir/build.ninja" ]; then
        cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@" >/dev/null
    else
        cmake "$dir" "$@" >/dev/null
    fi
}

build() {
    local dir=$1; shift
    cmake --build "$dir" -j "$jobs" "$@"
}

run_ctest() {
    local dir=$1
    (cd "$dir" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$jobs" --timeout 600)
}

cmd=${1:-help}
[ $# -gt 0 ] && shift

case "$cmd" in
gallery)
    ensure_packages "${base_packages[@]}"
    configure build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVO_BUILD_TESTS=ON -DTAVO_BUILD_GALLERY=ON
    build build --target gallery
    exec ./build/apps/gallery/gallery "$@"
    ;;
test)
    ensure_packages "${base_packages[@]}"
    quick=0
    [ "${1:-}" = "--quick" ] && quick=1
    configure build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVO_BUILD_TESTS=ON -DTAVO_BUILD_GALLERY=ON
    build build
    run_ctest build
    if [ $quick -eq 0 ]; then
        echo "run.sh: the suite again under AddressSanitizer and UndefinedBehaviorSanitizer"
        configure build-asan -DCMAKE_BUILD_TYPE=Debug -DTAVO_SANITIZE=ON -DTAVO_BUILD_TESTS=ON \
            -DTAVO_BUILD_GALLERY=OFF -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g"
        build build-asan
        export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:halt_on_error=1:detect_odr_violation=0
        export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
        export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
        run_ctest build-asan
        unset ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS
        echo "run.sh: the suite again, built against Qt 6"
        ensure_packages "${qt6_packages[@]}"
        configure build-qt6 -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVO_QT_MAJOR=6 -DTAVO_BUILD_TESTS=ON \
            -DTAVO_BUILD_GALLERY=ON
        build build-qt6
        run_ctest build-qt6
    fi
    ;;
bench)
    ensure_packages "${base_packages[@]}" "${bench_packages[@]}"
    configure build-bench -DCMAKE_BUILD_TYPE=Release -DTAVO_BUILD_TESTS=OFF -DTAVO_BUILD_GALLERY=OFF \
        -DTAVO_BUILD_BENCH=ON
    build build-bench
    export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96
    for b in build-bench/bench/bench_*; do
        [ -f "$b" ] && [ -x "$b" ] || continue
        echo "== $(basename "$b")"
        "$b" --benchmark_counters_tabular=true "$@"
    done
    ;;
docs)
    ensure_packages "${docs_packages[@]}"
    out=$root/build-docs
    mkdir -p "$out"
    rm -f "$out/warnings.txt"
    sed -e "s|@ROOT@|$root|g" -e "s|@OUT@|$out|g" docs/Doxyfile.in > "$out/Doxyfile"
    # The filter names public classes without a description on stderr; Doxygen logs its own
    # warnings to warnings.txt. Either is an error.
    doxygen "$out/Doxyfile" 2> "$out/filter.txt"
    cat "$out/filter.txt" >> "$out/warnings.txt"
    if [ -s "$out/warnings.txt" ]; then
        cat "$out/warnings.txt"
        echo "run.sh: the reference has warnings (above)" >&2
        exit 1
    fi
    echo "run.sh: the reference is in $out/html/index.html"
    ;;
fuzz)
    ensure_packages "${base_packages[@]}" "${fuzz_packages[@]}"
    seconds=${1:-60}
    configure build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
        -DTAVO_BUILD_TESTS=OFF -DTAVO_BUILD_GALLERY=OFF -DTAVO_BUILD_FUZZ=ON
    build build-fuzz
    # Qt's platform plugin keeps its screen objects to the end; they are not ours.
    export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
    export UBSAN_OPTIONS=print_stacktrace=1
    for f in build-fuzz/fuzz/fuzz_*; do
        [ -f "$f" ] && [ -x "$f" ] || continue
        name=$(basename "$f")
        corpus=fuzz/corpus-run/$name
        mkdir -p "$corpus"
        echo "== $name for ${seconds}s"
        "$f" -max_total_time="$seconds" -timeout=10 "$corpus" "fuzz/corpus/${name#fuzz_}"
    done
    ;;
*)
    sed -n '2,10p' "$0" | sed 's/^# \{0,1\}//'
    [ "$cmd" = help ] || exit 2
    ;;
esac
