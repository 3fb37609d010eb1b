#!/bin/sh
# Lists and installs the Debian packages that the given tasks need and that are missing. Quick if
# nothing is missing.
# Usage: install-packages.sh TASK ..., with the tasks below.
set -eu

packages=""
for task; do
  case $task in
    native) packages="$packages g++ cmake ninja-build libcli11-dev" ;;
    windows) packages="$packages g++-mingw-w64-x86-64-posix cmake ninja-build libcli11-dev" ;;
    run) packages="$packages wine wine64 fonts-liberation" ;;
    display) packages="$packages xvfb xauth" ;;
    gallery) packages="$packages python3 python3-pil python3-numpy python3-jinja2" ;;
    browser) packages="$packages chromium chromium-driver python3-selenium python3-pil" ;;
    test)
      packages="$packages g++-mingw-w64-i686-posix libgtest-dev googletest openssl ffmpeg"
      packages="$packages graphviz mandoc python3 python3-jsonschema tesseract-ocr"
      ;;
    bench)
      packages="$packages libbenchmark-dev liblua5.4-dev libtasn1-6-dev python3-matplotlib valgrind"
      ;;
    fuzz) packages="$packages clang libclang-rt-dev cmake ninja-build" ;;
    coverage) packages="$packages clang libclang-rt-dev llvm libgtest-dev openssl python3" ;;
    mutants) packages="$packages libgtest-dev openssl python3" ;;
    grammar)
      # A package nodejs that is not Debian's may include npm and conflict with Debian's npm.
      command -v npm >/dev/null || packages="$packages nodejs npm"
      ;;
    format) packages="$packages clang-format" ;;
    tidy) packages="$packages clang-tidy" ;;
    package)
      packages="$packages g++-mingw-w64-i686-posix llvm dpkg-dev file zip unzip git"
      ;;
    package-test) packages="$packages clang lld python3" ;;
    docs) packages="$packages doxygen" ;;
    fresh) packages="$packages debootstrap git" ;;
    *) echo "$0: no such task: $task" >&2; exit 2 ;;
  esac
done

missing=""
for package in $(printf '%s\n' $packages | sort -u); do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || status=absent
  [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "Installing packages:$missing"
$as_root apt-get update -q ||
  echo "$0: apt-get update failed for a source; the packages may still be found" >&2
$as_root env DEBIAN_FRONTEND=noninteractive \
  apt-get install -q -y --no-install-recommends $missing
