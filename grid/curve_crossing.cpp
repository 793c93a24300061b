#include "grid/curve_crossing.h"

#include <cmath>
#include <cstdio>

#include "imageio/diagnostic_list.h"

namespace quorvex {
namespace {

constexpr double kLargestResidual = 10.0;  // pixels
constexpr double kFineStep = 0.02;         // pixels
constexpr int kFineSteps = 100;

// The coefficients of columnCurve(rowCurve(t)) - t, from the fourth power down.
void WriteQuartic(const QuadraticCoefficients& row, const QuadraticCoefficients& column) {
  const float a1 = row.a, b1 = row.b, c1 = row.c;
  const float a2 = column.a, b2 = column.b, c2 = column.c;
  const float fourth = a2 * (a1 * a1);
  const float third = 2.0f * a2 * a1 * b1;
  const float second = a2 * (b1 * b1) + 2.0f * a2 * a1 * c1 + b2 * a1;
  const float first = 2.0f * a2 * b1 * c1 + b2 * b1 - 1.0f;
  const float constant = a2 * (c1 * c1) + b2 * c1 + c2;
  std::FILE* file = OpenDiagnosticList("D:/sdf.txt");
  if (file == nullptr) {
    return;
  }
  std::fprintf(file, "%f\t%f\t%f\t%f\t%f\n", static_cast<double>(fourth),
               static_cast<double>(third), static_cast<double>(second), static_cast<double>(first),
               static_cast<double>(constant));
  std::fclose(file);
}

// The best position found so far: t along x, the row curve's value there and the distance of the
// two curves. It is replaced only by a strictly smaller distance, so that the first of equals
// stays.
struct Crossing {
  float t;
  float y;
  float residual;

  void Try(const QuadraticCoefficients& row, const QuadraticCoefficients& column, float candidate) {
    const float value = EvaluateCurve(row, candidate);
    const float distance = std::fabs(candidate - EvaluateCurve(column, value));
    if (distance < residual) {
      *this = {candidate, value, distance};
    }
  }
};

}  // namespace

bool IntersectRowAndColumnCurves(const QuadraticCoefficients& rowCurve,
                                 const QuadraticCoefficients& columnCurve, int width, int height,
                                 float& x, float& y) {
  WriteQuartic(rowCurve, columnCurve);
  const float startResidual = static_cast<float>(width);
  Crossing best = {0.0f, 0.0f, startResidual};
  for (int t = 0; t < width; ++t) {
    best.Try(rowCurve, columnCurve, static_cast<float>(t));
  }
  if (static_cast<double>(best.residual) > kLargestResidual) {
    return false;
  }
  const float fineStart = best.t - 1.0f;
  best.residual = startResidual;
  for (int k = 0; k < kFineSteps; ++k) {
    best.Try(rowCurve, columnCurve,
             static_cast<float>(static_cast<double>(fineStart) + k * kFineStep));
  }
  const bool isOutside = best.t < 0.0f || best.t >= static_cast<float>(width) || best.y < 0.0f ||
                         best.y >= static_cast<float>(height);
  if (static_cast<double>(best.residual) > kLargestResidual || isOutside) {
    return false;
  }
  x = best.t;
  y = best.y;
  return true;
}

}  // namespace quorvex
