#!/bin/sh
# Runs make targets as the first command on a bare machine: a Debian 12 that has only make and git,
# with a fresh clone of this checkout's last commit. Prints a line for each target: whether it
# worked, how long it took, and how many packages it installed. Exits with 1 if one failed. Run it
# before a release.
# Usage, as root: [NAME=VALUE] fresh-machine.sh [TARGET...]
#   TARGET       all that users start with, unless named
#   SECONDS=60   how long `fuzz` runs each reader
#   LIMIT=7200   how many seconds a target may take
#   KEEP=1       keeps the machines of targets that worked; one that failed is always kept
# Everything is in build/fresh/: the bare machine, downloaded packages (so the time of a target does
# not always include their download), and for each target TARGET.log and its machine.
set -eu
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || { echo "$0: needs root, to make and enter a root file system" >&2; exit 2; }
[ $# -gt 0 ] || set -- play dll mheg demos gallery test check fuzz
scripts/install-packages.sh fresh

fresh=$PWD/build/fresh
suite=bookworm
job=""

# The sources by which this machine reaches the suite, one a line as in sources.list.
sources() {
  apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Identifier: Packages' |
    grep -E " $suite(-updates|-security)? main\$" ||
    echo "deb http://deb.debian.org/debian $suite main"
}

make_base() {
  [ ! -d "$fresh/base" ] || return 0
  echo "Making a bare machine, once: $fresh/base"
  mirror=$(sources | awk -v suite="$suite" '$3 == suite { print $2; exit }')
  rm -rf "$fresh/base.part"
  unshare --mount debootstrap --variant=minbase --include=ca-certificates,make,git \
    --cache-dir="$fresh/packages" "$suite" "$fresh/base.part" "$mirror" >"$fresh/base.log" 2>&1 || {
    echo "debootstrap failed, see $fresh/base.log" >&2
    exit 1
  }
  mv "$fresh/base.part" "$fresh/base"
}

# Copies the bare machine, gives it this machine's way to the packages, and clones the project.
make_machine() {
  rm -rf "$1"
  cp -a "$fresh/base" "$1"
  cp -L /etc/resolv.conf /etc/hosts "$1/etc/"
  sources >"$1/etc/apt/sources.list"
  apt-config dump | grep '^Acquire::' >"$1/etc/apt/apt.conf.d/00acquire"
  git clone -q . "$1/root/korvel"
}

# Runs a target in a machine. Mounts and processes are in namespaces of their own, so the kernel
# removes them however this ends.
run_target() {
  exec timeout --kill-after=5 "${LIMIT:-7200}" unshare --mount --pid --fork --kill-child sh -euc '
    mount -t proc proc "$1/proc"
    mount --rbind /dev "$1/dev"
    mount -t tmpfs tmpfs "$1/tmp"
    mount --bind "$3" "$1/var/cache/apt/archives"
    exec chroot "$1" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin SECONDS="${SECONDS:-60}" \
      ${http_proxy:+http_proxy="$http_proxy"} make -C /root/korvel "$2"
    ' sh "$1" "$2" "$fresh/packages"
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
[ "$status" -eq 0 ] || echo "Failed targets have their output in $fresh/TARGET.log."
exit "$status"
