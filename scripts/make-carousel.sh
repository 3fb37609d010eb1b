#!/bin/sh
# Builds a carousel, the folder that is broadcast, from an author's folder: each text NAME.mheg is
# compiled to NAME, and all other files are copied, including subfolders. Three files of the folder
# itself are not broadcast: play.script, the keys that the player presses, test.script, the keys and
# expectations of its test, and README.md. If a text has an error, the script fails and leaves no
# carousel.
# Usage: make-carousel.sh SOURCE TARGET MHEG, where MHEG is the compiler. TARGET is replaced.
set -eu
export source="${1%/}" target="${2%/}" mheg="$3"

rm -rf "$target"
mkdir -p "$(dirname "$target")"
cp -RL "$source" "$target"
rm -f "$target/play.script" "$target/test.script" "$target/README.md"
find "$target" -name '*.mheg' -delete
find -L "$source" -name '*.mheg' -exec sh -c '
  status=0
  for text; do
    group=$target${text#"$source"}
    "$mheg" compile "$text" -o "${group%.mheg}" || status=1
  done
  exit $status' sh {} + || {
  rm -rf "$target"
  exit 1
}
