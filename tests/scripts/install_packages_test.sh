#!/bin/sh
# Runs install-packages.sh with stand-ins for Debian's programs: no package is installed, and each
# test sets the exit statuses of `apt-get update` and `apt-get install`.
set -eu
install=$(dirname "$(readlink -f "$0")")/../../scripts/install-packages.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

program() { cat >"$1" && chmod +x "$1"; }
program dpkg-query <<'END'
#!/bin/sh
exit 1
END
program id <<'END'
#!/bin/sh
echo 0
END
program apt-get <<'END'
#!/bin/sh
echo "$*" >>calls
case $1 in update) exit "$UPDATE" ;; *) exit "$INSTALL" ;; esac
END

failed=0
fail() {
  echo "$test: $1"
  cat out err calls
  failed=1
}

# Usage: install_with STATUS_OF_UPDATE STATUS_OF_INSTALL; leaves status, out, err and calls.
install_with() {
  rm -f calls
  status=0
  PATH="$work:$PATH" UPDATE=$1 INSTALL=$2 "$install" format >out 2>err || status=$?
}

test=installs_what_is_missing
install_with 0 0
[ "$status" -eq 0 ] || fail "the status is $status"
grep -q '^install .* clang-format' calls || fail "nothing is installed"
[ ! -s err ] || fail "standard error is not empty"

test=continues_when_a_package_source_cannot_be_read
install_with 100 0
[ "$status" -eq 0 ] || fail "the status is $status"
grep -q '^install .* clang-format' calls || fail "nothing is installed"
[ "$(wc -l <err)" -eq 1 ] && grep -q 'apt-get update' err || fail "there is no message of one line"

test=fails_when_a_package_cannot_be_installed
install_with 100 100
[ "$status" -ne 0 ] || fail "the status is 0"

exit "$failed"
