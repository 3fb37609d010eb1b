#!/bin/sh
# Prints a table of the last fuzzing: the executions of each target, the edges of its code that were
# reached, and the findings, which are inputs that failed.
# Usage: fuzz-table.sh [LOG]
cd "$(dirname "$0")/.." || exit 1
awk '
  BEGIN { printf "%-10s %12s %18s %9s\n", "target", "executions", "edges reached", "findings" }
  /^[0-9]+\/[0-9]+ Testing: fuzz\./ { target = substr($3, 6); runs = all = edges = findings = 0 }
  /^INFO: Loaded .* inline 8-bit counters/ { sub(/.*\(/, ""); all = $1 }
  match($0, / cov: [0-9]+/) { edges = substr($0, RSTART + 6, RLENGTH - 6) }
  /^stat::number_of_executed_units:/ { runs = $2 }
  /Test unit written to/ { ++findings }
  /^Test time =/ {
    share = all > 0 ? 100 * edges / all : 0
    printf "%-10s %12d %9d (%4.1f %%) %9d\n", target, runs, edges, share, findings
  }
' "${1:-build/fuzz/Testing/Temporary/LastTest.log}"
