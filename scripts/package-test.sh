#!/bin/sh
# Uses the packages in build/package as their users do, with nothing else of this project:
# compares the list of their files with tests/packages/*.list, runs mheg from the Debian package,
# and builds the smallest host with MinGW by hand, with MinGW by CMake, and with clang and lld-link
# as MSVC does. All hosts run under Wine, the 32-bit ones in a system of their own
# (build/elsewhere). Last, compares the transcript in docs/embedding.md with a new one. Ends at the
# first failure. Needs root. ACCEPT=1 stores the lists and the transcript.
set -eu
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || { echo "$0: needs root, to run 32-bit programs" >&2; exit 2; }
. scripts/root.sh
unset MAKEFLAGS MAKELEVEL  # otherwise a make called here prints the folders that it enters
version=$(sed -n 's/^#define KORVEL_VERSION "\(.*\)"/\1/p' include/korvel.h)
packages=$PWD/build/package
work=$PWD/build/package-test
expected=$PWD/tests/scenarios/colour_of_a_boolean/output

# same STORED NEW: compares the files, or stores the new one.
same() {
  if [ -n "${ACCEPT-}" ]; then cp "$2" "$1"; else diff "$1" "$2"; fi
}

# check_list LIST ROOT: compares the names of a package's files, on standard input, with the stored
# list. All of them must be in the folder ROOT.
check_list() {
  grep -v '/$' | LC_ALL=C sort >"$work/names"
  if grep -v "^$2/" "$work/names"; then return 1; fi
  sed "s|^$2/||" "$work/names" >"$work/list"
  same "tests/packages/$1.list" "$work/list"
}

# check_links FOLDER: fails unless the relative links of the pages in it lead to files.
check_links() {
  find "$1" -name '*.md' | while read -r page; do
    grep -o '](\([^):#]*\))' "$page" | while read -r link; do
      link=$(expr "$link" : '](\(.*\))')
      [ -e "${page%/*}/$link" ] || { echo "$page: dead link: $link"; exit 1; }
    done
  done
}

# build_hosts TRIPLE: builds bin/by-*.exe in $package.
build_hosts() {
  source=$package/share/korvel/examples/host
  "$1-gcc-posix" "$source/host.c" -o "$package/bin/by-hand.exe" \
    -I "$package/include" -L "$package/lib" -lkorvel -luser32

  cmake -S "$source" -B "$package/build" -D CMAKE_PREFIX_PATH="$package" \
    -D CMAKE_SYSTEM_NAME=Windows -D CMAKE_C_COMPILER="$1-gcc-posix" >"$package/cmake.log"
  cmake --build "$package/build" >>"$package/cmake.log"
  cmp "$package/build/korvel.dll" "$package/bin/korvel.dll"
  cp "$package/build/host.exe" "$package/bin/by-cmake.exe"

  # The C library and the Windows headers are MinGW's, because Microsoft's are not free; they need a
  # compiler that claims to be GCC. The entry point is main, because msvcrt.dll needs no start-up
  # code.
  processor_macro=
  [ "$1" != i686-w64-mingw32 ] || processor_macro=-D_X86_
  clang --target="${1%%-*}-pc-windows-msvc" -fgnuc-version=4.2.1 -fms-compatibility-version=0 \
    $processor_macro -isystem "/usr/$1/include" -I "$package/include" \
    -c "$source/host.c" -o "$package/host.obj"
  for library in msvcrt kernel32 user32; do
    set -- "$@" "/usr/$1/lib/lib$library.a"
  done
  shift
  lld-link -nologo -subsystem:console -entry:main -safeseh:no -nodefaultlib \
    -out:"$package/bin/by-lld-link.exe" "$package/host.obj" "$package/lib/korvel.lib" "$@"
}

# check_symbols TRIPLE: fails unless each product in $package is stripped and refers to the file of
# its symbols.
check_symbols() {
  for symbols in "$package"/bin/*.debug; do
    product=${symbols%.debug}
    "$1-objcopy" --dump-section .gnu_debuglink="$work/link" "$product" "$work/copy"
    grep -q -a "^$(basename "$symbols")" "$work/link"
    "$1-objdump" --syms "$symbols" | grep -q korvel
    "$1-objdump" --syms "$product" | grep -q 'no symbols'
  done
}

rm -rf "$work"
mkdir -p "$work"
[ "$(grep -m 1 '^## ' CHANGELOG.md)" = "## $version" ] || {
  echo "CHANGELOG.md does not begin with version $version"
  exit 1
}
grep -q "\"version\": \"$version\"" editors/package.json || {
  echo "editors/package.json does not have version $version"
  exit 1
}
dpkg-deb --fsys-tarfile "$packages"/mheg_*.deb | tar -t | check_list mheg .
dpkg-deb -x "$packages"/mheg_*.deb "$work/mheg"
dpkg-deb -f "$packages"/mheg_*.deb Depends | grep -q libc6
[ "$("$work/mheg/usr/bin/mheg" --version)" = "mheg $version" ]
"$work/mheg/usr/bin/mheg" build "${expected%/*}/carousel" -o "$work/carousel"
check_links "$work/mheg"
echo "mheg: passed"

for processor in x64 x86; do
  name=korvel-$version-windows-$processor
  package=$work/$processor/$name
  triple=x86_64-w64-mingw32
  [ $processor = x64 ] || triple=i686-w64-mingw32
  unzip -Z1 "$packages/$name.zip" | check_list windows "$name"
  unzip -Z1 "$packages/$name-symbols.zip" | check_list symbols "$name"
  unzip -q "$packages/$name.zip" -d "$work/$processor"
  unzip -q "$packages/$name-symbols.zip" -d "$work/$processor"
  check_links "$package"
  check_symbols $triple
  build_hosts $triple
  if [ $processor = x64 ]; then
    tests/packages/run_hosts.sh "$package" "$work/carousel" "$expected"
  else
    system=build/elsewhere/bookworm-i386
    install_system bookworm $system wine wine64 wine32:i386 >"$work/system.log"
    run_in_root $system "$PWD" env ROOT_WINEPREFIX=/wine \
      tests/packages/run_hosts.sh "$package" "$work/carousel" "$expected"
  fi
  echo "$processor: passed"
done

mkdir "$work/programs" "$work/minutes"
# wine-run.sh must not find this `wine` itself.
printf '#!/bin/sh\nPATH=${PATH#*:} exec "%s" "$@"\n' "$PWD/cmake/wine-run.sh" >"$work/programs/wine"
chmod +x "$work/programs/wine"
cp "$packages/korvel-$version-windows-x64.zip" "$work/minutes"
test=$PWD/tests/packages/hosts_minutes.sh
(cd "$work/minutes" && PATH="$work/programs:$PATH" "$test" "$version" >"$work/transcript")
tests/products/transcript.sh docs/embedding.md "$work/transcript"
echo "transcript: passed"
