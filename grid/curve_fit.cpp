#include "grid/curve_fit.h"

#include <cmath>
#include <utility>

namespace quorvex {
namespace {

constexpr int kUnknowns = 3;
constexpr int kColumns = kUnknowns + 1;         // of the augmented matrix
constexpr double kSmallestXDifference = 0.001;  // pixels

bool FitStraightLine(const CalibrationPoint& p0, const CalibrationPoint& p1,
                     QuadraticCoefficients& curve) {
  const float difference = p0.x - p1.x;
  if (static_cast<double>(std::fabs(difference)) < kSmallestXDifference) {
    return false;
  }
  curve.b = (p1.y - p0.y) / (p1.x - p0.x);
  curve.c = p0.y - curve.b * p0.x;
  return true;
}

void BuildNormalEquations(const PointList& points, double (&matrix)[kUnknowns][kColumns]) {
  double s4 = 0.0, s3 = 0.0, s2 = 0.0, s1 = 0.0, s0 = 0.0;
  double t2 = 0.0, t1 = 0.0, t0 = 0.0;
  for (const CalibrationPoint& point : points) {
    const float x = point.x;
    const float y = point.y;
    const float x2 = x * x;
    const float x3 = x2 * x;
    const float x4 = x3 * x;
    const float x2y = x2 * y;
    const float xy = x * y;
    s4 += static_cast<double>(x4);
    s3 += static_cast<double>(x3);
    s2 += static_cast<double>(x2);
    s1 += static_cast<double>(x);
    s0 += 1.0;
    t2 += static_cast<double>(x2y);
    t1 += static_cast<double>(xy);
    t0 += static_cast<double>(y);
  }
  const double rows[kUnknowns][kColumns] = {{s4, s3, s2, t2}, {s3, s2, s1, t1}, {s2, s1, s0, t0}};
  for (int i = 0; i < kUnknowns; ++i) {
    for (int j = 0; j < kColumns; ++j) {
      matrix[i][j] = rows[i][j];
    }
  }
}

// Each later row that exceeds the diagonal is exchanged with it. The diagonal's magnitude is taken
// once and not renewed after an exchange: the pivot is the last row that exceeded it, not the
// largest.
void Pivot(double (&matrix)[kUnknowns][kColumns], int k) {
  const double magnitude = std::fabs(matrix[k][k]);
  for (int i = k + 1; i < kUnknowns; ++i) {
    if (std::fabs(matrix[i][k]) > magnitude) {
      for (int j = k; j < kColumns; ++j) {
        std::swap(matrix[i][j], matrix[k][j]);
      }
    }
  }
}

void Eliminate(double (&matrix)[kUnknowns][kColumns]) {
  for (int k = 0; k < kUnknowns; ++k) {
    Pivot(matrix, k);
    for (int i = k + 1; i < kUnknowns; ++i) {
      const double factor = matrix[i][k] / matrix[k][k];
      matrix[i][k] = 0.0;
      for (int j = k + 1; j < kColumns; ++j) {
        matrix[i][j] -= factor * matrix[k][j];
      }
    }
  }
}

}  // namespace

bool FitQuadraticCurve(const PointList& points, QuadraticCoefficients& curve) {
  curve = QuadraticCoefficients();
  if (points.size() < 2) {
    return false;
  }
  if (points.size() == 2) {
    return FitStraightLine(points[0], points[1], curve);
  }
  double m[kUnknowns][kColumns];
  BuildNormalEquations(points, m);
  Eliminate(m);
  const double c = m[2][3] / m[2][2];
  const double b = (m[1][3] - m[1][2] * c) / m[1][1];
  const double a = (m[0][3] - m[0][2] * c - m[0][1] * b) / m[0][0];
  curve.a = static_cast<float>(a);
  curve.b = static_cast<float>(b);
  curve.c = static_cast<float>(c);
  return true;
}

}  // namespace quorvex
