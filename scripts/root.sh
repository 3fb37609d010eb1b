# To be sourced: creates and enters Debian systems in folders, for tests on another system than this
# one. The functions need root.

# sources_of SUITE: the package sources of the suite that this machine uses, one a line as in
# sources.list.
sources_of() {
  format='deb $(REPO_URI) $(RELEASE) $(COMPONENT)'
  apt-get indextargets --format "$format" 'Identifier: Packages' |
    grep -E " $1(-updates|-security)? main\$" && return
  mirror=$(apt-get indextargets --format '$(REPO_URI)' | grep '/debian/$' | head -n 1)
  echo "deb ${mirror:-http://deb.debian.org/debian} $1 main"
}

# make_root SUITE ROOT [OPTION...]: installs a minimal Debian in the folder ROOT, which must not
# exist yet, from the mirror and through the proxy that this machine uses. Options are
# debootstrap's.
make_root() {
  suite=$1 root=$2
  shift 2
  mirror=$(sources_of "$suite" | awk -v suite="$suite" '$3 == suite { print $2; exit }')
  mkdir -p "$(dirname "$root")"
  proxy=$(apt-config dump --format '%v%n' Acquire::http::Proxy)
  http_proxy=$proxy unshare --mount debootstrap --variant=minbase "$@" "$suite" "$root" "$mirror" ||
    return 1
  sources_of "$suite" >"$root/etc/apt/sources.list"
  apt-config dump | grep '^Acquire::' >"$root/etc/apt/apt.conf.d/90machine"
}

# run_in_root ROOT FOLDER COMMAND...: runs the command in that system, in FOLDER, which the system
# shares with this machine under the same absolute name. The mounts and all processes are in
# namespaces of their own, so they disappear when the command ends or is interrupted.
run_in_root() {
  unshare --mount --pid --fork --kill-child sh -ec '
    root=$1 folder=$2
    shift 2
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    mount -t tmpfs tmpfs "$root/tmp"
    mkdir -p "$root$folder"
    mount --bind "$folder" "$root$folder"
    exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 \
      chroot "$root" sh -c '\''cd "$0" && "$@"'\'' "$folder" "$@"
  ' sh "$@" &
  inside=$!
  trap 'kill -KILL "$inside"; exit 130' INT TERM  # unshare ignores all other signals
  wait "$inside"
  set -- $?
  trap - INT TERM
  return "$1"
}

# install_system SUITE ROOT PACKAGE ...: installs in the folder ROOT a Debian that can run the
# Windows tests. The packages are those of Wine. Does nothing if ROOT already has the same packages.
install_system() {
  suite=$1
  root=$2
  shift 2
  set -- "$@" cmake ffmpeg fonts-liberation libasan8 libubsan1 python3-numpy python3-pil \
    tesseract-ocr
  [ "$(cat "$root/installed" 2>/dev/null)" = "$*" ] && return
  rm -rf "$root"
  make_root "$suite" "$root" &&
    run_in_root "$root" "$PWD" sh -ec '
      case "$*" in *:i386*) dpkg --add-architecture i386 ;; esac
      apt-get update || echo "apt-get update failed for a source; the packages may still be found"
      DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"' sh "$@" &&
    echo "$*" >"$root/installed"
}
