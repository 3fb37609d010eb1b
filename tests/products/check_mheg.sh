#!/bin/sh
# Fails unless the Windows tool writes the same bytes, prints the same output and returns the same
# status as the native one. Covers compiled and decompiled groups, dumps, reports, and messages
# about faulty files.
# Usage: check_mheg.sh WINE mheg.exe mheg SOURCE_FOLDER
set -eu
wine=$1
windows=$2
native=$3
source=$4
[ -x "$native" ] || { echo "$native is not built"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$source"/examples/welcome "$work/texts"
cp "$source"/tests/golden/dump/*.mheg "$work/texts"
cp -r "$source"/tests/unit/mheg/faulty "$source"/tests/unit/mheg/mistakes "$work"
# These omit required attributes.
rm "$work/texts/programs_variables.mheg" "$work/texts/links.mheg" "$work/texts/token_groups.mheg"

# both STATUS ARGUMENT ...: runs both tools with these arguments, each in its own folder, and
# compares all their output. The line endings and path separators on standard error are those of the
# system, so they are converted first.
both() {
  status=$1
  shift
  for side in windows native; do
    mkdir -p "$work/$side"
    cp -r "$work/texts" "$work/faulty" "$work/mistakes" "$work/$side"
  done
  (cd "$work/native" && "$native" "$@" >out 2>err) && of_native=0 || of_native=$?
  (cd "$work/windows" && "$wine" "$windows" "$@" >out 2>raw) && of_windows=0 || of_windows=$?
  tr -d '\r' <"$work/windows/raw" | tr '\\' / >"$work/windows/err"
  rm "$work/windows/raw"
  [ "$of_native" -eq "$status" ] && [ "$of_windows" -eq "$status" ] ||
    { echo "status $of_windows (Windows), $of_native (native), $status expected: $*"
      cat "$work/windows/out" "$work/windows/err" "$work/native/err"; exit 1; }
  diff -r "$work/windows" "$work/native" || { echo "differs: $*"; exit 1; }
}

cd "$work/texts"
texts=$(for text in *.mheg; do printf ' texts/%s' "$text"; done)
groups=$(for text in *.mheg; do printf ' groups/%s' "${text%.mheg}"; done)
count=$(ls *.mheg | wc -l)

both 0 compile $texts -o groups/
[ "$(ls "$work/windows/groups" | wc -l)" -eq "$count" ] || { echo "not all are compiled"; exit 1; }
both 0 decompile $groups -o back/ --jobs 2
both 0 dump $texts
both 0 dump $groups
[ "$(grep -c '^|---\(SCene\|Application\):' "$work/windows/out")" -eq "$count" ] ||
  { echo "not all are printed"; exit 1; }
both 1 check faulty
[ "$(grep -c '^faulty/' "$work/windows/out")" -eq \
  "$(wc -l <"$source/tests/unit/mheg/faulty.expected")" ] ||
  { echo "not all faults are reported"; exit 1; }
both 1 check mistakes
both 1 check faulty --format=sarif
both 1 check faulty --format=json
both 1 compile faulty/broken.mheg faulty/missing.mheg texts/menu.mheg -o mixed/
both 1 decompile faulty/cut -o cut.mheg
both 1 dump faulty/cut faulty/broken.mheg
both 0 format texts
# A damaged list of an earlier build is ignored.
mkdir -p "$work/windows" "$work/native"
printf '\377\n' | tee "$work/windows/.carousel.mheg-build" >"$work/native/.carousel.mheg-build"
both 0 build texts -o carousel --jobs 2
[ "$(ls "$work/windows/carousel" | wc -l)" -eq "$count" ] || { echo "not all are built"; exit 1; }
both 2 build texts -o texts/carousel
both 0 new made
both 1 new texts
both 0 graph texts

# Names that the ANSI code page of Windows does not have. Wine takes the encoding of files from the
# locale.
LC_ALL=C.UTF-8
export LC_ALL
mkdir "$work/größe日"
cat >"$work/größe日/a.mheg" <<'END'
{:Application ("~/a" 0) :OnStartUp (:TransitionTo(("~/menü€" 0)))}
END
cat >"$work/größe日/menü€.mheg" <<'END'
{:Scene ("~/menü€" 0) :OnStartUp (:Run(5)) :SceneCS 720 576}
END
cp -r "$work/größe日" "$work/windows"
cp -r "$work/größe日" "$work/native"
both 0 build größe日 -o ziel日
both 1 check größe日
both 1 check größe日 --format=sarif
both 0 format größe日
both 0 run größe日 --trace
both 2 run größe日 --missing menü
both 0 graph größe日 -o bild日.dot
both 0 decompile ziel日/menü€ -o zurück.mheg
both 2 dump größe日/nicht日
both 2 compile
both 2 dump nowhere.mheg
both 2 dump /nowhere.mheg
both 0 decompile --help

# `mheg build --watch` notices changes under Windows, too.
cd "$work/windows"
rm -rf carousel
"$wine" "$windows" build texts -o carousel --watch >log 2>&1 &
watch=$!
await() {
  for attempt in $(seq 300); do
    ! "$@" || return 0
    sleep 0.1
  done
  echo "the watching build did not notice: $*"
  cat log
  kill "$watch"
  exit 1
}
await test -e carousel/menu
mkdir texts/later
echo late >texts/later/late.txt
await test -e carousel/later/late.txt
rm texts/menu.mheg
await test ! -e carousel/menu
kill "$watch"
