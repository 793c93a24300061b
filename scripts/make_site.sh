#!/usr/bin/env bash
# Builds the documentation as a site, build/site/index.html: the pages of docs/ and the reference of the public
# headers. Installs what is missing. A warning of either tool is a failure.
#   make_site.sh [FOLDER]    FOLDER takes the place of build/site
set -euo pipefail
site=$(realpath --canonicalize-missing "${1:-$(dirname "${BASH_SOURCE[0]}")/../build/site}")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
trap 'echo "site: failed (line $LINENO)" >&2' ERR
scripts/setup.sh --site

echo "site: the pages"
said=$(PYTHONDONTWRITEBYTECODE=1 mkdocs build --strict --clean --site-dir "$site" 2>&1) || { echo "$said" >&2; false; }
{ printf 'const searchIndex = '; cat "$site/search/search_index.json"; printf ';\n'
  cat scripts/site/from_folder.js; } >"$site/search/from_folder.js"

echo "site: the reference of the headers"
mkdir -p "$site/api"
QUORVEX_API_FOLDER=$site/api doxygen docs/Doxyfile
echo "site: look at $site/index.html"
