#!/usr/bin/env bash
# Installs what is missing, builds StudyDesk, and runs it or its tests.
#   tools/build.sh run              build, then start the program on its bundled content
#   tools/build.sh test             build, then run every test
#   tools/build.sh test --sanitize  the same with AddressSanitizer and UndefinedBehaviorSanitizer
#   tools/build.sh package          build, then make the Debian package and run lintian on it
#   tools/build.sh bench            build, then print the benchmark figures
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$here"

packages=(cmake ninja-build g++ qt6-base-dev qt6-multimedia-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev libqt6sql6-sqlite libgl-dev
          fonts-dejavu-core fonts-liberation poppler-utils unrtf)
# The tests also check the installed tree and the package.
test_packages=(desktop-file-utils appstream man-db file dpkg-dev lintian)

install_missing() {
  local missing=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
  fi
}

build() {
  local dir="$1"; shift
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" > /dev/null
  cmake --build "$dir" -j "$(nproc)"
}

cmd="${1:-run}"
shift || true
if [ "$cmd" = test ] || [ "$cmd" = package ]; then
  install_missing "${packages[@]}" "${test_packages[@]}"
else
  install_missing "${packages[@]}"
fi
case "$cmd" in
  run)
    build build
    exec build/bin/studydesk "$@"
    ;;
  test)
    if [ "${1:-}" = "--sanitize" ]; then
      build build-sanitize -DSTUDYDESK_SANITIZE=ON
      # Qt's own caches live until exit; leak checks would only report them.
      ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
        ctest --test-dir build-sanitize --output-on-failure -j "$(nproc)"
    else
      build build
      ctest --test-dir build --output-on-failure -j "$(nproc)"
    fi
    ;;
  package)
    # The Debian package, its contents, and what lintian says of it (errors fail).
    build build
    (cd build && rm -f studydesk_*.deb && cpack -G DEB > /dev/null)
    dpkg-deb --info build/studydesk_*.deb
    dpkg-deb --contents build/studydesk_*.deb | grep -v '/share/studydesk/data/.'
    lintian --fail-on error --allow-root build/studydesk_*.deb
    ;;
  bench)
    build build
    cmake --build build --target bench
    ;;
  *)
    echo "usage: tools/build.sh run|test [--sanitize]|package|bench" >&2
    exit 2
    ;;
esac
