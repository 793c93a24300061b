#!/usr/bin/env bash
# Builds the site and looks into it.
#   site_test.sh SOURCES FOLDER PYTHON
set -euo pipefail
sources=$1
site=$2
python=$3
for program in mkdocs:mkdocs doxygen:doxygen; do
  if ! command -v "${program%:*}" >/dev/null; then
    echo "Skipped: ${program#*:} is not installed"
    exit 77
  fi
done
if ! dpkg-query --show mkdocs-material >/dev/null 2>&1; then
  echo "Skipped: mkdocs-material is not installed"
  exit 77
fi
rm -rf "$site"
printed=$("$sources/scripts/make_site.sh" "$site" 2>&1) || { echo "$printed"; exit 1; }
echo "$printed"
if grep -qi warning <<<"$printed"; then
  echo "site_test: there is a warning"
  exit 1
fi
for page in index first-picture CONTRIBUTING api/index api/quorvex_8h api/quorvex__c_8h; do
  [[ -s $site/$page.html ]] || { echo "site_test: $page.html is missing"; exit 1; }
done
"$python" "$sources/tests/docs/check_links.py" --site "$site"

# A page that loads from elsewhere, and one with a broken link, are found.
for wrong in '<script src="https://example.org/a.js"></script>' '<link href="//example.org/a.css" rel="stylesheet">' \
  '<a href="nothing.html">a</a>' '<a href="index.html#nothing-there">a</a>'; do
  echo "$wrong" >"$site/wrong.html"
  if "$python" "$sources/tests/docs/check_links.py" --site "$site" 2>/dev/null; then
    echo "site_test: $wrong was not found"
    exit 1
  fi
done
rm "$site/wrong.html"
