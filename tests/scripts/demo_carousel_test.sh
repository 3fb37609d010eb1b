#!/bin/sh
# Builds the carousel of an invented demo by the rules of examples/, with a stand-in for the tool
# that only copies files.
set -eu
project=$(readlink -f "$(dirname "$0")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

cat >CMakeLists.txt <<END
cmake_minimum_required(VERSION 3.24)
project(demos NONE)
add_executable(mheg IMPORTED)
set_target_properties(mheg PROPERTIES IMPORTED_LOCATION $work/mheg)
add_subdirectory(examples)
END
cat >mheg <<'END'
#!/bin/sh
[ "$1 $3" = "build -o" ] && ! grep -rq wrong "$2" && rm -rf "$4" && cp -r "$2" "$4"
END
chmod +x mheg
mkdir -p examples/demo/more examples/host
cp "$project/examples/CMakeLists.txt" examples
echo program >examples/host/host.c
echo "text of a" >examples/demo/a.mheg
echo "text of b" >examples/demo/more/b.mheg
echo "content of question.txt" >examples/demo/question.txt

failed=0
fail() {
  echo "$test: $1; the last build:"
  cat log
  failed=1
}
build() { cmake -G Ninja -S . -B build && cmake --build build --target examples; } >log 2>&1
carousel=build/examples/demo
# Ninja rebuilds for a file that is newer than the last build. The file system's clock may tick only
# every ten milliseconds, which is longer than a build takes here, so the time is set.
edit() { echo "$1" >"$2" && touch -r build/examples/CMakeFiles/demo.stamp -d "+1 second" "$2"; }
expect_content() {
  [ "$(cat "$carousel/$1" 2>/dev/null)" = "$2" ] || fail "$1 is missing or different"
}

test=every_folder_with_an_application_is_built
build || fail "the build failed"
expect_content more/b.mheg "text of b"
[ ! -e build/examples/host ] || fail "host has a carousel"

test=added_and_removed_files_are_noticed
echo "content of late.png" >examples/demo/late.png
touch -d 2001-01-01 examples/demo/late.png
rm examples/demo/question.txt
build || fail "the build failed"
expect_content late.png "content of late.png"
[ ! -e "$carousel/question.txt" ] || fail "question.txt is still there"

test=an_edited_source_file_is_compiled_again
edit "text of c" examples/demo/more/b.mheg
build || fail "the build failed"
expect_content more/b.mheg "text of c"

test=a_source_error_fails_the_build_until_it_is_fixed
edit wrong examples/demo/more/b.mheg
! build || fail "the build succeeded"
! build || fail "the build succeeded the second time"
echo "text of d" >examples/demo/more/b.mheg
build || fail "the build failed"
expect_content more/b.mheg "text of d"

exit "$failed"
