#!/usr/bin/env bash
# Makes the pictures of the pages anew and compares them, pixel by pixel.
#   pictures_test.sh SOURCES FOLDER PYTHON
set -euo pipefail
sources=$1
made=$2
python=$3
if ! "$python" -c 'import cv2' 2>/dev/null; then
  echo "Skipped: python3-opencv is not installed"
  exit 77
fi
rm -rf "$made"
PYTHON=$python "$sources/scripts/make_doc_pictures.sh" "$made"
"$python" "$sources/tests/docs/compare_pictures.py" "$sources/docs" "$made"
