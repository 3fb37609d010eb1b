#!/bin/sh
# Packs this checkout's last commit twice, in two folders with names of different lengths, without a
# compiler cache, and compares all packages byte by byte. Fails if any two differ.
set -eu
cd "$(dirname "$0")/.."
base=$PWD/build/reproducible
export CCACHE_DISABLE=1

for folder in one another-longer-name; do
  rm -rf "$base/$folder"
  git clone -q . "$base/$folder"
  "$base/$folder/scripts/package.sh"
done
cd "$base"
count=0
for package in one/build/package/*; do
  cmp "$package" "another-longer-name/build/package/${package##*/}"
  count=$((count + 1))
done
[ "$count" -eq 5 ] || { echo "there are $count packages instead of 5"; exit 1; }
sha256sum one/build/package/*
echo "The packages of both builds are the same."
