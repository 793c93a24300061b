#!/usr/bin/env bash
# Fetches the source of a Debian package, with Debian's patches, into a folder.
#   scripts/fetch_source.sh PACKAGE FOLDER
# The machine's own package sources are asked for their source packages; its settings stay as they are.
set -euo pipefail
package=$1
folder=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
mkdir -p "$work/parts" "$work/lists/partial" "$work/cache/archives/partial" "$work/download"
shopt -s nullglob
for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
  if [[ -e $list ]]; then sed -n 's/^deb /deb-src /p' "$list" > "$work/parts/$(basename "$list" .list).list"; fi
done
for list in /etc/apt/sources.list.d/*.sources; do
  sed 's/^Types:.*/Types: deb-src/' "$list" > "$work/parts/$(basename "$list")"
done
settings=(-o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$work/parts"
  -o "Dir::State::Lists=$work/lists" -o "Dir::Cache=$work/cache" -o APT::Sandbox::User=root)

# Others than Debian may have no source packages; that the one asked for is there is told below.
apt-get "${settings[@]}" update -qq >/dev/null 2>&1 || true
# A mirror may lag behind with the newest update; the release itself is there.
codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
cd "$work/download"
apt-get "${settings[@]}" source -qq "$package" >/dev/null 2>&1 ||
  { rm -rf ./* && apt-get "${settings[@]}" source -qq "$package/$codename" >/dev/null; }
cd - >/dev/null

# The package's folder is the only one. In two steps, so that a folder is whole or not there.
mkdir -p "$(dirname "$folder")"
rm -rf "$folder.part"
mv "$work"/download/*/ "$folder.part"
mv "$folder.part" "$folder"
