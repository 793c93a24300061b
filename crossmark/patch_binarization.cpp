#include "crossmark/patch_binarization.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/gray_image.h"
#include "crossmark/patch.h"

namespace quorvex {
namespace {

constexpr int kWindowReach = 20;        // pixels to each side
constexpr double kDynamicRange = 40.0;  // of the deviation, grey levels

// Sums over the rows of the window, a column each. 32 bits hold them: 41 * 41 squares of 255 are
// 109 million.
struct ColumnTotals {
  int sums[kPatchSize];
  int squares[kPatchSize];
};

// Squares of bytes fit 16 bits, for which there are vector products.
int Square(unsigned char value) { return static_cast<std::uint16_t>(value * value); }

void AddRow(const unsigned char* row, ColumnTotals& totals) {
  for (int x = 0; x < kPatchSize; ++x) {
    totals.sums[x] += row[x];
    totals.squares[x] += Square(row[x]);
  }
}

void DropRow(const unsigned char* row, ColumnTotals& totals) {
  for (int x = 0; x < kPatchSize; ++x) {
    totals.sums[x] -= row[x];
    totals.squares[x] -= Square(row[x]);
  }
}

// What the windows of one row of pixels hold.
struct WindowRow {
  int sums[kPatchSize];
  int squares[kPatchSize];
  int rows;  // that a window covers
};

// The columns that the window of a pixel covers.
int WindowColumns(int x) {
  return std::min(x + kWindowReach, kPatchSize - 1) - std::max(x - kWindowReach, 0) + 1;
}

// Totals of all columns up to one, with room on both sides: beyond the patch's edges they stay as
// they are there, so that windows need not be cut.
using RunningTotals = int[kPatchSize + 2 * kWindowReach + 1];

void AddUp(const int (&columns)[kPatchSize], RunningTotals& totals) {
  int* next = std::fill_n(totals, kWindowReach + 1, 0);
  int total = 0;
  for (const int column : columns) {
    total += column;
    *next++ = total;
  }
  std::fill_n(next, kWindowReach, total);
}

void SumWindows(const ColumnTotals& columns, WindowRow& windows) {
  constexpr int kWindowSize = 2 * kWindowReach + 1;
  RunningTotals sums;
  RunningTotals squares;
  AddUp(columns.sums, sums);
  AddUp(columns.squares, squares);
  for (int x = 0; x < kPatchSize; ++x) {
    windows.sums[x] = sums[x + kWindowSize] - sums[x];
    windows.squares[x] = squares[x + kWindowSize] - squares[x];
  }
}

// The threshold as it is defined.
double Threshold(int windowSum, int windowSquares, int windowArea, double k) {
  const double area = static_cast<double>(windowArea);
  const double sum = static_cast<double>(windowSum);
  const double squareSum = static_cast<double>(windowSquares);
  const double mean = sum / area;
  // In single precision on purpose, up to the root.
  const float variance =
      std::fabs(static_cast<float>((squareSum - sum * sum / area) / (area - 1.0)));
  const double deviation = std::sqrt(static_cast<double>(variance));
  return mean * (1.0 + k * (deviation / kDynamicRange - 1.0));
}

// Most pixels are so far from their threshold that an estimate in single precision tells their
// side. A pixel p equals the threshold of a window of mean m where the deviation is
// 40 * (m * k + p - m) / (m * k); at a smaller deviation it is white. Both sides are squared and
// multiplied by (m * k) ^ 2. The estimates are off by far less than the margins for weights and
// means within these bounds; a division by the area instead of the area - 1 is part of that.
constexpr float kSmallestWeight = 0.01f;
constexpr float kLargestWeight = 1.0f;
constexpr float kSmallestMean = 4.0f;     // grey levels
constexpr float kFixedMargin = 2.0f;      // of the variance, square grey levels
constexpr float kRelativeMargin = 0.02f;  // of the variance
constexpr int kUndecided = 1;

// The reciprocals of the columns that the windows of a row cover.
using InverseColumns = float[kPatchSize];

void EstimateRow(const unsigned char* source, const WindowRow& windows,
                 const InverseColumns& inverseColumns, float k, int* decisions) {
  const float inverseRows = 1.0f / static_cast<float>(windows.rows);
  constexpr float kSquaredRange = static_cast<float>(kDynamicRange * kDynamicRange);
  for (int x = 0; x < kPatchSize; ++x) {
    const float inverseArea = inverseRows * inverseColumns[x];
    const float sum = static_cast<float>(windows.sums[x]);
    const float mean = sum * inverseArea;
    const float variance = (static_cast<float>(windows.squares[x]) - sum * mean) * inverseArea;
    const float scale = mean * k;
    const float distance = scale + static_cast<float>(source[x]) - mean;
    const float limit = kSquaredRange * distance * distance;
    // The deviation is never negative.
    const float signedLimit = distance > 0.0f ? limit : -limit;
    const float margin = kFixedMargin * scale * scale + kRelativeMargin * limit;
    const float scaledVariance = variance * scale * scale;
    const int white = scaledVariance + margin < signedLimit ? 255 : kUndecided;
    const int decision = scaledVariance - margin > signedLimit ? 0 : white;
    decisions[x] = mean >= kSmallestMean ? decision : kUndecided;
  }
}

void BinarizeRow(const unsigned char* source, const WindowRow& windows,
                 const InverseColumns& inverseColumns, float k, unsigned char* destination) {
  int decisions[kPatchSize];
  if (k >= kSmallestWeight && k <= kLargestWeight) {
    EstimateRow(source, windows, inverseColumns, k, decisions);
  } else {
    std::fill(decisions, decisions + kPatchSize, kUndecided);
  }
  int undecided = 0;
  for (int x = 0; x < kPatchSize; ++x) {
    destination[x] = static_cast<unsigned char>(decisions[x]);
    undecided += decisions[x] == kUndecided ? 1 : 0;
  }
  for (int x = 0; undecided > 0; ++x) {
    if (decisions[x] == kUndecided) {
      const int area = windows.rows * WindowColumns(x);
      const double threshold =
          Threshold(windows.sums[x], windows.squares[x], area, static_cast<double>(k));
      // A pixel equal to the threshold is white.
      destination[x] = threshold > static_cast<double>(source[x]) ? 0 : 255;
      --undecided;
    }
  }
}

const unsigned char* RowOf(const unsigned char* patch, int y) {
  return patch + PixelOffset(0, y, kPatchSize);
}

}  // namespace

void SauvolaBinarize(const unsigned char* source, unsigned char* destination, float k) {
  ColumnTotals totals = {};
  WindowRow windows;
  InverseColumns inverseColumns;
  for (int x = 0; x < kPatchSize; ++x) {
    inverseColumns[x] = 1.0f / static_cast<float>(WindowColumns(x));
  }
  for (int y = 0; y < kWindowReach; ++y) {
    AddRow(RowOf(source, y), totals);
  }
  for (int y = 0; y < kPatchSize; ++y) {
    const int top = std::max(y - kWindowReach, 0);
    const int bottom = std::min(y + kWindowReach, kPatchSize - 1);
    if (y + kWindowReach < kPatchSize) {
      AddRow(RowOf(source, bottom), totals);
    }
    if (y > kWindowReach) {
      DropRow(RowOf(source, top - 1), totals);
    }
    windows.rows = bottom - top + 1;
    SumWindows(totals, windows);
    BinarizeRow(RowOf(source, y), windows, inverseColumns, k,
                destination + PixelOffset(0, y, kPatchSize));
  }
}

}  // namespace quorvex
