#!/bin/sh
# Writes the reference of include/korvel.h to build/docs/html. Fails if Doxygen warns, for example
# about a name without a description.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build/docs
version=$(sed -n 's/^#define KORVEL_VERSION "\(.*\)"/\1/p' include/korvel.h)
KORVEL_VERSION=$version doxygen docs/Doxyfile
echo "$PWD/build/docs/html/index.html"
