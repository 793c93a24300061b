#!/usr/bin/env bash
# From pictures to a calibration: renders pictures, calibrates the camera with each of the two detections, and
# numbers a stereo pair.
#   run.sh [BUILD] [FOLDER]
# BUILD is a build of this project with OpenCV, build/release if not given; FOLDER is where the pictures go,
# calibrate-output if not given.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$(cd "${1:-$here/../../build/release}" && pwd)
if [[ ! -x $build/examples/calibrate_camera ]]; then
  echo "run.sh: $build/examples has no calibrate_camera; the build found no OpenCV (Debian: libopencv-dev)" >&2
  exit 2
fi
mkdir -p "${2:-calibrate-output}"
cd "${2:-calibrate-output}"  # the plain detection leaves its pictures in the current folder

"$here/render_poses.sh" "$build/quorvex" .
"$build/examples/calibrate_camera" 35 pose-??.bmp --true 1000 1032.5 1017.5 -0.02 0.004 -0.001 0
echo
echo "Stereo, the whole board in both pictures"
"$build/examples/stereo_ids" 7 left right
echo
echo "Stereo, the first row hidden from the left camera, the last one from the right"
"$build/examples/stereo_ids" 7 part-left part-right
