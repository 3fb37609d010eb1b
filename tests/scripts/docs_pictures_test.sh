#!/bin/sh
# Fails unless the pictures in docs/ are those that docs_pictures.py makes from the stored pictures
# of the scenarios. `make gallery` updates them.
set -eu
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

/usr/bin/python3 -B scripts/docs_pictures.py "$work"
failed=0
for picture in docs/*.png "$work"/*.png; do
  name=$(basename "$picture")
  cmp "docs/$name" "$work/$name" || failed=1
done
exit "$failed"
