#!/bin/sh
# Plays a demo of examples/ by its test.script. Fails if an expectation of the script is not met, or
# if the trace differs from tests/golden/run/DEMO.trace. Run in the project's folder.
# Usage: check_demo.sh DEMO [WINE] MHEG
set -eu
demo=$1
shift
trace=$(mktemp)
trap 'rm -f "$trace"' EXIT
"$@" run "examples/$demo" --script "examples/$demo/test.script" --trace >"$trace" || {
  echo "mheg run: status $?; the end of the trace:"
  tail "$trace"
  exit 1
}
diff "tests/golden/run/$demo.trace" "$trace" || {
  echo "The trace has changed. If that is intended, store the new one:"
  echo "mheg run examples/$demo --script examples/$demo/test.script --trace" \
    ">tests/golden/run/$demo.trace"
  exit 1
}
