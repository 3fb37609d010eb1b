#!/bin/sh
# The pictures in docs/ show the current demos: each is the same file as a stored picture of a
# scenario. A picture in docs/ without a line in this table fails.
set -eu
cd "$(dirname "$0")/../.."

failed=0
named=""
while read -r picture scenario stored; do
  named="$named docs/$picture"
  cmp "docs/$picture" "tests/scenarios/$scenario/expected/$stored" || failed=1
done <<'END'
clock.png demo_clock start.png
quiz.png demo_quiz question.png
welcome.png demo_welcome menu.png
END
for picture in docs/*.png; do
  case "$named " in
  *" $picture "*) ;;
  *) echo "$picture is no picture of a scenario"; failed=1 ;;
  esac
done
exit "$failed"
