// A host in a few lines: loads a picture, detects its points, prints them.
#include <cstdio>

#include "interface/quorvex.h"

int main(int argc, char** argv) {
  unsigned char* pixels = nullptr;
  long width = 0, height = 0;
  int bits = 0;
  if (argc != 2 || !Read_Image(pixels, width, height, bits, argv[1])) return 2;

  PointList points;
  if (!SingleCamDetectCalibrationPoint(pixels, width, height, bits, 20, 20, 0, 0, 300, points))
    return 1;
  for (const CalibrationPoint& p : points)
    std::printf("%d: row %d, column %d at (%.2f, %.2f)\n", p.id, p.row, p.col, p.x, p.y);
}
