#!/bin/sh
# Builds the carousel of an invented demo by the rules of examples/, with a compiler that only
# copies.
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
[ "$1 $3" = "compile -o" ] && ! grep -q wrong "$2" && sed 's/text/group/' "$2" >"$4"
END
chmod +x mheg
ln -s "$project/scripts" scripts
mkdir -p examples/demo/more/pictures examples/host
cp "$project/examples/CMakeLists.txt" examples
echo program >examples/host/host.c
echo "text of a" >examples/demo/a.mheg
echo "text of b" >examples/demo/more/b.mheg
for file in question.txt picture.png "more/pictures/with a space.jpg" more/no_extension \
  play.script test.script README.md; do
  echo "content of $file" >"examples/demo/$file"
done

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
edit() { echo "$1" >"$2" && touch -r "$carousel/a" -d "+1 second" "$2"; }
says() { [ "$(cat "$carousel/$1" 2>/dev/null)" = "$2" ] || fail "$1 is not there, or is another"; }

test=everything_that_is_broadcast_reaches_the_carousel
build || fail "the build failed"
says a "group of a"
says more/b "group of b"
for file in question.txt picture.png "more/pictures/with a space.jpg" more/no_extension; do
  says "$file" "content of $file"
done

test=texts_and_what_is_for_players_and_readers_stay_out
[ "$(find "$carousel" -type f | wc -l)" -eq 6 ] || fail "$(find "$carousel" -type f)"

test=folders_without_texts_are_no_demos
[ ! -e build/examples/host ] || fail "host has a carousel"

test=files_that_come_and_go_later_are_noticed
echo "content of late.png" >examples/demo/late.png
touch -d 2001-01-01 examples/demo/late.png
rm examples/demo/question.txt
build || fail "the build failed"
says late.png "content of late.png"
[ ! -e "$carousel/question.txt" ] || fail "question.txt is still there"

test=an_edited_text_is_compiled_again
edit "text of c" examples/demo/more/b.mheg
build || fail "the build failed"
says more/b "group of c"

test=wrong_text_fails_the_build_until_it_is_right
edit wrong examples/demo/more/b.mheg
! build || fail "the build succeeded"
! build || fail "the build succeeded the second time"
echo "text of d" >examples/demo/more/b.mheg
build || fail "the build failed"
says more/b "group of d"

exit "$failed"
