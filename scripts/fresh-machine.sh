#!/bin/sh
# Runs make targets as the first command in a new Debian 12 system that has only make and git, with
# a fresh clone of this checkout's last commit. Prints one line per target: the result, the time and
# the number of packages it installed. Exits with 1 if a target failed. Run it before a release.
# Usage, as root: [NAME=VALUE] fresh-machine.sh [TARGET...]
#   TARGET       default: all targets that users begin with
#   SECONDS=60   how many seconds `fuzz` runs each fuzz target
#   LIMIT=7200   how many seconds a make target may take
#   KEEP=1       keeps the systems of targets that passed; those of failed targets are always kept
# Everything is in build/fresh/: the new system, the downloaded packages (so the time of a target
# does not always include the download), and for each target its system and TARGET.log.
set -eu
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || { echo "$0: needs root, to make and enter a root file system" >&2; exit 2; }
[ $# -gt 0 ] ||
  set -- play dll mheg demos gallery gallery-check test check fuzz coverage package docs
scripts/install-packages.sh fresh
. scripts/root.sh

fresh=$PWD/build/fresh
job=""

make_base() {
  [ ! -d "$fresh/base" ] || return 0
  echo "Making a bare machine, once: $fresh/base"
  rm -rf "$fresh/base.part"
  make_root bookworm "$fresh/base.part" --include=ca-certificates,make,git \
    --cache-dir="$fresh/packages" >"$fresh/base.log" 2>&1 || {
    echo "debootstrap failed, see $fresh/base.log" >&2
    exit 1
  }
  echo "Dir::Cache::archives \"$fresh/packages\";" >"$fresh/base.part/etc/apt/apt.conf.d/91packages"
  mv "$fresh/base.part" "$fresh/base"
}

make_machine() {
  rm -rf "$1"
  cp -a "$fresh/base" "$1"
  cp -L /etc/resolv.conf /etc/hosts "$1/etc/"
  git clone -q . "$1/srv/korvel"
}

run_target() {
  run_in_root "$1" "$fresh/packages" env SECONDS="${SECONDS:-60}" \
    timeout --kill-after=5 "${LIMIT:-7200}" make -C /srv/korvel "$2"
}

packages_in() { dpkg-query --admindir="$1/var/lib/dpkg" -W | wc -l; }

trap '[ -z "$job" ] || kill "$job"; wait; exit 130' INT TERM
mkdir -p "$fresh/packages"
make_base
echo "The last commit: $(git log -1 --format='%h %s')"
format='%-10s %-8s %8s %10s\n'
printf "$format" target result seconds packages
status=0
for target; do
  machine=$fresh/$target
  make_machine "$machine"
  began=$(date +%s)
  run_target "$machine" "$target" >"$machine.log" 2>&1 &
  job=$!
  if wait "$job"; then result=passed; else result=failed status=1; fi
  job=""
  installed=$(($(packages_in "$machine") - $(packages_in "$fresh/base")))
  printf "$format" "$target" "$result" "$(($(date +%s) - began))" "$installed"
  [ "$result" = failed ] || [ -n "${KEEP-}" ] || rm -rf "$machine"
done
[ "$status" -eq 0 ] || echo "The output of failed targets is in $fresh/TARGET.log."
exit "$status"
