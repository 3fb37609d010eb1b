#!/bin/sh
# Builds and packs the products: for Windows on x64 and x86, and the Debian package of mheg. The
# packages are in build/package. Files in them have the date of the last commit.
set -eu
cd "$(dirname "$0")/.."
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC

cmake --preset native >/dev/null
cmake --build --preset native --target mheg mheg_manual examples
for preset in win64 win32; do
  cmake --preset $preset >/dev/null
  cmake --build --preset $preset --target products
done

rm -rf build/package
for preset in native win64 win32; do
  cpack --config build/$preset/CPackConfig.cmake -B "$PWD/build/package"
done
rm -rf build/package/_CPack_Packages
ls -l build/package
