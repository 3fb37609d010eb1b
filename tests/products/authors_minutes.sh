#!/bin/sh
# Does what an author does in the first ten minutes, and compares the transcript with the one in
# docs/authoring.md. ACCEPT=1 stores it instead.
# Usage: authors_minutes.sh WINE korvel-player.exe mheg SOURCE_FOLDER
set -eu
wine=$1
player=$2
mheg=$3
[ -x "$mheg" ] || { echo "$mheg is not built"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/programs" "$work/author"
ln -s "$(readlink -f "$mheg")" "$work/programs/mheg"
printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$wine" "$player" >"$work/programs/korvel-player"
chmod +x "$work/programs/korvel-player"
PATH=$work/programs:$PATH
export PATH
cd "$work/author"

say() { printf '# %s\n' "$1"; }
run() {
  printf '$ %s\n' "$1"
  sh -c "$1" 2>&1 || [ $? -eq 1 ]
}
{
  say "A small application to begin with, and the script that tests it."
  run "mheg new shop"
  run "mheg run shop --script shop/test.script && echo passed"
  say "What does the OK key do in the scene that the green key opens?"
  run "mheg run shop --keys 'green ok' --trace | grep -A 8 'key OK'"
  say "A mistake: the check finds it, and the test fails."
  run "sed -i 's/:Run(4)/:Run(44)/' shop/lamp.mheg"
  run "mheg check shop"
  run "mheg run shop --script shop/test.script"
  say "Fix it, build the carousel that is broadcast, and take a picture of it."
  run "sed -i 's/:Run(44)/:Run(4)/' shop/lamp.mheg"
  run "mheg build shop -o carousel"
  run "korvel-player carousel --screenshot menu.png"
  run "ls"
} >"$work/transcript"
"$4/tests/products/transcript.sh" "$4/docs/authoring.md" "$work/transcript"
