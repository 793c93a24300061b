// What a host does at its operator's mouse clicks: detects the points of a board, deletes one by a
// click, adds it back by hand, moves it to its place, numbers the corrected list anew, and numbers
// it for the left and for the right camera. Prints the list after every step: a heading, then a
// record a line.
//
//   operator_road BOARD.bmp ROWS COLUMNS
//
// The picture has 8 bits a pixel, and a width and height that are multiples of 4.
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "examples/checked_picture.h"

namespace {

int Fail(const char* reason) {
  std::fprintf(stderr, "operator_road: %s\n", reason);
  return EXIT_FAILURE;
}

void Print(const char* heading, const PointList& points) {
  std::printf("# %s\nid,row,col,x,y\n", heading);
  for (const CalibrationPoint& p : points) {
    std::printf("%d,%d,%d,%.9g,%.9g\n", p.id, p.row, p.col, p.x, p.y);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    return Fail("usage: operator_road BOARD.bmp ROWS COLUMNS");
  }
  const int rows = static_cast<int>(std::strtol(argv[2], nullptr, 10));
  const int columns = static_cast<int>(std::strtol(argv[3], nullptr, 10));

  if (rows < 1 || columns < 1) {
    return Fail("ROWS and COLUMNS are numbers above 0");
  }

  CheckedPicture picture;
  const char* reason = ReadChecked(argv[1], picture);
  if (reason != nullptr) {
    return Fail(reason);
  }

  PointList points;
  if (!SingleCamDetectCalibrationPoint(picture.pixels, picture.width, picture.height, picture.bits,
                                       20, 20, 0, 0, 300, points) ||
      points.empty()) {
    return Fail("no points were found");
  }
  Print("detected", points);

  // The operator clicks beside a point: 9 pixels to each side are near enough.
  const CalibrationPoint chosen = points[points.size() / 2];
  const float clickX = std::floor(chosen.x) + 3;
  const float clickY = std::floor(chosen.y) - 2;
  if (!DeleteCalibrationPt_Coordinate(clickX, clickY, points)) {
    return Fail("no point to delete");
  }
  Print("deleted", points);

  // A point added by hand has no place in the grid yet: its id, row and column are -1.
  AddCalibrationPt_Coordinate(clickX, clickY, points);
  Print("added", points);

  if (!AlterCalibrationPt_Coordinate(-1, chosen.row, chosen.col, chosen.x, chosen.y, points)) {
    return Fail("no point to move");
  }
  Print("moved", points);

  if (!ReAssignmentID(rows, columns, points)) {
    return Fail("the points cannot be renumbered");
  }
  Print("renumbered", points);

  PointList left = points;
  LeftPtsRearrange(left, rows, columns);
  Print("left", left);

  PointList right = points;
  RightPtsRearrange(right, rows, columns);
  Print("right", right);
}
