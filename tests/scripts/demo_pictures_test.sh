#!/bin/sh
# Fails unless the pictures of the demos are those that demo_pictures.py draws.
set -eu
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

/usr/bin/python3 -B scripts/demo_pictures.py "$work"
failed=0
for picture in examples/*/*.png examples/*/*.m2v "$work"/*/*; do
  name=$(basename "$(dirname "$picture")")/$(basename "$picture")
  cmp "examples/$name" "$work/$name" || failed=1
done
exit "$failed"
