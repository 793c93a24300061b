#!/usr/bin/env bash
# Runs a program that shows windows. Wine's desktop process, which the first window starts, keeps standard
# error open and can outlive the program by minutes; ctest would wait for it.
set -uo pipefail
errors=$(mktemp)
trap 'rm -f "$errors"' EXIT
"$@" 2>"$errors"
code=$?
[[ $code -eq 0 ]] || cat "$errors"
exit $code
