#!/usr/bin/env bash
# The packages that scripts/setup.sh, the first argument, can install are those that a page explains, the second.
set -euo pipefail
mapfile -t options < <(sed -nE 's/^ +(--[a-z]+)\).*/\1/p' "$1")
[[ ${#options[@]} -ge 10 ]] || { echo "packages_are_explained: the options of $1 were not read" >&2; exit 1; }
installed=$("$1" "${options[@]}")
explained=$(grep '^|' "$2" | cut -d '|' -f 2 | grep -oE '`[^`]+`' | tr -d '`' | sort -u)
if ! diff <(sort -u <<<"$installed") - <<<"$explained"; then
  echo "packages_are_explained: < is installed, > is explained" >&2
  exit 1
fi
