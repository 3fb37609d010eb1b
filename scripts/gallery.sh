#!/bin/sh
# Plays all demos and picture tests and collects the pictures in one page. Fails if one of them
# fails. Makes the pictures of docs/ from the stored ones.
set -eu
cd "$(dirname "$0")/.."
. scripts/wine-server.sh

/usr/bin/python3 -B scripts/docs_pictures.py docs
trap stop_wine EXIT
start_wine || { echo "Wine does not start" >&2; exit 1; }
/usr/bin/python3 -B tests/scenarios/gallery.py build/gallery/index.html --work build/gallery-work \
  --wine "$PWD/cmake/wine-run.sh" --player "$PWD/build/win64/bin/korvel-player.exe" \
  --mheg build/native/bin/mheg
