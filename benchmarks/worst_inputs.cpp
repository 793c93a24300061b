#include "benchmarks/worst_inputs.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "interface/quorvex.h"

namespace quorvex::benchmarks {
namespace {

constexpr unsigned char kBoard = 220;  // grey levels
constexpr unsigned char kInk = 20;

// A number that looks random, settled by the place.
std::uint32_t Hash(int x, int y) {
  std::uint32_t value = static_cast<std::uint32_t>(x) * 0x9E3779B1u;
  value = (value ^ (value >> 15) ^ static_cast<std::uint32_t>(y)) * 0x85EBCA77u;
  value = (value ^ (value >> 13)) * 0xC2B2AE3Du;
  return value ^ (value >> 16);
}

unsigned char NoiseBetween(int x, int y, int first, int last) {
  return static_cast<unsigned char>(first + static_cast<int>(Hash(x, y) % (last - first + 1)));
}

// Strokes `width` wide along both axes, `pitch` apart.
bool IsOnGrid(int x, int y, int pitch, int width) { return x % pitch < width || y % pitch < width; }

template <int kPitch, int kWidth, int kLevel>
unsigned char Grid(int x, int y) {
  return IsOnGrid(x, y, kPitch, kWidth) ? static_cast<unsigned char>(kLevel) : kBoard;
}

unsigned char Chequerboard(int x, int y) {
  const bool isDark = (x / 3 + y / 3) % 2 == 0;
  return isDark ? NoiseBetween(x, y, 10, 60) : NoiseBetween(x, y, 180, 250);
}

// Crosses whose arms nearly meet, with noise on ink and board.
unsigned char TouchingMarks(int x, int y) {
  constexpr int kPitch = 130;
  const bool isGap = x % kPitch == kPitch / 2 || y % kPitch == kPitch / 2;
  return IsOnGrid(x, y, kPitch, 5) && !isGap ? NoiseBetween(x, y, 0, 70)
                                             : NoiseBetween(x, y, 150, 255);
}

unsigned char LightCrosses(int x, int y) {
  constexpr int kPitch = 130;
  const bool isNear = (x + 20) % kPitch < 45 && (y + 20) % kPitch < 45;
  return isNear && IsOnGrid(x, y, kPitch, 5) ? 255 : 120;
}

CalibrationPoint PointAt(int id, int row, int col, float x, float y) {
  CalibrationPoint point = {};
  point.id = id;
  point.row = row;
  point.col = col;
  point.x = x;
  point.y = y;
  return point;
}

int SideOf(int count) { return static_cast<int>(std::sqrt(static_cast<double>(count))); }

// How far the n-th line from the middle lies from it: each gap a thousandth narrower than the last,
// since a trace ends where gaps do not shrink.
float LinePlace(int n) {
  const double gap = 20.0;
  const double shrinking = 0.999;
  const double distance = gap * (1.0 - std::pow(shrinking, std::abs(n))) / (1.0 - shrinking);
  return static_cast<float>(n < 0 ? -distance : distance);
}

PointList ShrinkingGrid(int count) {
  const int side = SideOf(count);
  PointList points;
  for (int row = 0; row < side; ++row) {
    for (int col = 0; col < side; ++col) {
      points.push_back(PointAt(0, row, col, LinePlace(col - side / 2), LinePlace(row - side / 2)));
    }
  }
  return points;
}

// Within 1000 pixels of each other, so that every point is looked at from every point.
PointList Cloud(int count) {
  PointList points;
  for (int i = 0; i < count; ++i) {
    points.push_back(PointAt(i, 0, 0, static_cast<float>(Hash(i, 1) % 65536) / 100.0f,
                             static_cast<float>(Hash(i, 2) % 65536) / 100.0f));
  }
  return points;
}

PointList OneColumn(int count) {
  PointList points;
  for (int i = 0; i < count; ++i) {
    points.push_back(PointAt(i, i, 0, 0.0f, static_cast<float>(i)));
  }
  return points;
}

// A value that does not compare, in the middle.
PointList OneColumnWithNaN(int count) {
  PointList points = OneColumn(count);
  points[static_cast<std::size_t>(count / 2)].y = std::numeric_limits<float>::quiet_NaN();
  return points;
}

PointList EachItsColumn(int count) {
  PointList points;
  for (int i = 0; i < count; ++i) {
    points.push_back(PointAt(i, 0, count - 1 - i, 0.0f, 0.0f));
  }
  return points;
}

void RenumberSquare(PointList& points) {
  const int side = SideOf(static_cast<int>(points.size()));
  ReAssignmentID(side, side, points);
}

void RenumberLine(PointList& points) { ReAssignmentID(1, static_cast<int>(points.size()), points); }

void RearrangeLeft(PointList& points) {
  LeftPtsRearrange(points, 0, static_cast<int>(points.size()));
}

void RearrangeRight(PointList& points) {
  RightPtsRearrange(points, 0, static_cast<int>(points.size()));
}

}  // namespace

const std::vector<WorstPicture>& WorstPictures() {
  static const std::vector<WorstPicture> kPictures = {
      {"white", [](int, int) -> unsigned char { return 255; }},
      {"noise around 80", [](int x, int y) { return NoiseBetween(x, y, 78, 82); }},
      {"noise around 50", [](int x, int y) { return NoiseBetween(x, y, 48, 52); }},
      {"noise over all levels", [](int x, int y) { return NoiseBetween(x, y, 0, 255); }},
      {"black and white noise",
       [](int x, int y) -> unsigned char { return Hash(x, y) % 2 == 0 ? 0 : 255; }},
      {"parallel lines", [](int x, int) { return x % 20 < 3 ? kInk : kBoard; }},
      {"light crosses", LightCrosses},
      {"noisy chequerboard of 3 px", Chequerboard},
      {"touching marks with noise", TouchingMarks},
      {"dark grid of 10 px", Grid<10, 3, kInk>},
      {"dark grid of 40 px", Grid<40, 3, kInk>},
      {"dark grid of 130 px", Grid<130, 3, kInk>},
      {"grey grid of 10 px", Grid<10, 2, 120>},
  };
  return kPictures;
}

GrayImage Draw(const WorstPicture& picture, int width, int height) {
  GrayImage image(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.Data()[PixelOffset(x, y, width)] = picture.levelAt(x, y);
    }
  }
  return image;
}

const std::vector<WorstList>& WorstLists() {
  static const std::vector<WorstList> kLists = {
      {"renumber a grid whose spacing shrinks", ShrinkingGrid, RenumberSquare},
      {"renumber a cloud", Cloud, RenumberLine},
      {"rearrange one column", OneColumn, RearrangeLeft},
      {"rearrange one column with a NaN", OneColumnWithNaN, RearrangeRight},
      {"rearrange points in a column each", EachItsColumn, RearrangeLeft},
  };
  return kLists;
}

}  // namespace quorvex::benchmarks
