#!/bin/sh
# Tokenizes source files with the grammar for editors. npm downloads the tokenizer once, in the
# versions and with the checksums of tests/editors/package-lock.json.
set -eu
cd "$(dirname "$0")/.."
work=build/grammar/editors

mkdir -p "$work"
if ! cmp -s tests/editors/package-lock.json "$work/package-lock.json"; then
  cp tests/editors/package.json tests/editors/package-lock.json "$work"
  npm_config_update_notifier=false npm ci --prefix "$work" --ignore-scripts --no-audit --no-fund \
    >"$work/npm.log" 2>&1 || {
    cat "$work/npm.log"
    rm "$work/package-lock.json"
    exit 1
  }
fi
node tests/editors/grammar_test.mjs . "$work/node_modules"
