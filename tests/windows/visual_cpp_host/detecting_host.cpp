// A host that exchanges pictures with the library, detects into its lists, renumbers them and turns
// them for the left and the right camera: calls that empty lists and fill them again. Together with
// the editing host it links against every function of the public header.
#include "interface/quorvex.h"
#include "tests/support/turned_target.h"
#include "tests/windows/visual_cpp_host/runtime.h"

namespace {

using namespace quorvex::tests;

constexpr int kGridSize = 9;  // 81 points, more than a small block holds

CalibrationPoint PointAt(int id, float x, float y) {
  CalibrationPoint point = {};
  point.id = id;
  point.x = x;
  point.y = y;
  return point;
}

// A grid whose steps shrink from its middle outwards.
float GridPosition(int index) {
  const int step = index - kGridSize / 2;
  const int offset = 60 * step - 2 * step * (step < 0 ? -step : step);
  return 500.0f + static_cast<float>(offset);
}

void FillGrid(PointList& points) {
  for (int i = 0; i < kGridSize * kGridSize; ++i) {
    points.push_back(PointAt(-1, GridPosition(i / kGridSize), GridPosition(i % kGridSize)));
  }
}

void ExpectNumber(const CalibrationPoint& point, int row, int col) {
  HOST_EXPECT(point.row == row && point.col == col && point.id == row * kGridSize + col + 1);
}

void Renumber() {
  for (int round = 0; round < 50; ++round) {
    PointList points;
    FillGrid(points);
    HOST_EXPECT(ReAssignmentID(kGridSize, kGridSize, points));
    HOST_EXPECT(points.size() == kGridSize * kGridSize);
    for (Size i = 0; i < points.size(); ++i) {
      const int col = static_cast<int>(i) / kGridSize;
      const int row = static_cast<int>(i) % kGridSize;
      ExpectNumber(points[i], row, col);
      HOST_EXPECT(points[i].x == GridPosition(col) && points[i].y == GridPosition(row));
    }
    points.push_back(points[0]);
    points.shrink_to_fit();
    points.pop_back();
    (round % 2 == 0 ? LeftPtsRearrange : RightPtsRearrange)(points, 0, kGridSize);
    HOST_EXPECT(points.size() == kGridSize * kGridSize);
    for (CalibrationPoint& point : points) {
      for (int col = 0; col < kGridSize; ++col) {
        if (point.x == GridPosition(col)) {
          HOST_EXPECT(point.row == col);
        }
        if (point.y == GridPosition(col)) {
          HOST_EXPECT(point.col == kGridSize - 1 - col);
        }
      }
    }
    points.push_back(points[0]);
  }
}

unsigned char image[kTurnedTargetSize * kTurnedTargetSize];

bool Detect(PointList& points) {
  return SingleCamDetectCalibrationPoint(image, kTurnedTargetSize, kTurnedTargetSize, 8, 20, 20,
                                         0.0f, 0.0f, 300, points);
}

bool IsNear(float a, float b) { return TurnedTargetDistance(a, b) < 0.5f; }

// Expects the marks in order from `first` on.
void ExpectMarks(PointList& points, Size first) {
  for (int i = 0; i < 16; ++i) {
    const CalibrationPoint& point = points[first + static_cast<Size>(i)];
    const int row = kTurnedTargetMarks - 1 - i / kTurnedTargetMarks;
    const int col = i % kTurnedTargetMarks;
    HOST_EXPECT(point.id == i + 1);
    HOST_EXPECT(IsNear(point.x, TurnedTargetX(row, col)));
    HOST_EXPECT(IsNear(point.y, kTurnedTargetSize - 1 - TurnedTargetY(row, col)));
  }
}

void DetectIntoAnEmptyList() {
  PointList points;
  HOST_EXPECT(Detect(points));
  HOST_EXPECT(points.size() == 16);
  ExpectMarks(points, 0);
  points.push_back(points[15]);
}

// Points that are there already stay, and are ordered with the new ones by id.
void DetectBehindOtherPoints(int count) {
  PointList points;
  for (int i = 0; i < count; ++i) {
    // In a corner of the image, too far from the board to be moved to one of its lines, and just
    // too far from each other to count as the same point.
    points.push_back(PointAt(i - count, 4.0f * static_cast<float>(i % 8) + 5.0f,
                             4.0f * static_cast<float>(i / 8) + 5.0f));
  }
  points.shrink_to_fit();
  HOST_EXPECT(Detect(points));
  HOST_EXPECT(points.size() == static_cast<Size>(count) + 16);
  for (int i = 0; i < count; ++i) {
    HOST_EXPECT(points[static_cast<Size>(i)].id == i - count);
  }
  ExpectMarks(points, static_cast<Size>(count));
}

void ExchangePictures() {
  unsigned char pixels[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  HOST_EXPECT(Save_Image(pixels, 4, 2, 8, "host.bmp"));
  unsigned char* read = nullptr;
  long width = 0;
  long height = 0;
  int bits = 0;
  HOST_EXPECT(Read_Image(read, width, height, bits, "host.bmp"));
  HOST_EXPECT(width == 4 && height == 2 && bits == 8);
  for (int i = 0; i < 8; ++i) {
    HOST_EXPECT(read[i] == pixels[i]);
  }
  unsigned char colour[3] = {10, 20, 30};
  unsigned char grey = 0;
  ConvertRGBToGray(colour, 1, 1, 24, &grey);
  HOST_EXPECT(grey == 21);
}

}  // namespace

void RunHost() {
  ExchangePictures();
  Renumber();
  CheckHeap();
  DrawTurnedTarget(image);
  DetectIntoAnEmptyList();
  DetectBehindOtherPoints(3);
  DetectBehindOtherPoints(63);
  DetectBehindOtherPoints(64);
}
