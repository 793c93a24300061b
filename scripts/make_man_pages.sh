#!/usr/bin/env bash
# Makes the man pages of the command and of each of its verbs from what they print with --help.
#   scripts/make_man_pages.sh QUORVEX FOLDER
set -euo pipefail
trap 'echo "man pages: failed (line $LINENO)" >&2' ERR
quorvex=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
version=$("$quorvex" --version | cut -d ' ' -f 2)
# The tool hands its command to a shell, which would take a folder with blanks apart.
cd "$(dirname "$quorvex")"
program=./$(basename "$quorvex")

# The page of the verb that the words name, and those of its own verbs.
make_page() {
  local page help verb
  page=$(IFS=-; echo "quorvex${*:+-$*}")
  help=$("$quorvex" "$@" --help)
  # The tool takes the first word of a command with blanks for its name, and joins the lines of examples.
  help2man --no-info --version-string "$version" --name "$(head -n 1 <<<"$help" | sed 's/\.$//')" \
    --source "Quorvex $version" "$program $*" |
    sed -E -e "s/^\.TH [^ ]+/.TH ${page^^}/" -e "/^\.SH NAME/{n;s/^.*\\\\-/${page//-/\\\\-} \\\\-/}" \
      -e '/^\.SH EXAMPLES/,$ s/^\.IP$/.nf/' >"$folder/$page.1"
  for verb in $(sed -n '/^Subcommands:/,/^$/ s/^  \([a-z]\+\) .*/\1/p' <<<"$help"); do
    make_page "$@" "$verb"
  done
}

make_page
