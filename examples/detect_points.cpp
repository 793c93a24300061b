// A host in a few lines: loads a picture, detects its points, prints them.
#include <cstdio>

#include "examples/checked_picture.h"

int main(int argc, char** argv) {
  CheckedPicture p;
  const char* reason = argc == 2 ? ReadChecked(argv[1], p) : "usage: detect_points BOARD.bmp";
  PointList points;
  if (reason == nullptr && !SingleCamDetectCalibrationPoint(p.pixels, p.width, p.height, p.bits, 20,
                                                            20, 0, 0, 300, points)) {
    reason = "no points were found";
  }
  if (reason != nullptr) {
    std::fprintf(stderr, "detect_points: %s\n", reason);
    return 1;
  }
  for (const CalibrationPoint& point : points) {
    std::printf("%d: row %d, column %d at (%.2f, %.2f)\n", point.id, point.row, point.col, point.x,
                point.y);
  }
}
